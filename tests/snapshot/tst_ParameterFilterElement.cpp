#include "snapshot/ParameterFilterElement.h"

#include "tests/snapshot/FakeParameterInformation.h"

#include <QtTest/QTest>

#include <limits>
#include <memory>
#include <utility>

/// What an element answers for each property. A looked-up property answers 1000 and its number.
class tst_ParameterFilterElement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void property_data();
    void property();
    void unknownNameAnswersLikeCoordinate_data();
    void unknownNameAnswersLikeCoordinate();
    void livingSpaceListsAllSpacesOfTheParameter_data();
    void livingSpaceListsAllSpacesOfTheParameter();
    void negativeNumbers();
    void numbersOfComputedTexts_data();
    void numbersOfComputedTexts();
    void notFiniteIsZero_data();
    void notFiniteIsZero();
    void emptyWithoutInformation_data();
    void emptyWithoutInformation();
    void informationGoesWhileItIsAsked();
    void everyQuestionNamesThePlace();

private:
    std::unique_ptr<FakeParameterInformation> m_information;
    ParameterFilterElement m_element;
};

namespace {

constexpr eLivingSpace Space = eLivingSpace::Axis2;
constexpr quint16 Element = 3;

struct Row {
    const char *name;
    const char *text;
    quint32 unsignedNumber;
    qint32 signedNumber;
    double realNumber;
};

constexpr Row Rows[] = {
    {"PrereadFunctionIndex", "1000", 1000U, 1000, 1000.0},
    {"PrewriteFunctionIndex", "1001", 1001U, 1001, 1001.0},
    {"PostwriteFunctionIndex", "1002", 1002U, 1002, 1002.0},
    {"PostreadFunctionIndex", "1003", 1003U, 1003, 1003.0},
    {"HidingFunctionIndex", "1004", 1004U, 1004, 1004.0},
    {"ReadLevel", "1005", 1005U, 1005, 1005.0},
    {"WriteLevel", "1006", 1006U, 1006, 1006.0},
    {"LimitFunctionIndex", "1007", 1007U, 1007, 1007.0},
    {"LowerLimitValue", "1008", 1008U, 1008, 1008.0},
    {"UpperLimitValue", "1009", 1009U, 1009, 1009.0},
    {"MemoryAllocation", "1010", 1010U, 1010, 1010.0},
    {"ParameterKind", "1011", 1011U, 1011, 1011.0},
    {"EnableOffRequired", "1012", 1012U, 1012, 1012.0},
    {"ProcessDataMappable", "1013", 1013U, 1013, 1013.0},
    {"AutomaticOnlineUpdate", "1014", 1014U, 1014, 1014.0},
    {"NoWrite", "1015", 1015U, 1015, 1015.0},
    {"Datatype", "1016", 1016U, 1016, 1016.0},
    {"ChoiceMap", "1017", 1017U, 1017, 1017.0},
    {"ScaledMeasuringUnit", "1018", 1018U, 1018, 1018.0},
    {"NativeMeasuringUnit", "1019", 1019U, 1019, 1019.0},
    {"ScalingFactor", "1020", 1020U, 1020, 1020.0},
    {"ScalingFunctionIndex", "1021", 1021U, 1021, 1021.0},
    {"FullScaleValue", "1022", 1022U, 1022, 1022.0},
    {"DecimalPlacesBehind", "1023", 1023U, 1023, 1023.0},
    {"DecimalPlacesSignificant", "1024", 1024U, 1024, 1024.0},
    {"EditStartStepSize", "1025", 1025U, 1025, 1025.0},
    {"FieldbusMeasuringUnit", "1026", 1026U, 1026, 1026.0},
    {"FieldbusScalingFactor", "1027", 1027U, 1027, 1027.0},
    {"FieldbusDecimalPlacesBehind", "1028", 1028U, 1028, 1028.0},
    {"AdditionalReadTimeout", "1029", 1029U, 1029, 1029.0},
    {"AdditionalWriteTimeout", "1030", 1030U, 1030, 1030.0},
    {"CyclicOnlineUpdateRate", "1031", 1031U, 1031, 1031.0},
    {"LimitDependency", "1032", 1032U, 1032, 1032.0},
    {"ScalingDependency", "1033", 1033U, 1033, 1033.0},
    {"PostwriteDependency", "1034", 1034U, 1034, 1034.0},
    {"PrereadDependency", "1035", 1035U, 1035, 1035.0},
    {"PostreadDependency", "1036", 1036U, 1036, 1036.0},
    {"PrewriteDependency", "1037", 1037U, 1037, 1037.0},
    {"HidingDependency", "1038", 1038U, 1038, 1038.0},
    {"MeasuringUnitDependency", "1039", 1039U, 1039, 1039.0},
    {"IsScopeChoice", "1040", 1040U, 1040, 1040.0},
    {"ChoiceMapCommonTextIndex", "1041", 1041U, 1041, 1041.0},
    {"ScaledMeasuringUnitCommonTextIndex", "1042", 1042U, 1042, 1042.0},
    {"NativeMeasuringUnitCommonTextIndex", "1043", 1043U, 1043, 1043.0},
    {"FieldbusMeasuringUnitCommonTextIndex", "1044", 1044U, 1044, 1044.0},
    {"OnlineOrder", "1045", 1045U, 1045, 1045.0},
    {"IsSimpleParameter", "1100", 1100U, 1100, 1100.0},
    {"IsRecordParameter", "1101", 1101U, 1101, 1101.0},
    {"LivingSpace", "0;1", 0U, 0, 0.0},
    {"Coordinate", "1103", 1103U, 1103, 1103.0},
    {"Address", "2.A012[00003]", 0U, 0, 0.0},
    {"Name", "1105", 1105U, 1105, 1105.0},
    {"ElementCount", "1106", 1106U, 1106, 1106.0},
    {"ElementName", "1107", 1107U, 1107, 1107.0},
    {"ValueNative", "-15", 0U, -15, -15.0},
    {"ValueScaled", "1.5", 0U, 0, 1.5},
    {"DefaultvalueNative", "4294967295", 4294967295U, 0, 4294967295.0},
    {"DefaultvalueScaled", "7", 7U, 7, 7.0},
    {"ChangeTagValue", "12 ", 12U, 12, 12.0},
    {"ChangeTagDefaultValue", "fw_1", 0U, 0, 0.0},
    {"ChangeTagReadLevel", "0x10", 0U, 0, 0.0},
    {"ChangeTagWriteLevel", "1e3", 0U, 0, 1000.0},
};
static_assert(std::size(Rows) == 62);

/// Of these no value is known.
constexpr eLivingSpace OtherSpace = eLivingSpace::Axis1;
constexpr quint16 OtherElement = 0;

} // namespace

