#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrMultilingual/ParameterTextMap.h>
#include <KrProjectRepository/HardwareRepository.h>

#include <QtTest/QtTest>

#include <memory>

using enum eParameterProperty;

namespace {

using Properties = QList<quint32>;

/// A description around the given members of the root.
QByteArray description(const QByteArray &members)
{
    return R"({"format": "kr-device-description", "version": 1,
        "family": {"identifier": 4096, "name": "Two-axis drive", "hasPhysicalAxes": true, "axes": [1, 2]},
        "languages": ["de", "en"],
        "dataTypes": ["INT8", "UINT16", "INT64", "UINT64", "REAL32", "REAL64", "STRING8", "BYTES4",
            "RAW"],)"
        + members + "}";
}

/// A description with one parameter that has the given members.
QByteArray withParameter(const QByteArray &members)
{
    return description(
        R"("parameters": [{"number": 1, "coordinates": ["A01"], "name": "a",)" + members + "}]");
}

/// A description with one simple parameter whose element has the given members.
QByteArray withElement(const QByteArray &members)
{
    return withParameter(R"("elements": [{)" + members + "}]");
}

std::unique_ptr<ServoDriveFirmware> load(const QByteArray &json)
{
    DescriptionError error;
    auto firmware = ServoDriveFirmware::loadFromBytes(json, QStringLiteral("d.json"), &error);
    if (!firmware)
        QTest::qFail(qPrintable(error.toText()), __FILE__, __LINE__);
    return firmware;
}

QString errorOf(const QByteArray &json)
{
    DescriptionError error;
    const auto firmware = ServoDriveFirmware::loadFromBytes(json, QStringLiteral("d.json"), &error);
    if (firmware)
        return QStringLiteral("was loaded");
    return error.toText();
}

const IParameterElementInformation *elementOf(
    const ServoDriveFirmware &firmware, quint16 element = 0)
{
    return firmware.parameterDefinition(1)->queryElementInformation(element);
}

} // namespace

class tst_ServoDriveFirmware : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void family();
    void fileOfTheFormatPage();
    void shippedDescriptions_data();
    void shippedDescriptions();
    void parameterDefaults();
    void parameterComplete();
    void systemParameters();
    void record();
    void simpleWithSeveralDefaults();
    void maxima();
    void maximaWithoutTables();

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

    void refused_data();
    void refused();
    void largestFile();
    void mostValues();
    void familyThatContradicts();
    void languagesAndDataTypes();
    void nothingIsRegisteredWhenRefused();
    void fileThatIsNotThere();
    void errorMayBeNull();
};

void tst_ServoDriveFirmware::family()
{
    const auto firmware = load(description(R"("parameters": [])"));
    QVERIFY(firmware);
    QCOMPARE(firmware->deviceFamilyIdentifier(), 4096U);
    QCOMPARE(firmware->deviceFamilyName(), QStringLiteral("Two-axis drive"));
    QVERIFY(firmware->hasPhysicalAxes());
    QCOMPARE(firmware->axes(), (QList<int> {1, 2}));
    QCOMPARE(firmware->languages(), (QStringList {QStringLiteral("de"), QStringLiteral("en")}));
    QCOMPARE(firmware->warnings(), QStringList());
    QCOMPARE(firmware->parameterNumbers(), QList<quint32>());
    QVERIFY(!firmware->parameterDefinition(1));

    const DeviceFamilyInformation *family = HardwareRepository::instance().deviceFamily(4096);
    QVERIFY(family);
    QVERIFY(family->hasPhysicalAxes());
}

