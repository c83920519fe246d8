#include "FunctionFailure.h"
#include "FunctionStand.h"

#include <QtTest/QtTest>

namespace {

constexpr quint8 Int32 = 3;
constexpr quint8 Int64 = 4;
constexpr quint8 Uint64 = 8;
constexpr quint8 Real64 = 10;

} // namespace

/// What the answers of functions of a device description do, and which texts are functions.
class tst_FirmwareFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limit_data();
    void limit();
    void limitOfWrongType_data();
    void limitOfWrongType();
    void limitDecidesCheckAndCorrection();
    void limitReadsOtherValues();
    void scaling_data();
    void scaling();
    void scalingOfWrongType_data();
    void scalingOfWrongType();
    void hiding_data();
    void hiding();
    void hidingOfWrongType_data();
    void hidingOfWrongType();
    void effectsRunByTheirKind();
    void absentFunctionRunsNothing();
    void refusedText_data();
    void refusedText();
    void acceptedText_data();
    void acceptedText();
    void textAsAListOfLines();
    void maximaComeFromTheTables();
    void providersAreIndependent();
};

void tst_FirmwareFunctions::limit_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("upper");

    const auto row = [](const char *rule, quint8 type, const char *text, const char *lower,
                         const char *upper) {
        QTest::newRow(rule) << type << QString::fromUtf8(text) << QString::fromLatin1(lower)
                            << QString::fromLatin1(upper);
    };
    row("both limits", Int32, "return -3, 7", "-3", "7");
    row("nil keeps the lower limit of the definition", Int32, "return nil, 7", "-10", "7");
    row("nothing keeps the upper limit of the definition", Int32, "return -3", "-3", "20");
    row("no answer keeps both", Int32, "return", "-10", "20");
    row("an empty function keeps both", Int32, "", "-10", "20");
    row("further answers play no part", Int32, "return 1, 2, {}, 4", "1", "2");
    row("a whole float is written as an integer", Int32, "return 1.0, 7.0", "1", "7");
    row("the whole numbers between fractions", Int32, "return -2.5, 2.5", "-2", "2");
    row("a fraction below zero is no minus zero", Int32, "return -0.5, 1", "0", "1");
    row("the ends of 64 bits", Int64, "return math.mininteger, math.maxinteger",
        "-9223372036854775808", "9223372036854775807");
    row("beyond 63 bits as text", Uint64, "return 0, '18446744073709551615'", "0",
        "18446744073709551615");
    row("beyond 63 bits as float", Uint64, "return 0, 1e19", "0", "10000000000000000000");
    row("fractions of a real type", Real64, "return -0.1, 2.5e-7", "-0.1", "2.5e-07");
    row("a text of a real type", Real64, "return '0.50', 1", "0.50", "1");
}

void tst_FirmwareFunctions::limit()
{
    MessageRecorder recorder;
    QFETCH(quint8, type);
    QFETCH(QString, text);
    FunctionStand stand("limit", text);
    stand.data.type = type;
    stand.data.lower = QStringLiteral("-10");
    stand.data.upper = QStringLiteral("20");
    QTEST(stand.lower(), "lower");
    QTEST(stand.upper(), "upper");
}

void tst_FirmwareFunctions::limitOfWrongType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *rule, const char *text, const char *shown) {
        QTest::newRow(rule) << QString::fromUtf8(text) << QString::fromUtf8(shown);
    };
    row("a truth value", "return true, 1", "true");
    row("a table", "return 1, {}", "a table");
    row("a function", "return print or tostring", "a function");
    row("the parameter itself", "return parameter", "a userdata");
    row("a text that is no number", "return 'low', 1", "\"low\"");
    row("an empty text", "return 1, ''", "\"\"");
    row("infinity", "return 1, math.huge", "inf");
    row("no number", "return 0/0, 1", "nan");
}

