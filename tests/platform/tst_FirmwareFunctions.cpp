#include "FunctionStand.h"

#include "tests/support/MessageRecorder.h"

#include <KrMultilingual/LanguageManager.h>
#include <KrMultilingual/ParameterTextMap.h>

#include <QtTest/QtTest>

#include <limits>

namespace {

constexpr quint8 Int32 = 3;
constexpr quint8 Int64 = 4;
constexpr quint8 Uint8 = 5;
constexpr quint8 Uint64 = 8;
constexpr quint8 Real64 = 10;
constexpr quint8 String32 = 13;

const QString Domain = QStringLiteral("Device");

} // namespace

/// What functions of a device description receive and what their answers do.
class tst_FirmwareFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

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

    void parameterField_data();
    void parameterField();
    void parameterValue_data();
    void parameterValue();
    void parameterOfAGlobalParameter();
    void parameterAfterAWrite();
    void parameterIsReadOnly();

    void callback_data();
    void callback();
    void callbackAnswer_data();
    void callbackAnswer();
    void callbackWithoutContainer();
    void readingFunctionMayNotAct_data();
    void readingFunctionMayNotAct();
    void exceptionOfAContainer_data();
    void exceptionOfAContainer();

    void nativeValue_data();
    void nativeValue();
    void writtenValue_data();
    void writtenValue();
    void numbersDoNotFollowTheLocale();

    void library_data();
    void library();
    void libraryLacks_data();
    void libraryLacks();

    void refusedText_data();
    void refusedText();
    void acceptedText_data();
    void acceptedText();
    void textAsAListOfLines();
    void maximaComeFromTheTables();
    void providersAreIndependent();

private:
    static QString failure(const QString &kind, const QString &reason)
    {
        return QStringLiteral("%1 function 1 of parameter D10, element 0: %2").arg(kind, reason);
    }
    static void expectFailure(MessageRecorder &recorder, const QString &kind, const QString &reason)
    {
        recorder.expect(MessageRecorder::eSeverity::Critical, Domain, failure(kind, reason));
    }
    /// What a post-write function hands to a message.
    static QString told(FunctionStand &stand)
    {
        stand.postWrite();
        return stand.container.takeCalls().join(u'|');
    }
    static QString telling(const QString &expression)
    {
        return QStringLiteral("addInformationMessage(tostring(%1))").arg(expression);
    }
};

void tst_FirmwareFunctions::cleanup()
{
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("de"));
}

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
        QCOMPARE(told(stand), QString());
    }
}

void tst_FirmwareFunctions::parameterField_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *expression, const char *text) {
        QTest::newRow(expression) << QString::fromUtf8(expression) << QString::fromUtf8(text);
    };
    row("parameter.coordinate", "D10");
    row("parameter.element", "0");
    row("parameter.livingSpace", "2");
    row("parameter.axis", "1");
    row("parameter.addressNumber", "1073745834");
    row("parameter.isGlobalParameter", "false");
    row("parameter.datatype", "3");
    row("parameter.typeName", "INT32");
    row("parameter.kind", "7");
    row("parameter.decimalPlacesBehind", "-2");
    row("parameter.decimalPlacesSignificant", "4");
    row("parameter.fullScaleValue", "4294967295");
    row("parameter.scalingFactor", "0.1");
    row("parameter.editStartStepSize", "0.5");
    row("parameter.lowerLimitValue", "-10");
    row("math.type(parameter.lowerLimitValue)", "integer");
    row("parameter.upperLimitValue", "");
    row("parameter.limitFunctionIndex", "1");
    row("parameter.scalingFunctionIndex", "1");
    row("parameter.hidingFunctionIndex", "1");
    row("parameter.prereadFunctionIndex", "1");
    row("parameter.prewriteFunctionIndex", "1");
    row("parameter.postreadFunctionIndex", "1");
    row("parameter.postwriteFunctionIndex", "1");
    row("#parameter.choiceMapKeys", "2");
    row("parameter.choiceMapKeys[2]", "5");
    row("parameter.hasProperty(10)", "true");
    row("parameter.hasProperty(12)", "false");
    row("parameter.property(10)", "1");
    row("parameter.property(12)", "nil");
    row("parameter.property(20)", "0.001");
    row("parameter.property(18)", "Strom");
    row("parameter.property(17)[-1]", "Aus");
    row("parameter.property(17)[0]", "nil");
    row("parameter.property(41)[2]", "9");
}