void tst_ServoDriveFirmware::fileOfTheFormatPage()
{
    QFile page(QFINDTESTDATA("../../docs/formats/device-description.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
    const qsizetype start = text.indexOf("```json\n") + 8;
    QVERIFY(start > 8);

    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("example.json"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.mid(start, text.indexOf("```", start) - start));
    file.close();

    DescriptionError error;
    const auto firmware = ServoDriveFirmware::loadFromFile(name, &error);
    QVERIFY2(firmware, qPrintable(error.toText()));
    QVERIFY(!error.isSet());
    const ParameterDefinition *limit = firmware->parameterDefinition(1);
    QVERIFY(limit);
    QCOMPARE(limit->elementDefaultValue(0), QStringLiteral("5000"));
    const IParameterElementInformation *element = limit->queryElementInformation(0);
    QCOMPARE(element->property(UpperLimitValue).asString(), QStringLiteral("20000"));
    QCOMPARE(element->property(ScalingFactor).asVariant(), QVariant(0.001F));
    QCOMPARE(element->property(ScaledMeasuringUnit).asString(), QStringLiteral("A"));
    QCOMPARE(element->property(WriteLevel).asUint32(), 2U);
}

void tst_ServoDriveFirmware::shippedDescriptions_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("two-axis drive") << QStringLiteral("../../devices/two-axis-drive.json");
    QTest::newRow("four-axis controller")
        << QStringLiteral("../../devices/four-axis-controller.json");
}

void tst_ServoDriveFirmware::shippedDescriptions()
{
    QFETCH(QString, file);
    // Their families are real ones, which the other tests describe otherwise.
    const QString name = QFINDTESTDATA(file);
    QFile description(name);
    QVERIFY(description.open(QIODevice::ReadOnly));
    QByteArray json = description.readAll();
    json.replace("\"identifier\": 4096", "\"identifier\": 14096");
    json.replace("\"identifier\": 8192", "\"identifier\": 18192");
    const auto firmware = load(json);
    QVERIFY(firmware);
    QCOMPARE(firmware->warnings(), QStringList());
    QVERIFY(firmware->parameterNumbers().size() >= 250);
}

void tst_ServoDriveFirmware::parameterDefaults()
{
    const auto firmware = load(withElement(R"("dataType": "UINT16")"));
    QVERIFY(firmware);
    QCOMPARE(firmware->parameterNumbers(), QList<quint32> {1});
    const ParameterDefinition *parameter = firmware->parameterDefinition(1);
    QVERIFY(parameter->isValid());
    QCOMPARE(parameter->identifier(), QStringLiteral("P1"));
    QCOMPARE(parameter->version(), 1U);
    QCOMPARE(parameter->name().longText(QStringLiteral("de")), QStringLiteral("a"));
    QCOMPARE(parameter->name().longText(QStringLiteral("en")), QStringLiteral("a"));
    QCOMPARE(parameter->nameCommonTextIndex(), 0);
    QCOMPARE(parameter->descriptionText(), QString());
    QVERIFY(parameter->isSimpleParameterDefinition());
    QVERIFY(parameter->isSingleInstance());
    QVERIFY(!parameter->isGlobalParameter());
    QVERIFY(!parameter->isPhysicalAxisParameter());
    QCOMPARE(parameter->defaultCoordinates(),
        QList<ParameterCoordinate> {ParameterCoordinate(QStringLiteral("A01"))});
    QCOMPARE(parameter->anchors(), QStringList());
    QCOMPARE(parameter->elementCount(), quint16(1));
    QCOMPARE(parameter->elementDefaultValue(0), QStringLiteral("0"));
}

void tst_ServoDriveFirmware::parameterComplete()
{
    const auto firmware = load(description(R"("parameters": [
        {"number": 4294967295, "identifier": "speed", "version": 3,
         "name": {"en": "Speed", "de": {"short": "Dz", "long": "Drehzahl"}}, "nameCommonText": 7,
         "description": {"de": "Text", "en": "Words"}, "type": "simple", "instances": "multi",
         "global": true, "physicalAxis": true, "coordinates": ["Q1", "G245"],
         "anchors": ["Drive.1;{P1}"], "elementCount": 16000, "elements": [{"dataType": "INT8"}]},
        {"number": 2, "name": "b", "instances": "multi", "coordinates": [],
         "elements": [{"dataType": "INT8"}]}])"));
    QVERIFY(firmware);
    QCOMPARE(firmware->parameterNumbers(), (QList<quint32> {2, 4294967295U}));
    const ParameterDefinition *parameter = firmware->parameterDefinition(4294967295U);
    QCOMPARE(parameter->identifier(), QStringLiteral("speed"));
    QCOMPARE(parameter->version(), 3U);
    QCOMPARE(parameter->name().shortText(QStringLiteral("de")), QStringLiteral("Dz"));
    QCOMPARE(parameter->name().longText(QStringLiteral("de")), QStringLiteral("Drehzahl"));
    // A language that has no text gets the first of the description, whatever the file's order.
    QCOMPARE(parameter->name().longText(QStringLiteral("fr")), QStringLiteral("Drehzahl"));
    QCOMPARE(parameter->nameCommonTextIndex(), 7);
    QCOMPARE(parameter->descriptionText(), QStringLiteral("Text"));
    QVERIFY(!parameter->isSingleInstance());
    QVERIFY(parameter->isGlobalParameter());
    QVERIFY(parameter->isPhysicalAxisParameter());
    QCOMPARE(parameter->defaultCoordinates().at(0).toText(), QStringLiteral("Q01"));
    QCOMPARE(parameter->defaultCoordinates().at(1).toText(), QStringLiteral("G245"));
    QCOMPARE(parameter->anchors(), QStringList {QStringLiteral("Drive.1;{P1}")});
    QCOMPARE(parameter->elementCount(), quint16(16000));
    QCOMPARE(firmware->parameterDefinition(2)->defaultCoordinates(), QList<ParameterCoordinate>());
}

void tst_ServoDriveFirmware::systemParameters()
{
    const auto firmware = load(description(R"("parameters": [
        {"number": 1, "name": "a", "coordinates": ["A01"], "elements": [{"dataType": "INT8"}]}],
        "systemParameters": [
        {"number": 2, "name": "b", "coordinates": ["A02"], "elements": [{"dataType": "INT8"}]},
        {"number": 1, "name": "c", "coordinates": ["A03"], "elements": [{"dataType": "INT8"}]}])"));
    QVERIFY(firmware);
    QCOMPARE(firmware->systemParameterNumbers(4096), (QList<quint32> {1, 2}));
    QCOMPARE(firmware->systemParameterNumbers(4097), QList<quint32>());
    QVERIFY(!firmware->systemParameterDefinition(4097, 1));
    QVERIFY(!firmware->systemParameterDefinition(4096, 3));
    const ParameterDefinition *system = firmware->systemParameterDefinition(4096, 1);
    QVERIFY(system);
    QCOMPARE(system->identifier(), QStringLiteral("S1"));
    QVERIFY(!system->isParameterIdentical(firmware->parameterDefinition(1)));
}

void tst_ServoDriveFirmware::record()
{
    const auto firmware = load(withParameter(R"("type": "record", "version": 4, "elements": [
        {"dataType": "UINT16", "number": 7, "name": "first", "nameCommonText": 3, "version": 9,
         "default": 5},
        {"dataType": "STRING8"},
        {"dataType": "INT8", "number": 16383}])"));
    QVERIFY(firmware);
    const ParameterDefinition *parameter = firmware->parameterDefinition(1);
    const RecordParameterDefinition *record = parameter->queryRecordDefinition();
    QVERIFY(record);
    // An element without a number has its position.
    QCOMPARE(record->elementList(), (QList<quint16> {7, 1, 16383}));
    QCOMPARE(record->elementName(7).longText(), QStringLiteral("first"));
    QCOMPARE(record->elementName(1).longText(), QStringLiteral("a"));
    QCOMPARE(record->elementNameCommonTextIndex(7), 3);
    QCOMPARE(record->elementNameCommonTextIndex(1), 0);
    QCOMPARE(parameter->elementVersion(7), 9U);
    QCOMPARE(parameter->elementVersion(1), 4U);
    QCOMPARE(parameter->elementDefaultValue(7), QStringLiteral("5"));
    QCOMPARE(parameter->elementDefaultValue(1), QString());
    QCOMPARE(parameter->elementDefaultValue(16383), QStringLiteral("0"));
}

void tst_ServoDriveFirmware::simpleWithSeveralDefaults()
{
    const auto firmware = load(withParameter(R"("elementCount": 4, "defaults": [10, "20", 30],
        "elements": [{"dataType": "UINT16", "default": 99}])"));
    QVERIFY(firmware);
    const ParameterDefinition *parameter = firmware->parameterDefinition(1);
    QCOMPARE(parameter->elementCount(), quint16(4));
    QCOMPARE(parameter->elementDefaultValue(0), QStringLiteral("10"));
    QCOMPARE(parameter->elementDefaultValue(1), QStringLiteral("20"));
    QCOMPARE(parameter->elementDefaultValue(2), QStringLiteral("30"));
    QCOMPARE(parameter->elementDefaultValue(3), QStringLiteral("10"));
}

void tst_ServoDriveFirmware::maxima()
{
    const auto firmware = load(description(R"("parameters": [],
        "systemStrings": {"3": "x", "11": {"de": "y"}},
        "functions": {"limit": {"1": "return"}, "scaling": {"2": ""}, "hiding": {"3": ""},
            "preRead": {"4": ""}, "preWrite": {"5": "", "1": ""}, "postRead": {"6": ""},
            "postWrite": {"65535": ""}})"));
    QVERIFY(firmware);
    QCOMPARE(firmware->maximumSystemStringNumber(), quint16(11));
    QCOMPARE(firmware->maximumLimitFunctionIndex(), quint16(1));
    QCOMPARE(firmware->maximumScalingFunctionIndex(), quint16(2));
    QCOMPARE(firmware->maximumHidingFunctionIndex(), quint16(3));
    QCOMPARE(firmware->maximumPrereadFunctionIndex(), quint16(4));
    QCOMPARE(firmware->maximumPrewriteFunctionIndex(), quint16(5));
    QCOMPARE(firmware->maximumPostreadFunctionIndex(), quint16(6));
    QCOMPARE(firmware->maximumPostwriteFunctionIndex(), quint16(65535));
}

void tst_ServoDriveFirmware::maximaWithoutTables()
{
    const auto firmware = load(description(R"("parameters": [])"));
    QVERIFY(firmware);
    QCOMPARE(firmware->maximumSystemStringNumber(), quint16(0));
    QCOMPARE(firmware->maximumLimitFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumScalingFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumHidingFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumPrereadFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumPrewriteFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumPostreadFunctionIndex(), quint16(0));
    QCOMPARE(firmware->maximumPostwriteFunctionIndex(), quint16(0));
}

void tst_ServoDriveFirmware::propertiesByDefault()
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

void tst_ServoDriveFirmware::propertiesComplete()
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

void tst_ServoDriveFirmware::propertiesAbsentAndSettable()
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

void tst_ServoDriveFirmware::unitForms()
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

void tst_ServoDriveFirmware::textForms()
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

void tst_ServoDriveFirmware::limitsAndDefaults_data()
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

void tst_ServoDriveFirmware::limitsAndDefaults()
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

void tst_ServoDriveFirmware::profiles()
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

void tst_ServoDriveFirmware::longChainOfProfiles()
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

void tst_ServoDriveFirmware::equalElementsShareOneInformation()
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

void tst_ServoDriveFirmware::largestRecord()
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

void tst_ServoDriveFirmware::warnings()
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

void tst_ServoDriveFirmware::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *rule, const QByteArray &json, const char *error) {
        QTest::newRow(rule) << json << QStringLiteral("d.json: ") + QString::fromUtf8(error);
    };
    const QByteArray element = R"("elements": [{"dataType": "INT8"}])";

    row("anchor of the system outside the system parameters",
        withParameter(R"("anchors": ["Drive.1;{P1}", "S;{P1}"], )" + element),
        "parameters[0].anchors: an anchor that begins with \"S\" is for system parameters only");
    row("anchor that merely begins with S",
        withParameter(R"("anchors": ["Servo.1;{P1}"], )" + element),
        "parameters[0].anchors: an anchor that begins with \"S\" is for system parameters only");
    row("empty file", "", "line 1, column 1: expected a value");
    row("no UTF-8", "\"\xff\"", "the file is not UTF-8");
    row("half a file", "{\n \"format\": \"kr",
        "line 2, column 15: expected '\"' at the end of the text");
    row("more than one value", "{} {}", "line 1, column 4: expected the end of the file");
    row("repeated key", R"({"a": 1, "a": 2})",
        "line 1, column 1: the object has the key \"a\" twice");
    row("comma at the end of a list", "[1,]", "line 1, column 4: expected a value");
    row("comma at the end of an object", R"({"a": 1,})",
        "line 1, column 9: expected a key in quotes");
    row("leading zero", "[01]", "line 1, column 3: expected ',' or ']'");
    row("half of a surrogate pair", R"(["\ud83d"])",
        "line 1, column 10: the text has half of a surrogate pair");
    row("unknown escape", R"(["\x"])", "line 1, column 4: unknown escape");
    row("line end in a text", "[\"\n\"]", "line 1, column 3: expected '\"' at the end of the text");
    row("nesting", QByteArray(1'000'000, '['), "line 1, column 33: nested deeper than 32 levels");
    row("no object", "[]", "expected an object");
    row("empty object", "{}", "format: is missing");
    row("another format", R"({"format": "x"})", "format: expected \"kr-device-description\"");
    row("another version", R"({"format": "kr-device-description", "version": 2})",
        "version: expected a whole number from 1 to 1");
    row("unknown key", description(R"("parameters": [], "parameter": [])"),
        "parameter: unknown key; known are format, version, family, languages, dataTypes, "
        "profiles, "
        "systemStrings, functions, parameters, systemParameters");
    row("unknown key that needs quotes", description(R"("parameters": [], "a b": 1)"),
        "[\"a b\"]: unknown key; known are format, version, family, languages, dataTypes, "
        "profiles, "
        "systemStrings, functions, parameters, systemParameters");

    row("number 0", description(R"("parameters": [{"number": 0}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number above 32 bits", description(R"("parameters": [{"number": 4294967296}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number with a fraction", description(R"("parameters": [{"number": 1.5}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number without end", description(R"("parameters": [{"number": 1e999999999}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("unknown key of a parameter", withParameter(R"("unit": 1, "elements": [])"),
        "parameters[0].unit: unknown key; known are number, identifier, version, name, "
        "nameCommonText, description, type, instances, global, physicalAxis, coordinates, anchors, "
        "elementCount, defaults, elements");
    row("parameter number twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(},
            {"number": 1, "name": "b", "coordinates": ["A02"], )"
            + element + "}]"),
        "parameters[1].number: another parameter has the number 1");
    row("coordinate twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(},
            {"number": 2, "name": "b", "coordinates": ["A1", "A02"], )"
            + element + "}]"),
        "parameters[1].coordinates[0]: A01 is the coordinate of the single-instance parameter P1");
    row("coordinate of a system parameter",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(}],
            "systemParameters": [
            {"number": 1, "name": "b", "coordinates": ["A01"], )"
            + element + "}]"),
        "systemParameters[0].coordinates[0]: A01 is the coordinate of the single-instance "
        "parameter "
        "P1");
    row("invalid coordinate",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01", "A1000"], )"
            + element + "}]"),
        "parameters[0].coordinates[1]: expected a coordinate: a letter from A to Z and one to "
        "three "
        "digits");
    row("coordinate of its own twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01", "A1"], )"
            + element + "}]"),
        "parameters[0].coordinates[1]: is listed twice");
    row("single-instance without coordinate",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": [], )"
            + element + "}]"),
        "parameters[0].coordinates: expected at least one coordinate for a single-instance "
        "parameter");
    row("multi-instance system parameter",
        description(R"("parameters": [], "systemParameters": [
            {"number": 1, "name": "a", "instances": "multi", "coordinates": ["A01"], )"
            + element + "}]"),
        "systemParameters[0].instances: expected \"single\" for a system parameter");
    row("empty identifier", withParameter(R"("identifier": "", )" + element),
        "parameters[0].identifier: expected a text that is not empty");
    row("type", withParameter(R"("type": "Record", )" + element),
        "parameters[0].type: expected \"simple\" or \"record\"");
    row("simple with two elements",
        withParameter(R"("elements": [{"dataType": "INT8"}, {"dataType": "INT8"}])"),
        "parameters[0].elements: expected exactly one element for a simple parameter");
    row("record without elements", withParameter(R"("type": "record", "elements": [])"),
        "parameters[0].elements: expected 1 to 16000 elements");
    row("element count 0", withParameter(R"("elementCount": 0, )" + element),
        "parameters[0].elementCount: expected a whole number from 1 to 16000");
    row("element count of a record",
        withParameter(R"("type": "record", "elementCount": 1, )" + element),
        "parameters[0].elementCount: is for simple parameters only");
    row("defaults of a record", withParameter(R"("type": "record", "defaults": [1], )" + element),
        "parameters[0].defaults: is for simple parameters only");
    row("more defaults than elements",
        withParameter(R"("elementCount": 2, "defaults": [1, 2, 3], )" + element),
        "parameters[0].defaults: expected at most 2 defaults, as many as elements");
    row("wrong default in the list",
        withParameter(R"("elementCount": 2, "defaults": [1, 128], )" + element),
        "parameters[0].defaults[1]: expected a whole number from -128 to 127");
    row("name of a simple element", withElement(R"("dataType": "INT8", "name": "x")"),
        "parameters[0].elements[0].name: is for elements of a record only");
    row("element number twice", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 5}, {"dataType": "INT8", "number": 5}])"),
        "parameters[0].elements[1].number: another element has the number 5");
    row("element number by position twice", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 1}, {"dataType": "INT8"}])"),
        "parameters[0].elements[1]: another element has the number 1");
    row("element number above 14 bits", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 16384}])"),
        "parameters[0].elements[0].number: expected a whole number from 0 to 16383");

    row("no data type", withElement(R"("kind": 1)"),
        "parameters[0].elements[0].dataType: is missing, in the element and in its profile");
    row("data type that is not listed", withElement(R"("dataType": "INT16")"),
        "parameters[0].elements[0].dataType: expected one of the description's data types INT8, "
        "UINT16, INT64, UINT64, REAL32, REAL64, STRING8, BYTES4, RAW");
    row("unknown key of an element", withElement(R"("dataType": "INT8", "datatype": 1)"),
        "parameters[0].elements[0].datatype: unknown key");
    row("unknown key of a group", withElement(R"("dataType": "INT8", "levels": {"red": 1})"),
        "parameters[0].elements[0].levels.red: unknown key");
    row("key of a group in the element", withElement(R"("dataType": "INT8", "read": 1)"),
        "parameters[0].elements[0].read: unknown key");
    row("kind 12", withElement(R"("dataType": "INT8", "kind": 12)"),
        "parameters[0].elements[0].kind: expected a whole number from 0 to 11");
    row("precision 1101", withElement(R"("dataType": "INT8", "decimals": {"behind": 1101})"),
        "parameters[0].elements[0].decimals.behind: expected a whole number from 0 to 1100");
    row("function index above 16 bits",
        withElement(R"("dataType": "INT8", "functions": {"limit": 65536})"),
        "parameters[0].elements[0].functions.limit: expected a whole number from 0 to 65535");
    row("dependency below 32 bits",
        withElement(R"("dataType": "INT8", "dependencies": {"limit": -2147483649})"),
        "parameters[0].elements[0].dependencies.limit: expected a whole number from -2147483648 to "
        "2147483647");
    row("factor that no float holds",
        withElement(R"("dataType": "INT8", "scaling": {"factor": 1e39})"),
        "parameters[0].elements[0].scaling.factor: expected a number that a 32-bit float holds");
    row("factor that becomes 0", withElement(R"("dataType": "INT8", "scaling": {"factor": 1e-60})"),
        "parameters[0].elements[0].scaling.factor: expected a number that a 32-bit float holds");
    row("choice key with a leading zero",
        withElement(R"("dataType": "INT8", "choices": {"01": "x"})"),
        "parameters[0].elements[0].choices.01: expected a key that is a whole number from "
        "-2147483648 to 2147483647");
    row("choice key above 32 bits",
        withElement(R"("dataType": "INT8", "choices": {"2147483648": "x"})"),
        "parameters[0].elements[0].choices.2147483648: expected a key that is a whole number from "
        "-2147483648 to 2147483647");
    row("language that is not listed",
        withElement(R"("dataType": "INT8", "choices": {"1": {"fr": "x"}})"),
        "parameters[0].elements[0].choices.1.fr: expected one of the languages de, en");
    row("text without short and long",
        withElement(R"("dataType": "INT8", "choices": {"1": {"de": {}}})"),
        "parameters[0].elements[0].choices.1.de.short: is missing");
    row("text without any language", withElement(R"("dataType": "INT8", "choices": {"1": {}})"),
        "parameters[0].elements[0].choices.1: expected a text for at least one language");
    row("absent data type", withElement(R"("dataType": "INT8", "absent": [16])"),
        "parameters[0].elements[0].absent: the data type (16) must not be absent");
    row("absent number that is no property",
        withElement(R"("dataType": "INT8", "absent": [11, 46])"),
        "parameters[0].elements[0].absent[1]: expected the number of an element property");
    row("settable number above the properties",
        withElement(R"("dataType": "INT8", "settable": [51])"),
        "parameters[0].elements[0].settable[0]: expected a whole number from 0 to 50");

    row("limit outside of the type",
        withElement(R"("dataType": "INT8", "limits": {"lower": -129})"),
        "parameters[0].elements[0].limits.lower: expected a whole number from -128 to 127");
    row("limit that is no number", withElement(R"("dataType": "INT8", "limits": {"upper": "5A"})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from -128 to 127");
    row("limit with a fraction", withElement(R"("dataType": "INT8", "limits": {"upper": 5.5})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from -128 to 127");
    row("limit that a double does not hold",
        withElement(R"("dataType": "UINT64", "limits": {"upper": 18446744073709551615})"),
        "parameters[0].elements[0].limits.upper: a double does not hold this number exactly; write "
        "it "
        "as the text \"18446744073709551615\"");
    row("limit above 64 bits",
        withElement(R"("dataType": "UINT64", "limits": {"upper": "18446744073709551616"})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from 0 to "
        "18446744073709551615");
    row("limits the wrong way round",
        withElement(R"("dataType": "INT8", "limits": {"lower": 6, "upper": 5})"),
        "parameters[0].elements[0].limits.lower: expected at most the upper limit 5");
    row("real limits the wrong way round",
        withElement(R"("dataType": "REAL64", "limits": {"lower": 0.2, "upper": "0.1"})"),
        "parameters[0].elements[0].limits.lower: expected at most the upper limit 0.1");
    row("real limit above the type",
        withElement(R"("dataType": "REAL32", "limits": {"lower": 1e39})"),
        "parameters[0].elements[0].limits.lower: expected a number of the data type REAL32");
    row("real limit that is no number",
        withElement(R"("dataType": "REAL64", "limits": {"lower": "nan"})"),
        "parameters[0].elements[0].limits.lower: expected a number of the data type REAL64");
    row("default outside of the type", withElement(R"("dataType": "UINT16", "default": -1)"),
        "parameters[0].elements[0].default: expected a whole number from 0 to 65535");
    row("default 2^53 + 1", withElement(R"("dataType": "INT64", "default": 9007199254740993)"),
        "parameters[0].elements[0].default: a double does not hold this number exactly; write it "
        "as "
        "the text \"9007199254740993\"");
    row("string default too long", withElement(R"("dataType": "STRING8", "default": "123456789")"),
        "parameters[0].elements[0].default: expected at most 8 Latin-1 characters");
    row("string default beyond Latin-1",
        withElement(R"("dataType": "STRING8", "default": "\u0100")"),
        "parameters[0].elements[0].default: expected at most 8 Latin-1 characters");
    row("string default that is a number", withElement(R"("dataType": "STRING8", "default": 5)"),
        "parameters[0].elements[0].default: expected a text");
    row("bytes default", withElement(R"("dataType": "BYTES4", "default": "0011223344")"),
        "parameters[0].elements[0].default: expected pairs of hexadecimal digits for at most 4 "
        "bytes");

    row("profile that names itself", description(R"("profiles": {"a": {"profile": "a"}})"),
        "profiles.a.profile: a profile must not depend on itself");
    row("profiles in a circle", description(R"("profiles": {"a": {"profile": "b"},
            "b": {"profile": "c"}, "c": {"profile": "b"}})"),
        "profiles.c.profile: a profile must not depend on itself");
    row("unknown profile of a profile", description(R"("profiles": {"a": {"profile": "b"}})"),
        "profiles.a.profile: expected the name of a profile");
    row("unknown profile", withElement(R"("profile": "b")"),
        "parameters[0].elements[0].profile: expected the name of a profile");
    row("name of a profile", description(R"("profiles": {"a": {"name": "n"}})"),
        "profiles.a.name: is for elements of a record only");
    row("number of a profile", description(R"("profiles": {"a": {"number": 1}})"),
        "profiles.a.number: is for elements of a record only");
    row("profile that no element uses", description(R"("profiles": {"a": {"kind": 12}})"),
        "profiles.a.kind: expected a whole number from 0 to 11");
    row("limit of a profile outside of the element's type",
        description(R"("profiles": {"a": {"limits": {"lower": -1}}}, "parameters": [{"number": 1,
            "name": "a", "coordinates": ["A01"], "elements": [{"profile": "a", "dataType": "UINT16"}]}])"),
        "profiles.a.limits.lower: expected a whole number from 0 to 65535");

    row("function index 0", description(R"("functions": {"limit": {"0": ""}})"),
        "functions.limit.0: expected a key that is a whole number from 1 to 65535");
    row("function index above 16 bits", description(R"("functions": {"limit": {"65536": ""}})"),
        "functions.limit.65536: expected a key that is a whole number from 1 to 65535");
    row("function that is no text", description(R"("functions": {"limit": {"1": 5}})"),
        "functions.limit.1: expected a text or a list of lines");
    row("line of a function that is no text",
        description(R"("functions": {"limit": {"1": ["return 1", 5]}})"),
        "functions.limit.1[1]: expected a text");
    row("function that is no program", description(R"("functions": {"hiding": {"7": "return ="}})"),
        "functions.hiding.7: line 1: unexpected symbol near '='");
    row("unknown kind of function", description(R"("functions": {"limits": {}})"),
        "functions.limits: unknown key; known are limit, scaling, hiding, preRead, preWrite, "
        "postRead, "
        "postWrite");
    row("system string 0", description(R"("systemStrings": {"0": ""})"),
        "systemStrings.0: expected a key that is a whole number from 1 to 65535");
}

