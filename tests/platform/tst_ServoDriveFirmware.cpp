#include "DescriptionText.h"

#include <KrProjectRepository/HardwareRepository.h>

#include <QtTest/QtTest>

using enum eParameterProperty;

/// What a description says of the device and of its parameters.
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

QTEST_APPLESS_MAIN(tst_ServoDriveFirmware)

#include "tst_ServoDriveFirmware.moc"