void tst_FirmwareFunctions::limitOfWrongType()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    QFETCH(QString, shown);
    FunctionStand stand("limit", text);
    stand.data.lower = QStringLiteral("-10");
    stand.data.upper = QStringLiteral("20");
    const QString reason = QStringLiteral("expected a number or nil as limit, not ") + shown;
    expectFailure(recorder, QStringLiteral("limit"), reason);
    QCOMPARE(stand.lower(), QStringLiteral("-10"));
    QVERIFY(recorder.verify());
    expectFailure(recorder, QStringLiteral("limit"), reason);
    QCOMPARE(stand.upper(), QStringLiteral("20"));
}

void tst_FirmwareFunctions::limitDecidesCheckAndCorrection()
{
    MessageRecorder recorder;
    FunctionStand stand("limit", QStringLiteral("return 5, 10"));
    stand.data.lower = QStringLiteral("0");
    stand.data.upper = QStringLiteral("100");
    const auto check = [&](const char *text) {
        return stand.provider->checkValue(QString::fromLatin1(text), &stand.data, 0);
    };
    QCOMPARE(check("4"), 2U);
    QCOMPARE(check("5"), 0U);
    QCOMPARE(check("10"), 0U);
    QCOMPARE(check("11"), 3U);
    QCOMPARE(
        stand.provider->correctValue(QStringLiteral("50"), &stand.data, 0), QStringLiteral("10"));
    QCOMPARE(
        stand.provider->correctValue(QStringLiteral("-1"), &stand.data, 0), QStringLiteral("5"));
}

void tst_FirmwareFunctions::limitReadsOtherValues()
{
    MessageRecorder recorder;
    FunctionStand stand(
        "limit", QStringLiteral("return 0, readValueNative(parameter.livingSpace, 'B01') * 3"));
    stand.container.values.insert(QStringLiteral("2 B01 0"), QStringLiteral("4200"));
    QCOMPARE(stand.upper(), QStringLiteral("12600"));
    stand.container.values.insert(QStringLiteral("2 B01 0"), QStringLiteral("5"));
    QCOMPARE(stand.upper(), QStringLiteral("15"));
}

void tst_FirmwareFunctions::scaling_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *rule, const char *text, const char *native, const char *value) {
        QTest::newRow(rule) << QString::fromUtf8(text) << QString::fromLatin1(native)
                            << QString::fromLatin1(value);
    };
    row("factor", "return 0.001", "4200", "4.2");
    row("a factor is the shortest decimal of 32 bits", "return 0.1", "3", "0.3");
    row("whole factor", "return 60", "25", "1500");
    row("negative factor", "return -2", "3", "-6");
    row("factor with full scale", "return 10, 4", "3", "7.5");
    row("full scale 0 is none", "return 10, 0", "3", "30");
    row("full scale nil is none", "return 10, nil", "3", "30");
    row("a full scale as whole float", "return 10, 4.0", "3", "7.5");
    row("nil keeps the definition's scaling", "return nil", "3", "1.5");
    row("no answer keeps the definition's scaling", "", "3", "1.5");
    row("64 bits stay exact", "return 0.001", "9007199254740993", "9007199254740.993");
}

void tst_FirmwareFunctions::scaling()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    QFETCH(QString, native);
    QFETCH(QString, value);
    FunctionStand stand("scaling", text);
    stand.data.type = Int64;
    stand.data.factor = 0.5;
    QCOMPARE(stand.provider->valueText(native, &stand.data, 0), value);
    QCOMPARE(stand.provider->nativeText(value, &stand.data, 0), native);
}