void tst_ServoDriveFirmware::refused()
{
    QFETCH(QByteArray, json);
    QTEST(errorOf(json), "error");
}

void tst_ServoDriveFirmware::largestFile()
{
    constexpr qsizetype MostBytes = 67108864;
    const QString tooLarge = QStringLiteral("the file is larger than 67108864 bytes");
    QByteArray json = description(R"("parameters": [])");
    json.append(MostBytes - json.size(), ' ');
    QVERIFY(load(json));
    QCOMPARE(errorOf(json + ' '), QStringLiteral("d.json: ") + tooLarge);

    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("large.json"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(MostBytes + 1));
    DescriptionError error;
    QVERIFY(!ServoDriveFirmware::loadFromFile(name, &error));
    QCOMPARE(error.reason, tooLarge);
}

/// The list is a value itself.
void tst_ServoDriveFirmware::mostValues()
{
    const QByteArray largest = '[' + QByteArray("null,").repeated(3999998) + "null]";
    QCOMPARE(errorOf(largest), QStringLiteral("d.json: expected an object"));
    QCOMPARE(errorOf("[null," + largest.mid(1)),
        QStringLiteral("d.json: line 1, column 19999997: more than 4000000 values"));
}

void tst_ServoDriveFirmware::familyThatContradicts()
{
    const auto withFamily = [](const QByteArray &family) {
        return R"({"format": "kr-device-description", "version": 1, "family": )" + family
            + R"(, "languages": ["en"], "dataTypes": [], "parameters": []})";
    };
    QVERIFY(load(
        withFamily(R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": true, "axes": [1]})")));
    QVERIFY(load(withFamily(
        R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": true, "axes": [1, 2]})")));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 5001, "name": "%1", "hasPhysicalAxes": true, "axes": [1]})")),
        QStringLiteral("d.json: family.name: the family 5001 is known already as \"a\", not as "
                       "\"%1\""));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": false, "axes": [1]})")),
        QStringLiteral("d.json: family.hasPhysicalAxes: the family 5001 is known already, with "
                       "another value"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 0, "name": "a", "hasPhysicalAxes": false, "axes": [1]})")),
        QStringLiteral("d.json: family.identifier: expected a whole number from 1 to 4294967295"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": []})")),
        QStringLiteral("d.json: family.axes: expected at least one axis"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": [2, 1]})")),
        QStringLiteral("d.json: family.axes[1]: expected axes in ascending order"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": [5]})")),
        QStringLiteral("d.json: family.axes[0]: expected a whole number from 1 to 4"));
}