void tst_FirmwareFunctions::parameterField()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    FunctionStand stand("postWrite", telling(expression));
    stand.data.parameterKind = 7;
    stand.data.decimalsBehind = -2;
    stand.data.decimalsSignificant = 4;
    stand.data.fullScale = 4294967295U;
    stand.data.factor = double(0.1F);
    stand.data.stepSize = 0.5;
    stand.data.lower = QStringLiteral("-10");
    stand.data.choiceKeys = {-1, 5};
    ParameterText unit;
    unit.setText(QStringLiteral("de"), QStringLiteral("I"), QStringLiteral("Strom"));
    ParameterText choice;
    choice.setText(QStringLiteral("de"), QStringLiteral("Aus"), QStringLiteral("Aus"));
    ParameterTextMap choices;
    choices.insert(-1, choice);
    stand.data.properties = {{eParameterProperty::MemoryAllocation, 1U},
        {eParameterProperty::ScalingFactor, 0.001F},
        {eParameterProperty::ScaledMeasuringUnit, QVariant::fromValue(unit)},
        {eParameterProperty::ChoiceMap, QVariant::fromValue(choices)},
        {eParameterProperty::ChoiceMapCommonTextIndex, QVariantList {3U, 9U}}};
    QFETCH(QString, text);
    QCOMPARE(told(stand), QStringLiteral("addInformationMessage ") + text);
}

void tst_FirmwareFunctions::parameterValue_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("text");

    QTest::newRow("an integer is a number")
        << uint(Int32) << QStringLiteral("4200") << QStringLiteral("integer 4200");
    QTest::newRow("a real is a number")
        << uint(Real64) << QStringLiteral("0.5") << QStringLiteral("float 0.5");
    QTest::newRow("a text stays a text")
        << uint(String32) << QStringLiteral("007") << QStringLiteral("nil 007");
}

void tst_FirmwareFunctions::parameterValue()
{
    MessageRecorder recorder;
    QFETCH(uint, type);
    QFETCH(QString, native);
    QFETCH(QString, text);
    FunctionStand stand("postWrite",
        telling(QStringLiteral("tostring(math.type(parameter.value)) .. ' ' .. parameter.value")));
    stand.container.types.insert(QStringLiteral("D10"), type);
    stand.container.values.insert(QStringLiteral("2 D10 0"), native);
    QCOMPARE(told(stand),
        QStringLiteral("readValueNative 2 D10 0|readValueNative 2 D10 0|addInformationMessage ")
            + text);
}

void tst_FirmwareFunctions::parameterOfAGlobalParameter()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite",
        telling(QStringLiteral(
            "parameter.livingSpace .. ' ' .. tostring(parameter.isGlobalParameter)")));
    stand.data.isGlobal = true;
    stand.data.address =
        ParameterAddress(0, ParameterCoordinate(QStringLiteral("D10")), 0).toNumber();
    QCOMPARE(told(stand), QStringLiteral("addInformationMessage 0 true"));
}

void tst_FirmwareFunctions::parameterAfterAWrite()
{
    MessageRecorder recorder;
    // The address stays; everything else may be gone with the record.
    FunctionStand stand("postWrite",
        QStringLiteral("writeValueNative(1, 'B01', 0, 5)\n"
                       "addInformationMessage(parameter.coordinate .. parameter.livingSpace)\n"
                       "return parameter.kind"));
    expectFailure(recorder, QStringLiteral("post-write"),
        QStringLiteral("line 3: after a write or a message this is not known any more; read it "
                       "into a local before"));
    QCOMPARE(
        told(stand), QStringLiteral("writeValueNative 1 B01 0 = 5|addInformationMessage D102"));
}

void tst_FirmwareFunctions::parameterIsReadOnly()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite", QStringLiteral("parameter.value = 5"));
    expectFailure(recorder, QStringLiteral("post-write"),
        QStringLiteral("line 1: the parameter's fields are read only"));
    stand.postWrite();
    QVERIFY(recorder.verify());

    FunctionStand unknown("postWrite", QStringLiteral("return parameter.vlaue"));
    expectFailure(recorder, QStringLiteral("post-write"),
        QStringLiteral("line 1: the parameter has no such field"));
    unknown.postWrite();
}