void tst_FirmwareFunctions::scalingOfWrongType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");

    const QString factor = QStringLiteral("expected a factor other than 0 that 32 bits hold, not ");
    const QString fullScale =
        QStringLiteral("expected a full-scale value from 0 to 4294967295, not ");
    const auto row = [](const char *rule, const char *text, const QString &reason) {
        QTest::newRow(rule) << QString::fromUtf8(text) << reason;
    };
    row("factor 0", "return 0", factor + u'0');
    row("a factor too small for 32 bits", "return 1e-60", factor + QStringLiteral("1e-60"));
    row("a factor too large for 32 bits", "return 1e39", factor + QStringLiteral("1e+39"));
    row("no number", "return 0/0", factor + QStringLiteral("nan"));
    row("a text", "return '2'", factor + QStringLiteral("\"2\""));
    row("a truth value", "return true", factor + QStringLiteral("true"));
    row("a negative full scale", "return 1, -1", fullScale + QStringLiteral("-1"));
    row("a full scale beyond 32 bits", "return 1, 4294967296",
        fullScale + QStringLiteral("4294967296"));
    row("a full scale with a fraction", "return 1, 0.5", fullScale + QStringLiteral("0.5"));
    row("a full scale as table", "return 1, {}", fullScale + QStringLiteral("a table"));
}

void tst_FirmwareFunctions::scalingOfWrongType()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    QFETCH(QString, reason);
    FunctionStand stand("scaling", text);
    stand.data.factor = 0.5;
    expectFailure(recorder, QStringLiteral("scaling"), reason);
    QCOMPARE(stand.provider->valueText(QStringLiteral("3"), &stand.data, 0), QStringLiteral("1.5"));
    QVERIFY(recorder.verify());
    expectFailure(recorder, QStringLiteral("scaling"), reason);
    QCOMPARE(
        stand.provider->nativeText(QStringLiteral("1.5"), &stand.data, 0), QStringLiteral("3"));
}

void tst_FirmwareFunctions::hiding_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isHidden");

    QTest::newRow("true hides") << QStringLiteral("return true") << true;
    QTest::newRow("false shows") << QStringLiteral("return false") << false;
    QTest::newRow("nil shows") << QStringLiteral("return nil") << false;
    QTest::newRow("no answer shows") << QString() << false;
    QTest::newRow("by another value")
        << QStringLiteral("return readValueNative(parameter.livingSpace, 'B00') == 3") << true;
    QTest::newRow("by another value that differs")
        << QStringLiteral("return readValueNative(parameter.livingSpace, 'B00') == 10") << false;
}

void tst_FirmwareFunctions::hiding()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    FunctionStand stand("hiding", text);
    stand.container.values.insert(QStringLiteral("2 B00 0"), QStringLiteral("3"));
    QTEST(stand.provider->isHidden(&stand.data, 0), "isHidden");
}

void tst_FirmwareFunctions::hidingOfWrongType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a number") << QStringLiteral("return 1") << QStringLiteral("1");
    QTest::newRow("a text") << QStringLiteral("return 'yes'") << QStringLiteral("\"yes\"");
    QTest::newRow("a table") << QStringLiteral("return {}") << QStringLiteral("a table");
}

void tst_FirmwareFunctions::hidingOfWrongType()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    QFETCH(QString, shown);
    FunctionStand stand("hiding", text);
    expectFailure(recorder, QStringLiteral("hiding"),
        QStringLiteral("expected true, false or nil, not ") + shown);
    QVERIFY(!stand.provider->isHidden(&stand.data, 0));
}

void tst_FirmwareFunctions::effectsRunByTheirKind()
{
    MessageRecorder recorder;
    const auto text = [](const char *kind) {
        return QStringLiteral("addInformationMessage('%1') return {}").arg(QLatin1StringView(kind));
    };
    FunctionStand stand({{QStringLiteral("preRead"), text("read before")},
        {QStringLiteral("preWrite"), text("write before")},
        {QStringLiteral("postRead"), text("read after")},
        {QStringLiteral("postWrite"), text("write after")}});
    for (const eFunctionKind kind : {eFunctionKind::Preread, eFunctionKind::Prewrite,
             eFunctionKind::Postwrite, eFunctionKind::Postread})
        stand.provider->runFunction(kind, &stand.data, 0);
    QCOMPARE(stand.container.calls,
        QStringList({QStringLiteral("addInformationMessage read before"),
            QStringLiteral("addInformationMessage write before"),
            QStringLiteral("addInformationMessage write after"),
            QStringLiteral("addInformationMessage read after")}));
}

