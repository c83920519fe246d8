#include "apps/host/DriveProject.h"

#include <KrFilter/Filter.h>
#include <KrFilter/FilterElement.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <limits>

/// What a filter hears of a shipped drive that was loaded: every property by its name, in four
/// conversions.
class tst_SnapshotFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void property_data();
    void property();
    void idOfEachName_data();
    void idOfEachName();
    void everyNameIsAsked();
    void maskedAtTheLevelOfTheUser_data();
    void maskedAtTheLevelOfTheUser();
    void unknownNames_data();
    void unknownNames();

private:
    std::unique_ptr<DriveProject> m_project;
};

namespace {

struct Row {
    const char *address;
    const char *name;
    const char *text;
    quint32 unsignedNumber;
    qint32 signedNumber;
    double real;
};

/// The element 2.H05[2] holds 123.5 in the unit of axis 2; its levels were changed.
constexpr Row Rows[] = {
    {"2.H005[00002]", "PrereadFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PrewriteFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PostwriteFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PostreadFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "HidingFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "ReadLevel", "3", 3U, 3, 3.0},
    {"2.H005[00002]", "WriteLevel", "4", 4U, 4, 4.0},
    {"2.H005[00002]", "LimitFunctionIndex", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "LowerLimitValue", "-2147483648", 0U, std::numeric_limits<qint32>::min(),
        -2147483648.0},
    {"2.H005[00002]", "UpperLimitValue", "2147483647", 2147483647U, 2147483647, 2147483647.0},
    {"2.H005[00002]", "MemoryAllocation", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "ParameterKind", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "EnableOffRequired", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "ProcessDataMappable", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "AutomaticOnlineUpdate", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "NoWrite", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "Datatype", "3", 3U, 3, 3.0},
    {"2.H005[00002]", "ChoiceMap", "", 0U, 0, 0.0},
    {"2.H005[00002]", "ScaledMeasuringUnit", "<localAxis:E12>", 0U, 0, 0.0},
    {"2.H005[00002]", "NativeMeasuringUnit", "Inkremente", 0U, 0, 0.0},
    {"2.H005[00002]", "ScalingFactor", "0.001", 0U, 0, 0.0010000000474974513},
    {"2.H005[00002]", "ScalingFunctionIndex", "1", 1U, 1, 1.0},
    {"2.H005[00002]", "FullScaleValue", "", 0U, 0, 0.0},
    {"2.H005[00002]", "DecimalPlacesBehind", "3", 3U, 3, 3.0},
    {"2.H005[00002]", "DecimalPlacesSignificant", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "EditStartStepSize", "", 0U, 0, 0.0},
    {"2.H005[00002]", "FieldbusMeasuringUnit", "<localAxis:E12>", 0U, 0, 0.0},
    {"2.H005[00002]", "FieldbusScalingFactor", "0.001", 0U, 0, 0.0010000000474974513},
    {"2.H005[00002]", "FieldbusDecimalPlacesBehind", "3", 3U, 3, 3.0},
    {"2.H005[00002]", "AdditionalReadTimeout", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "AdditionalWriteTimeout", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "CyclicOnlineUpdateRate", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "LimitDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "ScalingDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PostwriteDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PrereadDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PostreadDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "PrewriteDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "HidingDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "MeasuringUnitDependency", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "IsScopeChoice", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "ChoiceMapCommonTextIndex", "", 0U, 0, 0.0},
    {"2.H005[00002]", "ScaledMeasuringUnitCommonTextIndex", "", 0U, 0, 0.0},
    {"2.H005[00002]", "NativeMeasuringUnitCommonTextIndex", "", 0U, 0, 0.0},
    {"2.H005[00002]", "FieldbusMeasuringUnitCommonTextIndex", "", 0U, 0, 0.0},
    {"2.H005[00002]", "OnlineOrder", "8", 8U, 8, 8.0},
    {"2.H005[00002]", "IsSimpleParameter", "0", 0U, 0, 0.0},
    {"2.H005[00002]", "IsRecordParameter", "1", 1U, 1, 1.0},
    {"2.H005[00002]", "LivingSpace", "1;2", 0U, 0, 0.0},
    {"2.H005[00002]", "Coordinate", "H05", 0U, 0, 0.0},
    {"2.H005[00002]", "Address", "2.H005[00002]", 0U, 0, 0.0},
    {"2.H005[00002]", "Name", "Software-Endschalter", 0U, 0, 0.0},
    {"2.H005[00002]", "ElementCount", "2", 2U, 2, 2.0},
    {"2.H005[00002]", "ElementName", "Obere Grenze", 0U, 0, 0.0},
    {"2.H005[00002]", "ValueNative", "123500", 123500U, 123500, 123500.0},
    {"2.H005[00002]", "ValueScaled", "123.500", 0U, 0, 123.5},
    {"2.H005[00002]", "DefaultvalueNative", "500000", 500000U, 500000, 500000.0},
    {"2.H005[00002]", "DefaultvalueScaled", "500.000", 0U, 0, 500.0},
    {"2.H005[00002]", "ChangeTagValue", "da_2026", 0U, 0, 0.0},
    {"2.H005[00002]", "ChangeTagDefaultValue", "fw_default", 0U, 0, 0.0},
    {"2.H005[00002]", "ChangeTagReadLevel", "da_level", 0U, 0, 0.0},
    {"2.H005[00002]", "ChangeTagWriteLevel", "2026", 2026U, 2026, 2026.0},
    // The levels are those of the element on every axis, the other tags are not.
    {"1.H005[00002]", "ReadLevel", "3", 3U, 3, 3.0},
    {"1.H005[00002]", "WriteLevel", "4", 4U, 4, 4.0},
    {"1.H005[00002]", "ChangeTagReadLevel", "da_level", 0U, 0, 0.0},
    {"1.H005[00002]", "ChangeTagWriteLevel", "2026", 2026U, 2026, 2026.0},
    {"1.H005[00002]", "ChangeTagValue", "", 0U, 0, 0.0},
    {"1.H005[00002]", "ChangeTagDefaultValue", "", 0U, 0, 0.0},
    {"2.H005[00001]", "ReadLevel", "0", 0U, 0, 0.0},
    {"2.H005[00001]", "WriteLevel", "2", 2U, 2, 2.0},
    {"2.H005[00001]", "ChangeTagReadLevel", "", 0U, 0, 0.0},
    {"2.H005[00001]", "ChangeTagWriteLevel", "", 0U, 0, 0.0},
    {"2.H005[00001]", "ChangeTagValue", "", 0U, 0, 0.0},
    // A global parameter answers as on axis 1.
    {"1.M006[00000]", "Address", "1.M006[00000]", 0U, 0, 0.0},
    {"1.M006[00000]", "LivingSpace", "0", 0U, 0, 0.0},
    {"1.M006[00000]", "ValueNative", "125", 125U, 125, 125.0},
    {"1.M006[00000]", "ValueScaled", "12.5", 0U, 0, 12.5},
    {"1.M006[00000]", "DefaultvalueNative", "0", 0U, 0, 0.0},
    {"1.M006[00000]", "DefaultvalueScaled", "0.0", 0U, 0, 0.0},
    {"1.M006[00000]", "ChangeTagValue", "7", 7U, 7, 7.0},
    // Offline, what only the drive writes is masked as display text alone.
    {"2.D014[00000]", "WriteLevel", "6", 6U, 6, 6.0},
    {"2.D014[00000]", "ValueScaled", "<offline>", 0U, 0, 0.0},
    {"2.D014[00000]", "ValueNative", "2500", 2500U, 2500, 2500.0},
    {"2.D014[00000]", "DefaultvalueScaled", "0.000", 0U, 0, 0.0},
    {"2.D014[00000]", "DefaultvalueNative", "0", 0U, 0, 0.0},
    {"1.M004[00001]", "PrereadFunctionIndex", "1", 1U, 1, 1.0},
    {"1.H001[00000]", "PrewriteFunctionIndex", "1", 1U, 1, 1.0},
    {"1.E011[00000]", "PostwriteFunctionIndex", "1", 1U, 1, 1.0},
    {"1.C004[00000]", "PostreadFunctionIndex", "1", 1U, 1, 1.0},
    {"1.D020[00000]", "HidingFunctionIndex", "2", 2U, 2, 2.0},
    {"1.H000[00000]", "LimitFunctionIndex", "1", 1U, 1, 1.0},
    {"1.B001[00000]", "LimitDependency", "1", 1U, 1, 1.0},
    {"1.E011[00000]", "ScalingDependency", "1", 1U, 1, 1.0},
    {"1.E011[00000]", "PostwriteDependency", "1", 1U, 1, 1.0},
    {"1.C004[00000]", "PostreadDependency", "1", 1U, 1, 1.0},
    {"1.B001[00000]", "PrewriteDependency", "1", 1U, 1, 1.0},
    {"1.E010[00000]", "HidingDependency", "2", 2U, 2, 2.0},
    {"1.E012[00000]", "MeasuringUnitDependency", "1", 1U, 1, 1.0},
    {"1.H000[00000]", "EditStartStepSize", "100", 100U, 100, 100.0},
    {"1.N007[00000]", "CyclicOnlineUpdateRate", "1000", 1000U, 1000, 1000.0},
    {"1.D022[00000]", "FullScaleValue", "16384", 16384U, 16384, 16384.0},
    {"1.A031[00000]", "AdditionalWriteTimeout", "3000", 3000U, 3000, 3000.0},
    {"1.B030[00000]", "IsScopeChoice", "1", 1U, 1, 1.0},
    {"1.B029[00000]", "NoWrite", "1", 1U, 1, 1.0},
    {"1.D010[00000]", "AutomaticOnlineUpdate", "1", 1U, 1, 1.0},
    {"1.C025[00000]", "MemoryAllocation", "1", 1U, 1, 1.0},
    {"1.B016[00000]", "ParameterKind", "1", 1U, 1, 1.0},
    {"1.B016[00000]", "EnableOffRequired", "1", 1U, 1, 1.0},
    {"1.B016[00000]", "IsSimpleParameter", "1", 1U, 1, 1.0},
    {"1.B016[00000]", "DefaultvalueScaled", "0: Rechtsdrehend positiv", 0U, 0, 0.0},
    {"1.A020[00000]", "LivingSpace", "0", 0U, 0, 0.0},
};

constexpr char EveryProperty[] = R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 77, "name": "Drive", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"], "dataTypes": ["UINT16"],
  "parameters": [{"number": 1, "coordinates": ["A12"], "name": "Text", "global": true,
    "elements": [{"dataType": "UINT16", "kind": 11, "default": 108,
      "choices": {"108": "Text"},
      "functions": {"preRead": 100, "preWrite": 101, "postWrite": 102, "postRead": 103,
        "hiding": 104, "limit": 107, "scaling": 121},
      "levels": {"read": 105, "write": 106}, "limits": {"lower": 108, "upper": 109},
      "memoryAllocation": 110, "enableOffRequired": 112, "processDataMappable": 113,
      "automaticOnlineUpdate": 114, "noWrite": 115,
      "units": {"scaled": "118", "native": "119", "fieldbus": "126"},
      "scaling": {"factor": 0.5, "fullScale": 122},
      "decimals": {"behind": 123, "significant": 124}, "editStartStepSize": 125,
      "fieldbus": {"factor": 0.25, "decimals": 128}, "timeouts": {"read": 129, "write": 130},
      "cyclicOnlineUpdateRate": 131,
      "dependencies": {"limit": 132, "scaling": 133, "postWrite": 134, "preRead": 135,
        "postRead": 136, "preWrite": 137, "hiding": 138, "measuringUnit": 139},
      "scopeChoice": 140, "onlineOrder": 145,
      "commonTexts": {"choices": [141], "scaledUnit": 142, "nativeUnit": 143, "fieldbusUnit": 144}
    }]}]
})";