void tst_FirmwareFunctions::callback_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("call");

    const auto row = [](const char *text, const char *call) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(call);
    };
    row("readValue(1, 'B01')", "readValue 1 B01 0");
    row("readValue(1, 'B01', 3)", "readValue 1 B01 3");
    row("readValue(-1, 2001, 3, true)", "readValue -1 B01 3 unit");
    row("readValueNative(1, 'B01', 3)", "readValueNative 1 B01 3");
    row("readValueNative(1, 'B01', 3, true)", "readValueNative 1 B01 3 unit");
    row("readUndecoratedValue(1, 'B01', 3)", "readUndecoratedValue 1 B01 3");
    row("writeValue(1, 'B01', 3, '4,2 A')", "writeValue 1 B01 3 = 4,2 A");
    row("writeValueNative(1, 'B01', nil, 4200)", "writeValueNative 1 B01 0 = 4200");
    row("writeUndecoratedValue(1, 'B01', 3, 4.5)", "writeUndecoratedValue 1 B01 3 = 4.5");
    row("parameterProperty('B01', 'name')", "parameterProperty B01 name");
    row("elementProperty('B01', 3, 8)", "elementProperty B01 3 8");
    row("datatypeProperty('B01', 'kind')", "datatypeProperty B01 kind");
    row("systemProperty('activeLanguage')", "systemProperty activeLanguage");
    row("addInformationMessage('Text')", "addInformationMessage Text");
    row("addWarningMessage('Ärger')", "addWarningMessage Ärger");
    row("addCriticalMessage('Text')", "addCriticalMessage Text");
}

void tst_FirmwareFunctions::callback()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    FunctionStand stand("postWrite", text);
    QTEST(told(stand), "call");
}

void tst_FirmwareFunctions::callbackAnswer_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("answer");

    const auto row = [](const char *expression, const char *answer) {
        QTest::newRow(expression) << QString::fromUtf8(expression) << QString::fromUtf8(answer);
    };
    row("readValue(1, 'B01')", "4200");
    row("readValueNative(1, 'B01') + 1", "4201");
    row("math.type(readValueNative(1, 'B01', 0, true))", "nil");
    row("math.type(readUndecoratedValue(1, 'B01'))", "nil");
    row("parameterProperty('B01', 'isOnline')", "true");
    row("parameterProperty('B01', 'elementCount') + 1", "9");
    row("parameterProperty('B01', 'unknown')", "nil");
    row("parameterProperty('B01', 'unknown', 5) + 1", "6");
    row("elementProperty('B01', 0, 22)", "18446744073709551615");
    row("math.type(elementProperty('B01', 0, 22))", "nil");
    row("elementProperty('B01', 0, 23)", "nil");
    row("datatypeProperty('B01', 'shortName')", "INT32");
    row("systemProperty('activeLanguage')", "de");
    row("containerText('domain')", "Device");
}

void tst_FirmwareFunctions::callbackAnswer()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    QFETCH(QString, answer);
    FunctionStand stand("postWrite", telling(expression));
    stand.container.values.insert(QStringLiteral("1 B01 0"), QStringLiteral("4200"));
    stand.container.properties = {{QStringLiteral("isOnline"), true},
        {QStringLiteral("elementCount"), 8U},
        {QStringLiteral("22"), qulonglong(18446744073709551615ULL)},
        {QStringLiteral("shortName"), QStringLiteral("INT32")},
        {QStringLiteral("activeLanguage"), QStringLiteral("de")}};
    stand.postWrite();
    QCOMPARE(stand.container.calls.constLast(), QStringLiteral("addInformationMessage ") + answer);
}

void tst_FirmwareFunctions::callbackWithoutContainer()
{
    MessageRecorder recorder;
    FunctionStand stand("limit", QStringLiteral("return 0, readValueNative(1, 'B01')"));
    stand.provider->setCallbackProvider(nullptr);
    recorder.expect(MessageRecorder::eSeverity::Critical, QString(),
        failure(QStringLiteral("limit"), QStringLiteral("line 1: there is no container")));
    QCOMPARE(stand.upper(), QString());
}