void tst_ParameterFilterElement::init()
{
    m_information = std::make_unique<FakeParameterInformation>(QStringLiteral("A12"));
    m_information->spaces = {eLivingSpace::Global, eLivingSpace::Axis1};
    m_information->elements = {OtherElement, Element};
    for (quint32 id = 0; id <= 115; ++id) {
        m_information->setProperty(
            Element, static_cast<eParameterProperty>(id), QString::number(1000 + id));
    }
    m_information->setValue(
        Space, Element, {QStringLiteral("1.5"), QStringLiteral("-15"), QStringLiteral("bad")});
    m_information->defaults[{Space, Element}] = {
        QStringLiteral("bad"), QStringLiteral("4294967295"), QStringLiteral("0.7")};
    m_information->preparedTexts[{Space, Element}] = {{QStringLiteral("0.7"), QStringLiteral("7")}};
    m_information->attributes[{Space, Element}] = {
        {QStringLiteral("ValueChangeTag"), QStringLiteral("12 ")},
        {QStringLiteral("DefaultValueChangeTag"), QStringLiteral("fw_1")},
        {QStringLiteral("ReadLevelChangeTag"), QStringLiteral("0x10")},
        {QStringLiteral("WriteLevelChangeTag"), QStringLiteral("1e3")}};
    m_element.load(m_information.get(), Space, Element);
}

void tst_ParameterFilterElement::property_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("unsignedNumber");
    QTest::addColumn<qint32>("signedNumber");
    QTest::addColumn<double>("realNumber");
    for (const Row &row : Rows) {
        QTest::newRow(row.name) << QString::fromLatin1(row.text) << row.unsignedNumber
                                << row.signedNumber << row.realNumber;
    }
}

void tst_ParameterFilterElement::property()
{
    QFETCH(QString, text);
    QFETCH(quint32, unsignedNumber);
    QFETCH(qint32, signedNumber);
    QFETCH(double, realNumber);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    QCOMPARE(m_element.stringProperty(name), text);
    QCOMPARE(m_element.uint32Property(name), unsignedNumber);
    QCOMPARE(m_element.int32Property(name), signedNumber);
    QCOMPARE(m_element.doubleProperty(name), realNumber);
}