void tst_ServoDriveFirmware::languagesAndDataTypes()
{
    const auto withLists = [](const QByteArray &languages, const QByteArray &dataTypes) {
        return R"({"format": "kr-device-description", "version": 1, "family": {"identifier": 5003,
            "name": "a", "hasPhysicalAxes": true, "axes": [1]}, "languages": )"
            + languages + R"(, "dataTypes": )" + dataTypes + R"(, "parameters": []})";
    };
    QByteArray most = "\"l1\"";
    for (int i = 2; i <= 32; ++i)
        most += ", \"l" + QByteArray::number(i) + '"';
    QVERIFY(load(withLists('[' + most + ']', "[]")));
    QCOMPARE(errorOf(withLists('[' + most + ", \"l33\"]", "[]")),
        QStringLiteral("d.json: languages: expected 1 to 32 languages"));
    QCOMPARE(errorOf(withLists("[]", "[]")),
        QStringLiteral("d.json: languages: expected 1 to 32 languages"));
    QCOMPARE(errorOf(withLists(R"(["de", "de"])", "[]")),
        QStringLiteral("d.json: languages[1]: is listed twice"));
    QCOMPARE(errorOf(withLists(R"(["de", ""])", "[]")),
        QStringLiteral("d.json: languages[1]: expected a text that is not empty"));
    QCOMPARE(errorOf(withLists(R"(["de"])", R"(["INT8", "INT8"])")),
        QStringLiteral("d.json: dataTypes[1]: is listed twice"));
    QCOMPARE(errorOf(withLists(R"(["de"])", R"(["INT8", "int8"])")),
        QStringLiteral("d.json: dataTypes[1]: expected the short name of a data type, such as "
                       "\"UINT16\""));
}