void tst_FirmwareFunctions::readingFunctionMayNotAct_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");

    for (const char *kind : {"limit", "scaling", "hiding"}) {
        for (const char *text : {"writeValue(1, 'B01', 0, '5')", "writeValueNative(1, 'B01', 0, 5)",
                 "writeUndecoratedValue(1, 'B01', 0, 5)", "addInformationMessage('x')",
                 "addWarningMessage('x')", "addCriticalMessage('x')"})
            QTest::addRow("%s: %s", kind, text)
                << QString::fromLatin1(kind) << QString::fromLatin1(text);
    }
}

void tst_FirmwareFunctions::readingFunctionMayNotAct()
{
    MessageRecorder recorder;
    QFETCH(QString, kind);
    QFETCH(QString, text);
    FunctionStand stand({{kind, text}});
    expectFailure(
        recorder, kind, QStringLiteral("line 1: limit, scaling and hiding functions only read"));
    if (kind == QStringLiteral("limit"))
        stand.lower();
    else if (kind == QStringLiteral("scaling"))
        stand.provider->valueText(QStringLiteral("5"), &stand.data, 0);
    else
        stand.provider->isHidden(&stand.data, 0);
    QCOMPARE(stand.container.calls, QStringList());
}

void tst_FirmwareFunctions::exceptionOfAContainer_data()
{
    QTest::addColumn<QString>("call");

    QTest::newRow("reading") << QStringLiteral("readValueNative(1, 'B01')");
    QTest::newRow("writing") << QStringLiteral("writeValueNative(1, 'B01', 0, 5)");
    QTest::newRow("a property") << QStringLiteral("systemProperty('x')");
    QTest::newRow("a message") << QStringLiteral("addWarningMessage('x')");
    QTest::newRow("the value at hand") << QStringLiteral("local x = parameter.value");
}

void tst_FirmwareFunctions::exceptionOfAContainer()
{
    MessageRecorder recorder;
    QFETCH(QString, call);
    FunctionStand stand("postWrite", call);
    stand.container.listener = [](const QString &) { throw std::runtime_error("broken"); };
    expectFailure(recorder, QStringLiteral("post-write"), QStringLiteral("line 1: broken"));
    stand.postWrite();
    QVERIFY(recorder.verify());

    stand.container.listener = [](const QString &) { throw 5; };
    expectFailure(recorder, QStringLiteral("post-write"),
        QStringLiteral("line 1: an exception without a text"));
    stand.postWrite();
    QVERIFY(recorder.verify());

    stand.container.listener = [](const QString &) {};
    stand.postWrite();
}

void tst_FirmwareFunctions::nativeValue_data()
{
    QTest::addColumn<uint>("type");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("told");

    const auto row = [](const char *rule, quint8 type, const char *native, const char *told) {
        QTest::newRow(rule) << uint(type) << QString::fromLatin1(native)
                            << QString::fromLatin1(told);
    };
    row("highest signed number", Int64, "9223372036854775807", "integer 9223372036854775807");
    row("lowest signed number", Int64, "-9223372036854775808", "integer -9223372036854775808");
    row("beyond 53 bits", Int64, "9007199254740993", "integer 9007199254740993");
    row("highest unsigned number within 63 bits", Uint64, "9223372036854775807",
        "integer 9223372036854775807");
    row("lowest unsigned number beyond 63 bits is a text", Uint64, "9223372036854775808",
        "nil 9223372036854775808");
    row("highest unsigned number is a text", Uint64, "18446744073709551615",
        "nil 18446744073709551615");
    row("small integer", Uint8, "255", "integer 255");
    row("no number is a text", Int32, "abc", "nil abc");
    row("no value is an empty text", Int32, "", "nil ");
    row("whole real", Real64, "5", "float 5.0");
    row("real with exponent", Real64, "1e-7", "float 1e-07");
    row("digits of a string type", String32, "12", "nil 12");
    row("unknown type", 99, "12", "nil 12");
}

