#include "DescriptionText.h"

#include <KrMultilingual/ParameterTextMap.h>

#include <QtTest/QtTest>

using enum eParameterProperty;

using Properties = QList<quint32>;

/// What a description says of elements, and what it may share or leave out.
class tst_ServoDriveFirmwareElements : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void propertiesByDefault();
    void propertiesComplete();
    void propertiesAbsentAndSettable();
    void unitForms();
    void textForms();
    void limitsAndDefaults_data();
    void limitsAndDefaults();
    void profiles();
    void longChainOfProfiles();
    void equalElementsShareOneInformation();
    void largestRecord();
    void warnings();
};

void tst_ServoDriveFirmwareElements::propertiesByDefault()
{
    const auto firmware = load(withElement(R"("dataType": "UINT16")"));
    QVERIFY(firmware);
    const IParameterElementInformation *element = elementOf(*firmware);
    Properties present;
    for (quint32 number = 0; number <= 115; ++number) {
        const auto property = eParameterProperty(number);
        QVERIFY(!element->isPropertySettable(property));
        if (!element->hasProperty(property))
            continue;
        present.append(number);
        if (property == Datatype)
            QCOMPARE(element->property(property).asUint32(), 6U);
        else if (number == 18 || number == 19 || number == 26)
            QCOMPARE(element->property(property).asVariant(), QVariant::fromValue(ParameterText()));
        else
            QCOMPARE(element->property(property).asVariant().toInt(), 0);
    }
    QCOMPARE(present,
        (Properties {0, 1, 2, 3, 4, 5, 6, 7, 10, 11, 12, 13, 14, 15, 16, 18, 19, 21, 23, 24, 26, 29,
            30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 45}));
}