/// Asks one element for one property.
class Question final : public Filter {
public:
    Question(const QString &address, const QString &name)
        : m_address(address)
        , m_name(name)
    {
    }

    bool testElement(const FilterElement &element) const override
    {
        if (element.stringProperty(QStringLiteral("Address")) != m_address)
            return false;
        ++askedCount;
        text = element.stringProperty(m_name);
        unsignedNumber = element.uint32Property(m_name);
        signedNumber = element.int32Property(m_name);
        real = element.doubleProperty(m_name);
        return true;
    }

    mutable int askedCount = 0;
    mutable QString text;
    mutable quint32 unsignedNumber = 0;
    mutable qint32 signedNumber = 0;
    mutable double real = 0.0;

private:
    QString m_address;
    QString m_name;
};

/// What a save has to hold, so that a load is what the test is about.
constexpr const char *SavedKeys[] = {"V_2_2=123500", "VC_2_2=da_2026", "DVC_2_2=fw_default",
    "P_2_5=3", "PC_2_5=da_level", "P_2_6=4", "PC_2_6=2026", "V_0_0=125", "VC_0_0=7", "V_2_0=2500"};

/// Changes values, levels and their tags.
void change(ParameterContainer &container)
{
    const auto setup = [&container](const char *coordinate) {
        return container.parameterSetup(ParameterCoordinate(QString::fromLatin1(coordinate)));
    };
    container.setParameterChangeTag(QStringLiteral("da_level"));
    setup("H05")->setProperty(2, eParameterProperty::ReadLevel, ParameterProperty(3));
    container.setParameterChangeTag(QStringLiteral("2026"));
    setup("H05")->setProperty(2, eParameterProperty::WriteLevel, ParameterProperty(4));
    container.setParameterChangeTag(QString());
    setup("H05")->setNativeValue(eLivingSpace::Axis2, 2, QStringLiteral("123.5"));
    setup("H05")->setValueChangeTag(eLivingSpace::Axis2, 2, QStringLiteral("da_2026"));
    setup("H05")->setDefaultValueChangeTag(eLivingSpace::Axis2, 2, QStringLiteral("fw_default"));
    setup("M06")->setNativeValue(eLivingSpace::Global, 0, QStringLiteral("12.5"));
    setup("M06")->setValueChangeTag(eLivingSpace::Global, 0, QStringLiteral("7"));
    setup("D14")->setNativeValue(eLivingSpace::Axis2, 0, QStringLiteral("2.5"));
}

} // namespace