void tst_FirmwareFunctions::nativeValue()
{
    MessageRecorder recorder;
    QFETCH(uint, type);
    QFETCH(QString, native);
    FunctionStand stand("postWrite",
        QStringLiteral("local v = readValueNative(1, 'B01')\n")
            + telling(QStringLiteral("tostring(math.type(v)) .. ' ' .. v")));
    stand.container.types.insert(QStringLiteral("B01"), type);
    stand.container.values.insert(QStringLiteral("1 B01 0"), native);
    stand.postWrite();
    QFETCH(QString, told);
    QCOMPARE(stand.container.calls.constLast(), QStringLiteral("addInformationMessage ") + told);
}

void tst_FirmwareFunctions::writtenValue_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *expression, const char *text) {
        QTest::newRow(expression) << QString::fromUtf8(expression) << QString::fromUtf8(text);
    };
    row("math.maxinteger", "9223372036854775807");
    row("math.mininteger", "-9223372036854775808");
    row("'18446744073709551615'", "18446744073709551615");
    row("6 / 2", "3");
    row("0.1", "0.1");
    row("-0.0", "0");
    row("1e15", "1000000000000000");
    row("1e20", "100000000000000000000");
    row("1e21", "1e+21");
    row("2.5e-7", "2.5e-07");
    row("1 / 3", "0.3333333333333333");
    row("'Grüße'", "Grüße");
    row("'a\\0b'", "a\0b");
}

void tst_FirmwareFunctions::writtenValue()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    QFETCH(QString, text);
    FunctionStand stand(
        "postWrite", QStringLiteral("writeValueNative(1, 'B01', 0, %1)").arg(expression));
    if (expression.contains(QStringLiteral("\\0")))
        text = QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b");
    QCOMPARE(told(stand), QStringLiteral("writeValueNative 1 B01 0 = ") + text);
}

void tst_FirmwareFunctions::numbersDoNotFollowTheLocale()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite",
        QStringLiteral("addInformationMessage(0.5 .. ' ' .. tostring(1.25) .. ' '"
                       " .. string.format('%.2f', 2.5) .. ' ' .. tonumber('1.5') * 2"
                       " .. ' ' .. tostring(tonumber('1,5')))"));
    QCOMPARE(told(stand), QStringLiteral("addInformationMessage 0.5 1.25 2.50 3.0 nil"));
}

void tst_FirmwareFunctions::library_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *expression, const char *text) {
        QTest::newRow(expression) << QString::fromUtf8(expression) << QString::fromUtf8(text);
    };
    row("7 // 2", "3");
    row("1 << 4 | 3", "19");
    row("math.floor(2.7)", "2");
    row("math.max(1, 5, 3)", "5");
    row("math.tointeger(5.0)", "5");
    row("math.ult(1, -1)", "true");
    row("math.pi > 3.14", "true");
    row("select('#', 1, 2, 3)", "3");
    row("type({})", "table");
    row("tonumber('ff', 16)", "255");
    row("('abc'):upper()", "ABC");
    row("string.sub('abcdef', 2, 3)", "bc");
    row("('abc'):reverse() .. ('abc'):len()", "cba3");
    row("string.char(65, 66) .. ('A'):byte()", "AB65");
    row("string.format('%05d', 42)", "00042");
    row("next({})", "nil");
    row("#{1, 2, 3}", "3");
}

void tst_FirmwareFunctions::library()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    QFETCH(QString, text);
    FunctionStand stand("postWrite", telling(expression));
    QCOMPARE(told(stand), QStringLiteral("addInformationMessage ") + text);
}

void tst_FirmwareFunctions::libraryLacks_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"pcall", "xpcall", "load", "loadstring", "loadfile", "dofile",
             "require", "package", "io", "os", "debug", "coroutine", "table", "utf8", "print",
             "warn", "collectgarbage", "getmetatable", "setmetatable", "rawget", "rawset",
             "rawequal", "rawlen", "_G", "_VERSION", "string.rep", "string.find", "string.match",
             "string.gmatch", "string.gsub", "string.dump", "string.pack", "string.unpack",
             "string.packsize", "math.random", "math.randomseed", "(''):rep", "('').rep"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_FirmwareFunctions::libraryLacks()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    name.replace(u':', u'.');
    FunctionStand stand("postWrite", telling(name));
    QCOMPARE(told(stand), QStringLiteral("addInformationMessage nil"));
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
    QCOMPARE(told(stand), QString());
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