void tst_FirmwareFunctions::absentFunctionRunsNothing()
{
    MessageRecorder recorder;
    FunctionStand stand({{QStringLiteral("limit"), QStringLiteral("return 1, 2")},
        {QStringLiteral("scaling"), QStringLiteral("return 2")},
        {QStringLiteral("hiding"), QStringLiteral("return true")},
        {QStringLiteral("postWrite"), QStringLiteral("addInformationMessage('ran')")}});
    stand.data.lower = QStringLiteral("-10");
    for (const quint16 index : {quint16(0), quint16(2), quint16(65535)}) {
        stand.data.functionIndex = index;
        QCOMPARE(stand.lower(), QStringLiteral("-10"));
        QCOMPARE(stand.upper(), QString());
        QCOMPARE(
            stand.provider->valueText(QStringLiteral("5"), &stand.data, 0), QStringLiteral("5"));
        QVERIFY(!stand.provider->isHidden(&stand.data, 0));
        QCOMPARE(stand.told(), QString());
    }
}

void tst_FirmwareFunctions::refusedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no program") << QStringLiteral("return return")
                                << QStringLiteral("line 1: unexpected symbol near 'return'");
    QTest::newRow("in the third line") << QStringLiteral("local a = 1\n\nlocal = 2")
                                       << QStringLiteral("line 3: <name> expected near '='");
    QTest::newRow("unfinished") << QStringLiteral("if true then")
                                << QStringLiteral("line 1: 'end' expected near <eof>");
    QTest::newRow("a compiled program") << QStringLiteral(
        "\u001bLua") << QStringLiteral("attempt to load a binary chunk (mode is 't')");
    QTest::newRow("a NUL outside of a text") << QStringLiteral("return 1") + QChar(QChar::Null)
                                             << QStringLiteral("line 1: <eof> expected");
    QTest::newRow("an assignment to a constant")
        << QStringLiteral("local a <const> = 1\na = 2")
        << QStringLiteral("line 2: attempt to assign to const variable 'a'");
    QTest::newRow("a jump to nowhere") << QStringLiteral(
        "goto a") << QStringLiteral("line 1: no visible label 'a' for <goto> at line 1");
    QTest::newRow("longer than 65536 bytes") << QStringLiteral("--")
            + QString(65535, u'x') << QStringLiteral("the function is longer than 65536 bytes");
    QTest::newRow("nested too deeply") << QStringLiteral("return ") + QString(300, u'(') + u'1'
            + QString(300, u')') << QStringLiteral("the function is nested too deeply");
}

void tst_FirmwareFunctions::refusedText()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    const QJsonObject table {
        {QStringLiteral("1"), QStringLiteral("return 1")}, {QStringLiteral("3"), text}};
    const QJsonObject root {{QStringLiteral("format"), QStringLiteral("kr-device-description")},
        {QStringLiteral("version"), 1},
        {QStringLiteral("family"),
            QJsonObject {{QStringLiteral("identifier"), 4097}, {QStringLiteral("name"), QString()},
                {QStringLiteral("hasPhysicalAxes"), false},
                {QStringLiteral("axes"), QJsonArray {1}}}},
        {QStringLiteral("languages"), QJsonArray {QStringLiteral("de")}},
        {QStringLiteral("dataTypes"), QJsonArray {}},
        {QStringLiteral("functions"), QJsonObject {{QStringLiteral("postRead"), table}}},
        {QStringLiteral("parameters"), QJsonArray {}}};
    DescriptionError error;
    const auto firmware = ServoDriveFirmware::loadFromBytes(
        QJsonDocument(root).toJson(), QStringLiteral("drive.json"), &error);
    QVERIFY(!firmware);
    QCOMPARE(error.file, QStringLiteral("drive.json"));
    QCOMPARE(error.path, QStringLiteral("functions.postRead.3"));
    QTEST(error.reason, "reason");
}