void tst_ParameterFilterElement::unknownNameAnswersLikeCoordinate_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << QStringLiteral("Colour");
    QTest::newRow("empty") << QString();
    QTest::newRow("differs in case") << QStringLiteral("readLevel");
    QTest::newRow("differs in case, computed") << QStringLiteral("VALUENATIVE");
    QTest::newRow("blank behind") << QStringLiteral("ReadLevel ");
    QTest::newRow("beginning of a name") << QStringLiteral("Read");
    QTest::newRow("number of a property") << QStringLiteral("5");
    QTest::newRow("known property without name") << QStringLiteral("ShownOffline");
    QTest::newRow("beyond Latin-1") << QStringLiteral("\u0416");
}

void tst_ParameterFilterElement::unknownNameAnswersLikeCoordinate()
{
    QFETCH(QString, name);
    QCOMPARE(m_element.stringProperty(name), QStringLiteral("1103"));
    QCOMPARE(m_element.uint32Property(name), 1103U);
    QCOMPARE(m_element.int32Property(name), 1103);
    QCOMPARE(m_element.doubleProperty(name), 1103.0);
}

void tst_ParameterFilterElement::livingSpaceListsAllSpacesOfTheParameter_data()
{
    QTest::addColumn<QList<int>>("livingSpaces");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QList<int>() << QString();
    QTest::newRow("one") << QList<int> {4} << QStringLiteral("4");
    QTest::newRow("two with a gap") << QList<int> {0, 2} << QStringLiteral("0;2");
    QTest::newRow("all") << QList<int> {0, 1, 2, 3, 4} << QStringLiteral("0;1;2;3;4");
}

void tst_ParameterFilterElement::livingSpaceListsAllSpacesOfTheParameter()
{
    QFETCH(QList<int>, livingSpaces);
    QFETCH(QString, text);
    m_information->spaces.clear();
    for (const int livingSpace : std::as_const(livingSpaces))
        m_information->spaces.append(static_cast<eLivingSpace>(livingSpace));
    QCOMPARE(m_element.stringProperty(QStringLiteral("LivingSpace")), text);
    QCOMPARE(m_element.uint32Property(QStringLiteral("LivingSpace")),
        livingSpaces == QList<int> {4} ? 4U : 0U);
}

void tst_ParameterFilterElement::negativeNumbers()
{
    m_information->setProperty(Element, eParameterProperty::DecimalPlacesBehind, -3);
    QCOMPARE(m_element.int32Property(QStringLiteral("DecimalPlacesBehind")), -3);
    QCOMPARE(m_element.doubleProperty(QStringLiteral("DecimalPlacesBehind")), -3.0);
    QCOMPARE(m_element.stringProperty(QStringLiteral("DecimalPlacesBehind")), QStringLiteral("-3"));
}

void tst_ParameterFilterElement::numbersOfComputedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("unsignedNumber");
    QTest::addColumn<qint32>("signedNumber");
    QTest::addColumn<double>("realNumber");
    const auto row = [](const char *rule, const char *text, quint32 unsignedNumber,
                         qint32 signedNumber, double realNumber) {
        QTest::newRow(rule) << QString::fromUtf8(text) << unsignedNumber << signedNumber
                            << realNumber;
    };
    row("empty", "", 0U, 0, 0.0);
    row("minus one is no unsigned number", "-1", 0U, -1, -1.0);
    row("largest signed", "2147483647", 2147483647U, 2147483647, 2147483647.0);
    row("beyond the signed", "2147483648", 2147483648U, 0, 2147483648.0);
    row("least signed", "-2147483648", 0U, std::numeric_limits<qint32>::min(), -2147483648.0);
    row("below the signed", "-2147483649", 0U, 0, -2147483649.0);
    row("largest unsigned", "4294967295", 4294967295U, 0, 4294967295.0);
    row("beyond the unsigned", "4294967296", 0U, 0, 4294967296.0);
    row("fraction", "1.5", 0U, 0, 1.5);
    row("decimal comma", "1,5", 0U, 0, 0.0);
    row("comma of thousands", "1,000", 0U, 0, 0.0);
    row("blank in front", " 12", 12U, 12, 12.0);
    row("blank behind", "12 ", 12U, 12, 12.0);
    row("blank inside", "1 2", 0U, 0, 0.0);
    row("unit behind", "12 A", 0U, 0, 0.0);
    row("hexadecimal", "0x10", 0U, 0, 0.0);
    row("zeros in front stay decimal", "010", 10U, 10, 10.0);
    row("largest real", "1.7976931348623157e308", 0U, 0, std::numeric_limits<double>::max());
    row("beyond the real", "1e999", 0U, 0, 0.0);
    row("next to nothing", "1e-999", 0U, 0, 0.0);
}