void tst_SnapshotFilter::initTestCase()
{
    QString error;
    m_project = DriveProject::open(QFINDTESTDATA("../../devices/two-axis-drive.json"), error);
    QVERIFY2(m_project, qPrintable(error));
    QMap<QString, QByteArray> blocks;
    const auto saved = m_project->fresh();
    change(saved->container());
    saved->container().saveTo(blocks);
    for (const QByteArray key : SavedKeys) {
        QVERIFY2(blocks.value(QStringLiteral("Parameter.ini")).contains("\r\n" + key + "\r\n"),
            key.constData());
    }
    QVERIFY(m_project->container().loadFrom(blocks));
}

void tst_SnapshotFilter::cleanup()
{
    System::information()->setUserAccessLevel(0);
}

void tst_SnapshotFilter::property_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < std::size(Rows); ++i)
        QTest::addRow("%s of %s", Rows[i].name, Rows[i].address) << int(i);
}

void tst_SnapshotFilter::property()
{
    QFETCH(int, index);
    const Row &row = Rows[index];
    const Question question(QString::fromLatin1(row.address), QString::fromLatin1(row.name));
    ParameterValueSnapshot snapshot(&m_project->container());
    snapshot.apply(question);
    QCOMPARE(question.askedCount, 1);
    QCOMPARE(question.text, QString::fromUtf8(row.text));
    QCOMPARE(question.unsignedNumber, row.unsignedNumber);
    QCOMPARE(question.signedNumber, row.signedNumber);
    QCOMPARE(question.real, row.real);
}

