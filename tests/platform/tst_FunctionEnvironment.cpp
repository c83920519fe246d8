#include "FunctionFailure.h"
#include "FunctionStand.h"

#include <KrMultilingual/ParameterTextMap.h>

#include <QtTest/QtTest>

namespace {

constexpr quint8 Int32 = 3;
constexpr quint8 Int64 = 4;
constexpr quint8 Uint8 = 5;
constexpr quint8 Uint64 = 8;
constexpr quint8 Real64 = 10;
constexpr quint8 String32 = 13;

} // namespace

/// What functions of a device description find: their parameter, the calls to the container, the library.
class tst_FunctionEnvironment : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

private:
    static QString telling(const QString &expression)
    {
        return QStringLiteral("addInformationMessage(tostring(%1))").arg(expression);
    }
};

void tst_FunctionEnvironment::parameterField_data()
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

void tst_FunctionEnvironment::parameterField()
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
    QCOMPARE(stand.told(), QStringLiteral("addInformationMessage ") + text);
}

void tst_FunctionEnvironment::parameterValue_data()
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

void tst_FunctionEnvironment::parameterValue()
{
    MessageRecorder recorder;
    QFETCH(uint, type);
    QFETCH(QString, native);
    QFETCH(QString, text);
    FunctionStand stand("postWrite",
        telling(QStringLiteral("tostring(math.type(parameter.value)) .. ' ' .. parameter.value")));
    stand.container.types.insert(QStringLiteral("D10"), type);
    stand.container.values.insert(QStringLiteral("2 D10 0"), native);
    QCOMPARE(stand.told(),
        QStringLiteral("readValueNative 2 D10 0|readValueNative 2 D10 0|addInformationMessage ")
            + text);
}

void tst_FunctionEnvironment::parameterOfAGlobalParameter()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite",
        telling(QStringLiteral(
            "parameter.livingSpace .. ' ' .. tostring(parameter.isGlobalParameter)")));
    stand.data.isGlobal = true;
    stand.data.address =
        ParameterAddress(0, ParameterCoordinate(QStringLiteral("D10")), 0).toNumber();
    QCOMPARE(stand.told(), QStringLiteral("addInformationMessage 0 true"));
}

void tst_FunctionEnvironment::parameterAfterAWrite()
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
        stand.told(), QStringLiteral("writeValueNative 1 B01 0 = 5|addInformationMessage D102"));
}

void tst_FunctionEnvironment::parameterIsReadOnly()
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

void tst_FunctionEnvironment::callback_data()
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

void tst_FunctionEnvironment::callback()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    FunctionStand stand("postWrite", text);
    QTEST(stand.told(), "call");
}

void tst_FunctionEnvironment::callbackAnswer_data()
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

void tst_FunctionEnvironment::callbackAnswer()
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

void tst_FunctionEnvironment::callbackWithoutContainer()
{
    MessageRecorder recorder;
    FunctionStand stand("limit", QStringLiteral("return 0, readValueNative(1, 'B01')"));
    stand.provider->setCallbackProvider(nullptr);
    recorder.expect(MessageRecorder::eSeverity::Critical, QString(),
        failure(QStringLiteral("limit"), QStringLiteral("line 1: there is no container")));
    QCOMPARE(stand.upper(), QString());
}

void tst_FunctionEnvironment::readingFunctionMayNotAct_data()
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

void tst_FunctionEnvironment::readingFunctionMayNotAct()
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

void tst_FunctionEnvironment::exceptionOfAContainer_data()
{
    QTest::addColumn<QString>("call");

    QTest::newRow("reading") << QStringLiteral("readValueNative(1, 'B01')");
    QTest::newRow("writing") << QStringLiteral("writeValueNative(1, 'B01', 0, 5)");
    QTest::newRow("a property") << QStringLiteral("systemProperty('x')");
    QTest::newRow("a message") << QStringLiteral("addWarningMessage('x')");
    QTest::newRow("the value at hand") << QStringLiteral("local x = parameter.value");
}

void tst_FunctionEnvironment::exceptionOfAContainer()
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

void tst_FunctionEnvironment::nativeValue_data()
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

void tst_FunctionEnvironment::nativeValue()
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

void tst_FunctionEnvironment::writtenValue_data()
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

void tst_FunctionEnvironment::writtenValue()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    QFETCH(QString, text);
    FunctionStand stand(
        "postWrite", QStringLiteral("writeValueNative(1, 'B01', 0, %1)").arg(expression));
    if (expression.contains(QStringLiteral("\\0")))
        text = QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b");
    QCOMPARE(stand.told(), QStringLiteral("writeValueNative 1 B01 0 = ") + text);
}

void tst_FunctionEnvironment::numbersDoNotFollowTheLocale()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite",
        QStringLiteral("addInformationMessage(0.5 .. ' ' .. tostring(1.25) .. ' '"
                       " .. string.format('%.2f', 2.5) .. ' ' .. tonumber('1.5') * 2"
                       " .. ' ' .. tostring(tonumber('1,5')))"));
    QCOMPARE(stand.told(), QStringLiteral("addInformationMessage 0.5 1.25 2.50 3.0 nil"));
}

void tst_FunctionEnvironment::library_data()
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

void tst_FunctionEnvironment::library()
{
    MessageRecorder recorder;
    QFETCH(QString, expression);
    QFETCH(QString, text);
    FunctionStand stand("postWrite", telling(expression));
    QCOMPARE(stand.told(), QStringLiteral("addInformationMessage ") + text);
}

void tst_FunctionEnvironment::libraryLacks_data()
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

void tst_FunctionEnvironment::libraryLacks()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    name.replace(u':', u'.');
    FunctionStand stand("postWrite", telling(name));
    QCOMPARE(stand.told(), QStringLiteral("addInformationMessage nil"));
}

QTEST_GUILESS_MAIN(tst_FunctionEnvironment)

#include "tst_FunctionEnvironment.moc"