void tst_ParameterFilterElement::numbersOfComputedTexts()
{
    QFETCH(QString, text);
    const QString name = QStringLiteral("ValueNative");
    m_information->setValue(Space, Element, {QString(), text, QString()});
    QCOMPARE(m_element.stringProperty(name), text);
    QTEST(m_element.uint32Property(name), "unsignedNumber");
    QTEST(m_element.int32Property(name), "signedNumber");
    QTEST(m_element.doubleProperty(name), "realNumber");
}

void tst_ParameterFilterElement::notFiniteIsZero_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"1e999", "-1e999", "inf", "-inf", "+inf", "INF", "infinity", "nan",
             "NaN", "-nan", "1e309"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

/// Computed or looked up: a constraint never compares with an infinity or with no number.
void tst_ParameterFilterElement::notFiniteIsZero()
{
    QFETCH(QString, text);
    m_information->setValue(Space, Element, {text, QString(), QString()});
    m_information->setProperty(Element, eParameterProperty::UpperLimitValue, text);
    QCOMPARE(m_element.stringProperty(QStringLiteral("ValueScaled")), text);
    QCOMPARE(m_element.doubleProperty(QStringLiteral("ValueScaled")), 0.0);
    QCOMPARE(m_element.stringProperty(QStringLiteral("UpperLimitValue")), text);
    QCOMPARE(m_element.doubleProperty(QStringLiteral("UpperLimitValue")), 0.0);
}

void tst_ParameterFilterElement::emptyWithoutInformation_data()
{
    QTest::addColumn<QString>("name");
    for (const Row &row : Rows)
        QTest::newRow(row.name) << QString::fromLatin1(row.name);
    QTest::newRow("unknown") << QStringLiteral("Colour");
    QTest::newRow("empty") << QString();
}

void tst_ParameterFilterElement::emptyWithoutInformation()
{
    QFETCH(QString, name);
    const ParameterFilterElement fresh;
    QCOMPARE(fresh.parent(), nullptr);
    ParameterFilterElement unloaded;
    unloaded.load(m_information.get(), Space, Element);
    unloaded.load(nullptr, Space, Element);
    // The third one's information goes away.
    m_information.reset();
    const ParameterFilterElement *const elements[] = {&fresh, &unloaded, &m_element};
    for (const ParameterFilterElement *element : elements) {
        QCOMPARE(element->stringProperty(name), QString());
        QCOMPARE(element->uint32Property(name), 0U);
        QCOMPARE(element->int32Property(name), 0);
        QCOMPARE(element->doubleProperty(name), 0.0);
    }
}

/// The default's text takes two questions; what answers the first may remove the parameter.
void tst_ParameterFilterElement::informationGoesWhileItIsAsked()
{
    m_information->onDefaultText = [this] { m_information.reset(); };
    QCOMPARE(m_element.stringProperty(QStringLiteral("DefaultvalueScaled")), QString());
    QVERIFY(!m_information);
    QCOMPARE(m_element.doubleProperty(QStringLiteral("DefaultvalueScaled")), 0.0);
}

/// Nothing is kept of the place that was loaded before.
void tst_ParameterFilterElement::everyQuestionNamesThePlace()
{
    const auto check = [this](const char *name, const QString &text) {
        QCOMPARE(m_element.stringProperty(QString::fromLatin1(name)), text);
    };
    const auto checkAll = [&](const QString &readLevel, const QString &address) {
        check("ReadLevel", readLevel);
        check("Address", address);
        for (const char *name : {"ValueNative", "ValueScaled", "DefaultvalueNative",
                 "DefaultvalueScaled", "ChangeTagValue", "ChangeTagDefaultValue",
                 "ChangeTagReadLevel", "ChangeTagWriteLevel"})
            check(name, QString());
    };
    m_element.load(m_information.get(), Space, OtherElement);
    checkAll(QString(), QStringLiteral("2.A012[00000]"));
    m_element.load(m_information.get(), OtherSpace, Element);
    checkAll(QStringLiteral("1005"), QStringLiteral("1.A012[00003]"));
    m_element.load(m_information.get(), Space, Element);
    check("ValueNative", QStringLiteral("-15"));
}

QTEST_GUILESS_MAIN(tst_ParameterFilterElement)
#include "tst_ParameterFilterElement.moc"