/// The shipped drives answer many names alike, so that one that asks for its neighbour's property
/// would not show. Here every property has a value of its own, mostly its number and 100. Units are
/// texts in languages and the choices' common texts a list: neither is a number.
void tst_SnapshotFilter::idOfEachName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("whole");
    QTest::addColumn<double>("real");
    const auto row = [](const char *name, const char *text, quint32 whole, double real) {
        QTest::newRow(name) << QString::fromLatin1(text) << whole << real;
    };
    row("PrereadFunctionIndex", "100", 100U, 100.0);
    row("PrewriteFunctionIndex", "101", 101U, 101.0);
    row("PostwriteFunctionIndex", "102", 102U, 102.0);
    row("PostreadFunctionIndex", "103", 103U, 103.0);
    row("HidingFunctionIndex", "104", 104U, 104.0);
    row("ReadLevel", "105", 105U, 105.0);
    row("WriteLevel", "106", 106U, 106.0);
    row("LimitFunctionIndex", "107", 107U, 107.0);
    row("LowerLimitValue", "108", 108U, 108.0);
    row("UpperLimitValue", "109", 109U, 109.0);
    row("MemoryAllocation", "110", 110U, 110.0);
    row("ParameterKind", "11", 11U, 11.0);
    row("EnableOffRequired", "112", 112U, 112.0);
    row("ProcessDataMappable", "113", 113U, 113.0);
    row("AutomaticOnlineUpdate", "114", 114U, 114.0);
    row("NoWrite", "115", 115U, 115.0);
    row("Datatype", "6", 6U, 6.0);
    row("ChoiceMap", "117", 117U, 117.0);
    row("ScaledMeasuringUnit", "118", 0U, 0.0);
    row("NativeMeasuringUnit", "119", 0U, 0.0);
    row("ScalingFactor", "0.5", 0U, 0.5);
    row("ScalingFunctionIndex", "121", 121U, 121.0);
    row("FullScaleValue", "122", 122U, 122.0);
    row("DecimalPlacesBehind", "123", 123U, 123.0);
    row("DecimalPlacesSignificant", "124", 124U, 124.0);
    row("EditStartStepSize", "125", 125U, 125.0);
    row("FieldbusMeasuringUnit", "126", 0U, 0.0);
    row("FieldbusScalingFactor", "0.25", 0U, 0.25);
    row("FieldbusDecimalPlacesBehind", "128", 128U, 128.0);
    row("AdditionalReadTimeout", "129", 129U, 129.0);
    row("AdditionalWriteTimeout", "130", 130U, 130.0);
    row("CyclicOnlineUpdateRate", "131", 131U, 131.0);
    row("LimitDependency", "132", 132U, 132.0);
    row("ScalingDependency", "133", 133U, 133.0);
    row("PostwriteDependency", "134", 134U, 134.0);
    row("PrereadDependency", "135", 135U, 135.0);
    row("PostreadDependency", "136", 136U, 136.0);
    row("PrewriteDependency", "137", 137U, 137.0);
    row("HidingDependency", "138", 138U, 138.0);
    row("MeasuringUnitDependency", "139", 139U, 139.0);
    row("IsScopeChoice", "140", 140U, 140.0);
    row("ChoiceMapCommonTextIndex", "141", 0U, 0.0);
    row("ScaledMeasuringUnitCommonTextIndex", "142", 142U, 142.0);
    row("NativeMeasuringUnitCommonTextIndex", "143", 143U, 143.0);
    row("FieldbusMeasuringUnitCommonTextIndex", "144", 144U, 144.0);
    row("OnlineOrder", "145", 145U, 145.0);
}