void tst_ServoDriveFirmware::nothingIsRegisteredWhenRefused()
{
    QCOMPARE(errorOf(R"({"format": "kr-device-description", "version": 1,
        "family": {"identifier": 5002, "name": "a", "hasPhysicalAxes": true, "axes": [1]},
        "languages": ["en"], "dataTypes": [], "parameters": [0]})"),
        QStringLiteral("d.json: parameters[0]: expected an object"));
    QVERIFY(!HardwareRepository::instance().deviceFamily(5002));
}

void tst_ServoDriveFirmware::fileThatIsNotThere()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("none.json"));
    DescriptionError error;
    QVERIFY(!ServoDriveFirmware::loadFromFile(name, &error));
    QCOMPARE(error.file, name);
    QCOMPARE(error.path, QString());
    QVERIFY(error.isSet());
    QVERIFY(!ServoDriveFirmware::loadFromFile(folder.path(), &error));
    QVERIFY(error.isSet());
}

void tst_ServoDriveFirmware::errorMayBeNull()
{
    QVERIFY(!ServoDriveFirmware::loadFromBytes("{}", QString(), nullptr));
    QVERIFY(!ServoDriveFirmware::loadFromFile(QString(), nullptr));
}

QTEST_APPLESS_MAIN(tst_ServoDriveFirmware)
#include "tst_ServoDriveFirmware.moc"