void tst_ServoDriveFirmwareElements::propertiesComplete()
{
    const auto firmware = load(withElement(R"(
        "dataType": "INT64", "kind": 2, "levels": {"read": 3, "write": 4},
        "limits": {"lower": "-9223372036854775808", "upper": "9223372036854775807"},
        "memoryAllocation": 1, "enableOffRequired": 2, "processDataMappable": 3,
        "automaticOnlineUpdate": 4, "noWrite": 5, "choices": {"-1": "minus", "0": {"de": "null"}},
        "units": {"scaled": "A", "native": {"de": "m", "en": "n"}, "fieldbus": "<localAxis:E12>"},
        "scaling": {"factor": 0.1, "fullScale": 4294967295},
        "decimals": {"behind": 1100, "significant": 6}, "editStartStepSize": 0.5,
        "fieldbus": {"factor": -2.5e3, "decimals": 2}, "timeouts": {"read": 100, "write": 4294967295},
        "cyclicOnlineUpdateRate": 7,
        "dependencies": {"limit": 32, "scaling": 33, "postWrite": 34, "preRead": 35, "postRead": 36,
            "preWrite": 37, "hiding": 38, "measuringUnit": -39},
        "functions": {"preRead": 10, "preWrite": 11, "postWrite": 12, "postRead": 13, "hiding": 14,
            "limit": 17, "scaling": 65535},
        "scopeChoice": 1, "commonTexts": {"choices": [1, 2, 3], "scaledUnit": 42, "nativeUnit": 43,
            "fieldbusUnit": 44},
        "onlineOrder": 45, "shownOffline": 1, "descriptionReference": "ref")"));
    QVERIFY(firmware);
    const IParameterElementInformation *element = elementOf(*firmware);
    const auto value = [element](eParameterProperty property) {
        return element->property(property).asVariant();
    };
    QCOMPARE(value(PrereadFunctionIndex), QVariant(10U));
    QCOMPARE(value(PrewriteFunctionIndex), QVariant(11U));
    QCOMPARE(value(PostwriteFunctionIndex), QVariant(12U));
    QCOMPARE(value(PostreadFunctionIndex), QVariant(13U));
    QCOMPARE(value(HidingFunctionIndex), QVariant(14U));
    QCOMPARE(value(ReadLevel), QVariant(3U));
    QCOMPARE(value(WriteLevel), QVariant(4U));
    QCOMPARE(value(LimitFunctionIndex), QVariant(17U));
    QCOMPARE(value(LowerLimitValue), QVariant(QStringLiteral("-9223372036854775808")));
    QCOMPARE(value(UpperLimitValue), QVariant(QStringLiteral("9223372036854775807")));
    QCOMPARE(value(MemoryAllocation), QVariant(1U));
    QCOMPARE(value(ParameterKind), QVariant(2));
    QCOMPARE(value(EnableOffRequired), QVariant(2U));
    QCOMPARE(value(ProcessDataMappable), QVariant(3U));
    QCOMPARE(value(AutomaticOnlineUpdate), QVariant(4U));
    QCOMPARE(value(NoWrite), QVariant(5U));
    QCOMPARE(value(Datatype), QVariant(4U));
    const auto choices = value(ChoiceMap).value<ParameterTextMap>();
    QCOMPARE(choices.keys(), (QList<qint32> {-1, 0}));
    QCOMPARE(choices.text(-1).longText(), QStringLiteral("minus"));
    QCOMPARE(choices.text(0).longText(), QStringLiteral("null"));
    QCOMPARE(value(ScaledMeasuringUnit).value<ParameterText>().longText(QStringLiteral("en")),
        QStringLiteral("A"));
    QCOMPARE(value(NativeMeasuringUnit).value<ParameterText>().longText(QStringLiteral("en")),
        QStringLiteral("n"));
    QCOMPARE(value(FieldbusMeasuringUnit), QVariant(QStringLiteral("<localAxis:E12>")));
    QCOMPARE(value(ScalingFactor), QVariant(0.1F));
    QCOMPARE(value(ScalingFunctionIndex), QVariant(65535U));
    QCOMPARE(value(FullScaleValue), QVariant(4294967295U));
    QCOMPARE(value(DecimalPlacesBehind), QVariant(1100));
    QCOMPARE(value(DecimalPlacesSignificant), QVariant(6U));
    QCOMPARE(value(EditStartStepSize), QVariant(0.5F));
    QCOMPARE(value(FieldbusScalingFactor), QVariant(-2500.0F));
    QCOMPARE(value(FieldbusDecimalPlacesBehind), QVariant(2));
    QCOMPARE(value(AdditionalReadTimeout), QVariant(100U));
    QCOMPARE(value(AdditionalWriteTimeout), QVariant(4294967295U));
    QCOMPARE(value(CyclicOnlineUpdateRate), QVariant(7U));
    QCOMPARE(value(LimitDependency), QVariant(32));
    QCOMPARE(value(ScalingDependency), QVariant(33));
    QCOMPARE(value(PostwriteDependency), QVariant(34));
    QCOMPARE(value(PrereadDependency), QVariant(35));
    QCOMPARE(value(PostreadDependency), QVariant(36));
    QCOMPARE(value(PrewriteDependency), QVariant(37));
    QCOMPARE(value(HidingDependency), QVariant(38));
    QCOMPARE(value(MeasuringUnitDependency), QVariant(-39));
    QCOMPARE(value(IsScopeChoice), QVariant(1U));
    QCOMPARE(
        element->property(ChoiceMapCommonTextIndex).asUint16List(), (QList<quint16> {1, 2, 3}));
    QCOMPARE(value(ScaledMeasuringUnitCommonTextIndex), QVariant(42U));
    QCOMPARE(value(NativeMeasuringUnitCommonTextIndex), QVariant(43U));
    QCOMPARE(value(FieldbusMeasuringUnitCommonTextIndex), QVariant(44U));
    QCOMPARE(value(OnlineOrder), QVariant(45U));
    QCOMPARE(value(ShownOffline), QVariant(1U));
    QCOMPARE(value(DescriptionReference), QVariant(QStringLiteral("ref")));
}

void tst_ServoDriveFirmwareElements::propertiesAbsentAndSettable()
{
    const auto firmware = load(withElement(R"("dataType": "UINT16", "limits": {"lower": 1},
        "absent": [11, 8, 32], "settable": [5, 17])"));
    QVERIFY(firmware);
    const IParameterElementInformation *element = elementOf(*firmware);
    QVERIFY(!element->hasProperty(ParameterKind));
    QVERIFY(!element->hasProperty(LowerLimitValue));
    QVERIFY(!element->hasProperty(LimitDependency));
    QVERIFY(element->hasProperty(ScalingDependency));
    QVERIFY(element->isPropertySettable(ReadLevel));
    QVERIFY(!element->isPropertySettable(WriteLevel));
    // One that the element lacks may be settable all the same.
    QVERIFY(element->isPropertySettable(ChoiceMap));
    QVERIFY(!element->hasProperty(ChoiceMap));
}

void tst_ServoDriveFirmwareElements::unitForms()
{
    const auto firmware = load(withElement(R"("dataType": "UINT16", "units":
        {"scaled": "<activeAxis:G245>", "native": "<odd", "fieldbus": ""})"));
    QVERIFY(firmware);
    const IParameterElementInformation *element = elementOf(*firmware);
    QCOMPARE(element->property(ScaledMeasuringUnit).asVariant(),
        QVariant(QStringLiteral("<activeAxis:G245>")));
    QCOMPARE(element->property(NativeMeasuringUnit).asVariant(), QVariant(QStringLiteral("<odd")));
    QVERIFY(element->hasProperty(FieldbusMeasuringUnit));
    QCOMPARE(element->property(FieldbusMeasuringUnit).asString(), QString());
    QCOMPARE(firmware->warnings(),
        QStringList {
            QStringLiteral("parameters[0].elements[0].units.native: begins with '<' and is "
                           "no unit locator such as \"<localAxis:E12>\"")});
}

void tst_ServoDriveFirmwareElements::textForms()
{
    const auto firmware = load(withElement(R"("dataType": "UINT16", "choices": {
        "0": {"de": {"short": "k", "long": "l"}}, "1": {"en": "e"}, "3": "\u00fc\ud83d\ude00"})"));
    QVERIFY(firmware);
    const auto choices =
        elementOf(*firmware)->property(ChoiceMap).asVariant().value<ParameterTextMap>();
    const QString german = QStringLiteral("de");
    QCOMPARE(choices.text(0).shortText(german), QStringLiteral("k"));
    QCOMPARE(choices.text(0).longText(german), QStringLiteral("l"));
    // Without a text in the language: the first that there is.
    QCOMPARE(choices.text(1).longText(german), QStringLiteral("e"));
    QCOMPARE(choices.text(3).longText(german), QStringLiteral("\u00fc\U0001F600"));
}

void tst_ServoDriveFirmwareElements::limitsAndDefaults_data()
{
    QTest::addColumn<QByteArray>("dataType");
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("native");

    const auto row = [](const char *rule, const char *dataType, const char *written,
                         const char *native) {
        QTest::newRow(rule) << QByteArray(dataType) << QByteArray(written)
                            << QString::fromLatin1(native);
    };
    row("number", "UINT16", "65535", "65535");
    row("number with a point", "UINT16", "5.0", "5");
    row("number with an exponent", "UINT16", "1e3", "1000");
    row("number that a double holds", "UINT64", "9007199254740992", "9007199254740992");
    row("beyond 2^53 and still held", "UINT64", "9223372036854775808", "9223372036854775808");
    row("text", "UINT16", "\"65535\"", "65535");
    row("UINT64 highest as a text", "UINT64", "\"18446744073709551615\"", "18446744073709551615");
    row("INT64 lowest as a text", "INT64", "\"-9223372036854775808\"", "-9223372036854775808");
    row("text is brought to plain form", "INT8", "\"+007\"", "7");
    row("minus zero", "INT8", "-0", "0");
    row("real number", "REAL64", "0.10", "0.10");
    row("real number with an exponent", "REAL32", "1e6", "1e6");
    row("real text", "REAL64", "\"-2.5E-3\"", "-2.5E-3");
}

void tst_ServoDriveFirmwareElements::limitsAndDefaults()
{
    QFETCH(QByteArray, dataType);
    QFETCH(QByteArray, written);
    QFETCH(QString, native);
    const auto firmware = load(withElement("\"dataType\": \"" + dataType + "\", \"default\": "
        + written + ", \"limits\": {\"lower\": " + written + ", \"upper\": " + written + "}"));
    QVERIFY(firmware);
    QCOMPARE(firmware->parameterDefinition(1)->elementDefaultValue(0), native);
    QCOMPARE(elementOf(*firmware)->property(LowerLimitValue).asString(), native);
    QCOMPARE(elementOf(*firmware)->property(UpperLimitValue).asString(), native);
    QCOMPARE(firmware->warnings(), QStringList());
}

void tst_ServoDriveFirmwareElements::profiles()
{
    const auto firmware = load(description(R"(
        "profiles": {
            "own": {"profile": "base", "levels": {"write": 5}, "choices": {"1": "one"}},
            "base": {"dataType": "INT8", "levels": {"read": 1, "write": 2}, "default": 7,
                "units": {"scaled": "A", "native": "mA"}, "choices": {"0": "zero"},
                "settable": [5]}},
        "parameters": [{"number": 1, "name": "a", "type": "record", "coordinates": ["A01"],
            "elements": [
                {"profile": "own", "units": {"native": "uA"}},
                {"profile": "base", "dataType": "UINT16", "default": 8, "settable": []}]}])"));
    QVERIFY(firmware);
    const IParameterElementInformation *first = elementOf(*firmware, 0);
    QCOMPARE(first->property(Datatype).asUint32(), 1U);
    QCOMPARE(first->property(ReadLevel).asUint32(), 1U);
    QCOMPARE(first->property(WriteLevel).asUint32(), 5U);
    QCOMPARE(first->property(ScaledMeasuringUnit).asString(), QStringLiteral("A"));
    QCOMPARE(first->property(NativeMeasuringUnit).asString(), QStringLiteral("uA"));
    // Choices hold as a whole.
    QCOMPARE(
        first->property(ChoiceMap).asVariant().value<ParameterTextMap>().keys(), QList<qint32> {1});
    QVERIFY(first->isPropertySettable(ReadLevel));
    const IParameterElementInformation *second = elementOf(*firmware, 1);
    QCOMPARE(second->property(Datatype).asUint32(), 6U);
    QCOMPARE(second->property(WriteLevel).asUint32(), 2U);
    QVERIFY(!second->isPropertySettable(ReadLevel));
    QCOMPARE(firmware->parameterDefinition(1)->elementDefaultValue(0), QStringLiteral("7"));
    QCOMPARE(firmware->parameterDefinition(1)->elementDefaultValue(1), QStringLiteral("8"));
}

void tst_ServoDriveFirmwareElements::longChainOfProfiles()
{
    constexpr int Length = 20'000;
    QByteArray profiles = R"("profiles": {"p0": {"dataType": "INT8"})";
    for (int i = Length; i > 0; --i)
        profiles += ", \"p" + QByteArray::number(i) + "\": {\"profile\": \"p"
            + QByteArray::number(i - 1) + "\"}";
    const auto firmware =
        load(description(profiles + R"(}, "parameters": [{"number": 1, "name": "a",
        "coordinates": ["A01"], "elements": [{"profile": "p20000"}]}])"));
    QVERIFY(firmware);
    QCOMPARE(elementOf(*firmware)->property(Datatype).asUint32(), 1U);
}

void tst_ServoDriveFirmwareElements::equalElementsShareOneInformation()
{
    const auto firmware = load(description(R"(
        "profiles": {"p": {"dataType": "INT8"}},
        "parameters": [{"number": 1, "name": "a", "type": "record", "coordinates": ["A01"],
            "elements": [
                {"dataType": "INT8", "name": "x", "default": 1}, {"dataType": "INT8", "default": 2},
                {"profile": "p", "kind": 3}, {"profile": "p", "kind": 3}, {"profile": "p"}]}])"));
    QVERIFY(firmware);
    QCOMPARE(elementOf(*firmware, 0), elementOf(*firmware, 1));
    QCOMPARE(elementOf(*firmware, 2), elementOf(*firmware, 3));
    QVERIFY(elementOf(*firmware, 0) != elementOf(*firmware, 2));
    QVERIFY(elementOf(*firmware, 3) != elementOf(*firmware, 4));
}

void tst_ServoDriveFirmwareElements::largestRecord()
{
    QByteArray elements;
    for (int i = 0; i < 16000; ++i) {
        elements += i > 0 ? "," : "";
        elements += R"({"dataType": "INT64", "default": )" + QByteArray::number(i) + "}";
    }
    const auto firmware =
        load(withParameter(R"("type": "record", "elements": [)" + elements + "]"));
    QVERIFY(firmware);
    const ParameterDefinition *parameter = firmware->parameterDefinition(1);
    QCOMPARE(parameter->elementCount(), quint16(16000));
    QCOMPARE(parameter->elementDefaultValue(15999), QStringLiteral("15999"));
    QCOMPARE(errorOf(withParameter(
                 R"("type": "record", "elements": [)" + elements + R"(, {"dataType": "INT8"}])")),
        QStringLiteral("d.json: parameters[0].elements: expected 1 to 16000 elements"));
}

void tst_ServoDriveFirmwareElements::warnings()
{
    const auto firmware = load(description(R"(
        "functions": {"limit": {"2": ""}}, "systemStrings": {"4": "x"},
        "profiles": {"p": {"dataType": "UINT16", "functions": {"scaling": 1}}},
        "parameters": [{"number": 1, "name": "a<b", "type": "record", "coordinates": ["A01"],
            "elements": [
                {"profile": "p", "name": {"de": "x", "en": "y & z"}, "functions": {"limit": 2}},
                {"profile": "p", "functions": {"limit": 3}, "commonTexts": {"choices": [4, 5]}},
                {"dataType": "STRING8", "limits": {"lower": 1}},
                {"dataType": "INT8", "limits": {"upper": 5}, "default": 6},
                {"dataType": "INT8", "kind": 1, "choices": {"1": "one"}, "default": 2}]}])"));
    QVERIFY(firmware);
    const QStringList expected {
        QStringLiteral("profiles.p.functions.scaling: there is no function 1; the highest is 0"),
        QStringLiteral("parameters[0].name: a name with '<', '>' or '&' may be taken for markup"),
        QStringLiteral(
            "parameters[0].elements[0].name: a name with '<', '>' or '&' may be taken for markup"),
        QStringLiteral(
            "parameters[0].elements[1].functions.limit: there is no function 3; the highest "
            "is 2"),
        QStringLiteral(
            "parameters[0].elements[1].commonTexts.choices: there is no system string 5; "
            "the highest is 4"),
        QStringLiteral("parameters[0].elements[2].limits.lower: a limit plays no part for the data "
                       "type STRING8"),
        QStringLiteral(
            "parameters[0].elements[3].default: the default lies outside of the limits or "
            "choices"),
        QStringLiteral(
            "parameters[0].elements[4].default: the default lies outside of the limits or "
            "choices"),
    };
    QCOMPARE(firmware->warnings(), expected);
}

QTEST_APPLESS_MAIN(tst_ServoDriveFirmwareElements)

#include "tst_ServoDriveFirmwareElements.moc"