void tst_SnapshotFilter::idOfEachName()
{
    QFETCH(quint32, whole);
    const QTemporaryDir folder;
    QFile description(folder.filePath(QStringLiteral("device.json")));
    QVERIFY(description.open(QIODevice::WriteOnly));
    description.write(EveryProperty);
    description.close();
    QString error;
    const auto project = DriveProject::open(description.fileName(), error);
    QVERIFY2(project, qPrintable(error));
    // The map of a description has no text.
    project->container()
        .parameterSetup(ParameterCoordinate(QStringLiteral("A12")))
        ->setProperty(0, eParameterProperty::ChoiceMap, ParameterProperty(117));
    const Question question(
        QStringLiteral("1.A012[00000]"), QString::fromLatin1(QTest::currentDataTag()));
    ParameterValueSnapshot snapshot(&project->container());
    snapshot.apply(question);
    QCOMPARE(question.askedCount, 1);
    QTEST(question.text, "text");
    QCOMPARE(question.unsignedNumber, whole);
    QCOMPARE(question.signedNumber, qint32(whole));
    QTEST(question.real, "real");
}

void tst_SnapshotFilter::everyNameIsAsked()
{
    QStringList names;
    for (const Row &row : Rows) {
        if (!names.contains(QString::fromLatin1(row.name)))
            names.append(QString::fromLatin1(row.name));
    }
    QCOMPARE(names.size(), 62);
    QCOMPARE(ParameterValueSnapshot::filterPropertyNames(), names);
}