void tst_FirmwareFunctions::acceptedText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("a comment") << QStringLiteral("-- nothing to do");
    QTest::newRow("65536 bytes") << QStringLiteral("--") + QString(65534, u'x');
    QTest::newRow("a NUL inside of a text")
        << QStringLiteral("return '") + QChar(QChar::Null) + u'\'';
    QTest::newRow("beyond Latin-1") << QStringLiteral("return '\u4f60'");
}

void tst_FirmwareFunctions::acceptedText()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    FunctionStand stand("postWrite", text);
    QVERIFY(stand.firmware);
    QCOMPARE(stand.told(), QString());
}

void tst_FirmwareFunctions::textAsAListOfLines()
{
    MessageRecorder recorder;
    const auto firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily,
        R"json("functions": {"limit": {"1": ["local a = 5 -- a comment ends with its line", "return a"]},
        "hiding": {"1": ["-- one", "-- two", "error('broken')"]}})json");
    QVERIFY(firmware);
    const std::unique_ptr<ParameterFunctionProvider> provider(
        firmware->createParameterFunctionProvider());
    PlainContainer container;
    provider->setCallbackProvider(&container);
    PlainParameterData data;
    data.type = Int32;
    data.address = ParameterAddress(1, ParameterCoordinate(QStringLiteral("D10")), 0).toNumber();
    QCOMPARE(provider->lowerLimit(&data, 0), QStringLiteral("5"));
    expectFailure(recorder, QStringLiteral("hiding"), QStringLiteral("line 3: broken"));
    QVERIFY(!provider->isHidden(&data, 0));
}

void tst_FirmwareFunctions::maximaComeFromTheTables()
{
    MessageRecorder recorder;
    const auto firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily, R"("functions": {
        "limit": {"1": "", "11": ""}, "scaling": {"12": ""}, "hiding": {"13": "", "2": ""},
        "preRead": {"14": ""}, "preWrite": {"15": ""}, "postRead": {"16": ""},
        "postWrite": {"65535": ""}}, "systemStrings": {"7": "x"})");
    QVERIFY(firmware);
    QCOMPARE(firmware->maximumLimitFunctionIndex(), quint16(11));
    QCOMPARE(firmware->maximumScalingFunctionIndex(), quint16(12));
    QCOMPARE(firmware->maximumHidingFunctionIndex(), quint16(13));
    QCOMPARE(firmware->maximumPrereadFunctionIndex(), quint16(14));
    QCOMPARE(firmware->maximumPrewriteFunctionIndex(), quint16(15));
    QCOMPARE(firmware->maximumPostreadFunctionIndex(), quint16(16));
    QCOMPARE(firmware->maximumPostwriteFunctionIndex(), quint16(65535));
    QCOMPARE(firmware->maximumSystemStringNumber(), quint16(7));
}

void tst_FirmwareFunctions::providersAreIndependent()
{
    MessageRecorder recorder;
    FunctionStand stand("limit", QStringLiteral("return 0, readValueNative(1, 'B01')"));
    stand.container.values.insert(QStringLiteral("1 B01 0"), QStringLiteral("5"));
    PlainContainer other;
    other.values.insert(QStringLiteral("1 B01 0"), QStringLiteral("6"));
    const std::unique_ptr<ParameterFunctionProvider> second(
        stand.firmware->createParameterFunctionProvider());
    second->setCallbackProvider(&other);
    QCOMPARE(stand.upper(), QStringLiteral("5"));
    QCOMPARE(second->upperLimit(&stand.data, 0), QStringLiteral("6"));
    stand.provider.reset();
    QCOMPARE(second->upperLimit(&stand.data, 0), QStringLiteral("6"));
}

QTEST_GUILESS_MAIN(tst_FirmwareFunctions)

#include "tst_FirmwareFunctions.moc"