void tst_SnapshotFilter::maskedAtTheLevelOfTheUser_data()
{
    QTest::addColumn<quint32>("accessLevel");
    QTest::addColumn<QString>("scaled");
    QTest::newRow("operator") << 0U << QStringLiteral("<offline>");
    QTest::newRow("level 4") << 4U << QStringLiteral("<offline>");
    QTest::newRow("level 5 sees both") << 5U << QStringLiteral("<offline> (2.500)");
    QTest::newRow("level 6") << 6U << QStringLiteral("<offline>");
}

/// A filter hears what the user would see of the value; of the default it hears the text itself.
void tst_SnapshotFilter::maskedAtTheLevelOfTheUser()
{
    QFETCH(quint32, accessLevel);
    QFETCH(QString, scaled);
    System::information()->setUserAccessLevel(accessLevel);
    ParameterValueSnapshot snapshot(&m_project->container());
    const auto answer = [&snapshot](const char *name) {
        const Question question(QStringLiteral("2.D014[00000]"), QString::fromLatin1(name));
        snapshot.apply(question);
        return question.text;
    };
    QCOMPARE(answer("ValueScaled"), scaled);
    QCOMPARE(answer("ValueNative"), QStringLiteral("2500"));
    QCOMPARE(answer("DefaultvalueScaled"), QStringLiteral("0.000"));
}

void tst_SnapshotFilter::unknownNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << QStringLiteral("Colour");
    QTest::newRow("empty") << QString();
    QTest::newRow("differs in case") << QStringLiteral("valuenative");
}

void tst_SnapshotFilter::unknownNames()
{
    QFETCH(QString, name);
    const Question question(QStringLiteral("2.H005[00002]"), name);
    ParameterValueSnapshot snapshot(&m_project->container());
    snapshot.apply(question);
    QCOMPARE(question.text, QStringLiteral("H05"));
    QCOMPARE(question.unsignedNumber, 0U);
    QCOMPARE(question.signedNumber, 0);
    QCOMPARE(question.real, 0.0);
}

QTEST_GUILESS_MAIN(tst_SnapshotFilter)
#include "tst_SnapshotFilter.moc"
