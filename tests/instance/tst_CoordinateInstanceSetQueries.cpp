#include "tests/instance/InstanceStand.h"
#include "tests/support/TestHostInformation.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using eSeverity = SystemMessage::eSeverity;

/// What a set tells about its parameter: definition, elements, properties, instances.
class tst_CoordinateInstanceSetQueries : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newSetIsEmpty();
    void definitionFacts();
    void isGlobalParameter_data();
    void isGlobalParameter();
    void simpleElements();
    void recordElements();
    void absentElementFacts_data();
    void absentElementFacts();
    void livingSpaces();
    void hasInstance_data();
    void hasInstance();
    void instanceSerialNumber();
    void address_data();
    void address();
    void hasElementProperty_data();
    void hasElementProperty();
    void fixedPropertyValues();
    void fixedPropertyValuesOfARecord();
    void elementProperty_data();
    void elementProperty();
    void isPropertySettable_data();
    void isPropertySettable();
    void hostInformation();
    void description_data();
    void description();
    void descriptionTexts();
    void attachInstance();
    void attachSecondInstance();
    void createInstancesFromAnchors_data();
    void createInstancesFromAnchors();
};

void tst_CoordinateInstanceSetQueries::newSetIsEmpty()
{
    const InstanceStand stand;
    const CoordinateInstanceSet set(stand.container.get());
    QVERIFY(!set.coordinate().isValid());
    QVERIFY(!set.definition());
    QVERIFY(!set.isSimpleParameter());
    QVERIFY(!set.isRecordParameter());
    QVERIFY(!set.isGlobalParameter());
    QVERIFY(set.name().isEmpty());
    QCOMPARE(set.nameCommonTextIndex(), 0);
    QCOMPARE(set.version(), 0U);
    QCOMPARE(set.elementCount(), quint16(0));
    QCOMPARE(set.definedElementCount(), quint16(0));
    QCOMPARE(set.elementList(), QList<quint16>());
    QCOMPARE(set.elementSet(), QSet<quint16>());
    QVERIFY(set.elementName(0).isEmpty());
    QCOMPARE(set.livingSpaces(), QList<eLivingSpace>());
    QCOMPARE(set.instanceSerialNumber(Global), 0U);
    QVERIFY(!set.address(Axis1, 0).isValid());
    QCOMPARE(set.changeTagList(Global), QStringList());
    QCOMPARE(set.changeTagListOfAllInstances(), QStringList());
    QCOMPARE(set.sortedChangeTagList(), QStringList());
    QCOMPARE(set.displayValueText(Axis1, 0, true), QString());
    QCOMPARE(set.description(0), QString());
    QCOMPARE(set.datatype(0), quint8(0));
    QVERIFY(!set.isVisible(Axis1, 0));
    QVERIFY(!set.isWritable(Axis1, 0));
    QCOMPARE(set.parameterContainer(), stand.container.get());
}

void tst_CoordinateInstanceSetQueries::definitionFacts()
{
    InstanceStand stand;
    const auto *simple = stand.add(DefinitionBuilder()
                                       .name(u"Strom"_s, u"Current"_s)
                                       .nameCommonText(17)
                                       .version(5)
                                       .elementCount(3),
        u"A12"_s);
    QVERIFY(simple->isSimpleParameter());
    QVERIFY(!simple->isRecordParameter());
    QCOMPARE(simple->name().longText(u"de"_s), u"Strom"_s);
    QCOMPARE(simple->name().longText(u"en"_s), u"Current"_s);
    QCOMPARE(simple->nameCommonTextIndex(), 17);
    QCOMPARE(simple->version(), 5U);
    QCOMPARE(simple->coordinate().toText(), u"A12"_s);
    QCOMPARE(simple->parameterContainer(), stand.container.get());

    const auto *record = stand.add(DefinitionBuilder().element(4, u"a"_s), u"A13"_s);
    QVERIFY(!record->isSimpleParameter());
    QVERIFY(record->isRecordParameter());
}

void tst_CoordinateInstanceSetQueries::isGlobalParameter_data()
{
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<bool>("isPhysicalAxis");
    QTest::addColumn<int>("family");
    QTest::addColumn<bool>("expected");

    // Family: 0 none, 1 without physical axes, 2 with physical axes.
    for (int family = 0; family < 3; ++family) {
        QTest::addRow("per axis, family %d", family) << false << false << family << false;
        QTest::addRow("per axis, physical axis, family %d", family)
            << false << true << family << false;
        QTest::addRow("global, family %d", family) << true << false << family << true;
        QTest::addRow("global, physical axis, family %d", family)
            << true << true << family << (family != 2);
    }
}

void tst_CoordinateInstanceSetQueries::isGlobalParameter()
{
    QFETCH(bool, isGlobal);
    QFETCH(bool, isPhysicalAxis);
    QFETCH(int, family);
    QFETCH(bool, expected);

    InstanceStand stand;
    DescriptionError error;
    const auto firmware = ServoDriveFirmware::loadFromBytes(
        R"({"format": "kr-device-description", "version": 1, "languages": ["de"], "dataTypes": ["INT32"], "family":)"
            + (family == 2
                    ? QByteArray(R"({"identifier": 31002, "name": "B", "hasPhysicalAxes": true,)")
                    : QByteArray(R"({"identifier": 31001, "name": "A", "hasPhysicalAxes": false,)"))
            + R"("axes": [1, 2]}, "parameters": []})",
        u"test.json"_s, &error);
    QVERIFY2(firmware, qPrintable(error.toText()));
    if (family > 0)
        stand.container->setFirmware(firmware.get());
    const auto *set =
        stand.add(DefinitionBuilder().global(isGlobal).physicalAxis(isPhysicalAxis), u"A12"_s);
    QCOMPARE(set->isGlobalParameter(), expected);
    QCOMPARE(set->livingSpaces(), QList<eLivingSpace> {expected ? Global : Axis1});
    stand.container.reset();
}

void tst_CoordinateInstanceSetQueries::simpleElements()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().name(u"Strom"_s).nameCommonText(17).version(5).elementCount(3),
        u"A12"_s);
    set->setElementCount(2);
    QCOMPARE(set->elementCount(), quint16(2));
    QCOMPARE(set->definedElementCount(), quint16(3));
    QCOMPARE(set->elementList(), (QList<quint16> {0, 1}));
    QCOMPARE(set->elementSet(), (QSet<quint16> {0, 1}));
    QCOMPARE(set->elementName(1).longText(), u"Strom"_s);
    QCOMPARE(set->elementNameCommonTextIndex(1), 17);
    QCOMPARE(set->elementVersion(1), 5U);
}

void tst_CoordinateInstanceSetQueries::recordElements()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .name(u"Strom"_s)
                                    .nameCommonText(17)
                                    .version(5)
                                    .element(9, u"neun"_s)
                                    .elementVersion(8)
                                    .elementNameCommonText(99)
                                    .element(2, u"zwei"_s),
        u"A12"_s);
    QCOMPARE(set->elementCount(), quint16(2));
    QCOMPARE(set->definedElementCount(), quint16(2));
    QCOMPARE(set->elementList(), (QList<quint16> {9, 2}));
    QCOMPARE(set->elementSet(), (QSet<quint16> {2, 9}));
    QCOMPARE(set->elementName(9).longText(), u"neun"_s);
    QCOMPARE(set->elementName(2).longText(), u"zwei"_s);
    QCOMPARE(set->elementNameCommonTextIndex(9), 99);
    QCOMPARE(set->elementVersion(9), 8U);
    QCOMPARE(set->elementVersion(2), 5U);
}

void tst_CoordinateInstanceSetQueries::absentElementFacts_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<quint16>("element");
    QTest::newRow("one behind the last of a simple parameter") << false << quint16(2);
    QTest::newRow("greatest number") << false << quint16(65535);
    QTest::newRow("record without element 0") << true << quint16(0);
    QTest::newRow("gap of a record") << true << quint16(4);
}

void tst_CoordinateInstanceSetQueries::absentElementFacts()
{
    QFETCH(bool, isRecord);
    QFETCH(quint16, element);
    InstanceStand stand;
    DefinitionBuilder builder;
    builder.nameCommonText(3).settable(ReadLevel);
    if (isRecord)
        builder.element(3, u"a"_s).element(5, u"b"_s);
    else
        builder.elementCount(2);
    auto *set = stand.add(builder, u"A12"_s);
    QVERIFY(set->elementName(element).isEmpty());
    QCOMPARE(set->elementNameCommonTextIndex(element), 0);
    QCOMPARE(set->elementVersion(element), 0U);
    QVERIFY(!set->hasElementProperty(element, ReadLevel));
    QVERIFY(!set->hasElementProperty(element, ElementCount));
    QVERIFY(!set->elementProperty(element, ReadLevel).isValid());
    QVERIFY(!set->elementProperty(element, ElementCount).isValid());
    QVERIFY(!set->isPropertySettable(element, ReadLevel));
    QVERIFY(!set->isPropertySettable(element, ElementCount));
    set->setProperty(element, ReadLevel, ParameterProperty(QVariant(3U)));
    QVERIFY(!set->hasPropertyOverride(element, ReadLevel));
    QCOMPARE(set->attribute(Axis1, element, u"ValueChangeTag"_s), QString());
    QVERIFY(!set->setValueChangeTag(Axis1, element, u"t"_s));
    QVERIFY(!set->setDefaultValueChangeTag(Axis1, element, u"t"_s));
    QVERIFY(!set->isHidden(Axis1, element));
    QVERIFY(!set->isVisible(Axis1, element));
    QVERIFY(!set->isWritable(Axis1, element));
    QVERIFY(set->selectionTexts(Axis1, element).isEmpty());
    QCOMPARE(set->description(element), QString());
    QCOMPARE(set->elementDescription(element), QString());
}

void tst_CoordinateInstanceSetQueries::livingSpaces()
{
    InstanceStand stand;
    QCOMPARE(stand.add(DefinitionBuilder(), u"A12"_s, {4, 1, 3})->livingSpaces(),
        (QList<eLivingSpace> {Axis1, Axis3, Axis4}));
    QCOMPARE(stand.add(DefinitionBuilder().global(), u"A13"_s, {2})->livingSpaces(),
        QList<eLivingSpace> {Global});
}

void tst_CoordinateInstanceSetQueries::hasInstance_data()
{
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<bool>("expected");

    for (const int livingSpace : {-2147483647, -1, 0, 1, 2, 3, 4, 5, 2147483647}) {
        QTest::addRow("axes 1 and 3, living space %d", livingSpace)
            << false << livingSpace << (livingSpace == 1 || livingSpace == 3);
        QTest::addRow("global takes the exact key, living space %d", livingSpace)
            << true << livingSpace << (livingSpace == 0);
    }
}

void tst_CoordinateInstanceSetQueries::hasInstance()
{
    QFETCH(bool, isGlobal);
    QFETCH(int, livingSpace);
    QFETCH(bool, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().global(isGlobal), u"A12"_s, {1, 3});
    QCOMPARE(set->hasInstance(eLivingSpace(livingSpace)), expected);
}

void tst_CoordinateInstanceSetQueries::instanceSerialNumber()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s, {1, 2});
    const quint32 first = set->instanceSerialNumber(Axis1);
    QVERIFY(first > 0);
    QCOMPARE(set->instanceSerialNumber(Axis2), first + 1);
    QCOMPARE(set->instanceSerialNumber(Global), 0U);
    QCOMPARE(set->instanceSerialNumber(Axis3), 0U);
    QCOMPARE(set->instanceSerialNumber(eLivingSpace(-1)), 0U);
    const auto *global = stand.add(DefinitionBuilder().global(), u"A13"_s, {0});
    QCOMPARE(global->instanceSerialNumber(Global), first + 2);
    QCOMPARE(global->instanceSerialNumber(Axis4), first + 2);
    QCOMPARE(global->instanceSerialNumber(eLivingSpace(-7)), first + 2);
}

void tst_CoordinateInstanceSetQueries::address_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0") << 0 << u"1.A012[00003]"_s;
    QTest::newRow("1") << 1 << u"1.A012[00003]"_s;
    QTest::newRow("2") << 2 << u"2.A012[00003]"_s;
    QTest::newRow("3") << 3 << u"3.A012[00003]"_s;
    QTest::newRow("4") << 4 << u"4.A012[00003]"_s;
    QTest::newRow("5") << 5 << u"1.A012[00003]"_s;
    QTest::newRow("-1") << -1 << u"1.A012[00003]"_s;
    QTest::newRow("greatest") << 2147483647 << u"1.A012[00003]"_s;
    QTest::newRow("least") << -2147483647 - 1 << u"1.A012[00003]"_s;
}

void tst_CoordinateInstanceSetQueries::address()
{
    QFETCH(int, livingSpace);
    QFETCH(QString, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(set->address(eLivingSpace(livingSpace), 3).toSortableText(), expected);
}

void tst_CoordinateInstanceSetQueries::hasElementProperty_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<bool>("expected");

    for (const quint32 property : {100U, 101U, 103U, 105U, 106U, 107U})
        QTest::addRow("%u is always there", property) << property << true;
    for (const quint32 property : {102U, 104U, 108U, 109U, 110U, 111U})
        QTest::addRow("%u is never there", property) << property << false;
    for (const quint32 property : {112U, 113U, 114U, 115U, 116U, 4294967295U})
        QTest::addRow("%u is asked of the definition", property) << property << false;
    QTest::newRow("5, defined") << 5U << true;
    QTest::newRow("20, not defined") << 20U << false;
    QTest::newRow("47, not defined") << 47U << false;
    QTest::newRow("51, beyond the definition's") << 51U << false;
}

void tst_CoordinateInstanceSetQueries::hasElementProperty()
{
    QFETCH(quint32, property);
    QFETCH(bool, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(set->hasElementProperty(0, eParameterProperty(property)), expected);
}

void tst_CoordinateInstanceSetQueries::fixedPropertyValues()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().name(u"Strom"_s).elementCount(4), u"A12"_s);
    set->setElementCount(2);
    QCOMPARE(set->elementProperty(0, IsSimpleParameter).asVariant(), QVariant(true));
    QCOMPARE(set->elementProperty(0, IsRecordParameter).asVariant(), QVariant(false));
    QCOMPARE(set->elementProperty(0, Coordinate).asString(), u"A12"_s);
    QCOMPARE(set->elementProperty(0, Name).asString(), u"Strom"_s);
    QCOMPARE(set->elementProperty(1, ElementCount).asUint32(), 2U);
    QCOMPARE(set->elementProperty(1, ElementName).asString(), u"Strom"_s);
}

void tst_CoordinateInstanceSetQueries::fixedPropertyValuesOfARecord()
{
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().name(u"Strom"_s).element(5, u"fünf"_s), u"E84"_s);
    QCOMPARE(set->elementProperty(5, IsSimpleParameter).asString(), u"0"_s);
    QCOMPARE(set->elementProperty(5, IsRecordParameter).asString(), u"1"_s);
    QCOMPARE(set->elementProperty(5, Coordinate).asString(), u"E84"_s);
    QCOMPARE(set->elementProperty(5, Name).asString(), u"Strom"_s);
    QCOMPARE(set->elementProperty(5, ElementCount).asUint32(), 1U);
    QCOMPARE(set->elementProperty(5, ElementName).asString(), u"fünf"_s);
}

void tst_CoordinateInstanceSetQueries::elementProperty_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("defined number") << 5U << QVariant(2U);
    QTest::newRow("defined text") << 8U << QVariant(u"-1"_s);
    for (const quint32 property : {20U, 102U, 104U, 108U, 109U, 110U, 111U, 112U, 4294967295U})
        QTest::addRow("%u is absent", property) << property << QVariant();
}

void tst_CoordinateInstanceSetQueries::elementProperty()
{
    QFETCH(quint32, property);
    QFETCH(QVariant, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().levels(2, 3).limits(u"-1"_s, u"1"_s), u"A12"_s);
    QCOMPARE(set->elementProperty(0, eParameterProperty(property)).asVariant(), expected);
}

void tst_CoordinateInstanceSetQueries::isPropertySettable_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<bool>("ofSimple");
    QTest::addColumn<bool>("ofRecord");

    for (const quint32 property : {100U, 101U, 102U, 103U, 105U, 107U})
        QTest::addRow("%u never", property) << property << false << false;
    QTest::newRow("106 of a simple parameter") << 106U << true << false;
    QTest::newRow("5 as defined") << 5U << true << true;
    QTest::newRow("6 as defined") << 6U << false << false;
    QTest::newRow("104 as defined") << 104U << false << false;
    QTest::newRow("112 as defined") << 112U << false << false;
}

void tst_CoordinateInstanceSetQueries::isPropertySettable()
{
    QFETCH(quint32, property);
    QFETCH(bool, ofSimple);
    QFETCH(bool, ofRecord);
    InstanceStand stand;
    const DefinitionBuilder settable = DefinitionBuilder().settable(ReadLevel);
    const auto *simple = stand.add(settable, u"A12"_s);
    const auto *record = stand.add(DefinitionBuilder(settable).element(0, u"a"_s), u"A13"_s);
    QCOMPARE(simple->isPropertySettable(0, eParameterProperty(property)), ofSimple);
    QCOMPARE(record->isPropertySettable(0, eParameterProperty(property)), ofRecord);
}

void tst_CoordinateInstanceSetQueries::hostInformation()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(set->hostInformation(), 0U);
    TestHostInformation host({Axis1}, 4711);
    stand.container->setHostInformation(&host);
    QCOMPARE(set->hostInformation(), 4711U);
    stand.container->setHostInformation(nullptr);
    QCOMPARE(set->hostInformation(), 0U);
}

void tst_CoordinateInstanceSetQueries::description_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("count");
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<QString>("expected");

    QTest::newRow("one element") << u"A12"_s << 1 << quint16(1) << false << u"A12_77_5"_s;
    QTest::newRow("global") << u"A12"_s << 0 << quint16(1) << false << u"A12_77_5"_s;
    QTest::newRow("several elements") << u"A12"_s << 1 << quint16(2) << false << u"A12[0]_77_5"_s;
    QTest::newRow("record") << u"A12"_s << 1 << quint16(1) << true << u"A12[0]_77_8"_s;
    QTest::newRow("global with several elements")
        << u"A12"_s << 0 << quint16(2) << false << u"A12[0]_77_5"_s;
    QTest::newRow("group O") << u"O07"_s << 1 << quint16(1) << false << u"O07_77_5"_s;
    QTest::newRow("group R") << u"R07"_s << 1 << quint16(1) << false << u"R07_77_5"_s;
}

void tst_CoordinateInstanceSetQueries::description()
{
    QFETCH(QString, coordinate);
    QFETCH(int, livingSpace);
    QFETCH(quint16, count);
    QFETCH(bool, isRecord);
    QFETCH(QString, expected);
    InstanceStand stand;
    DefinitionBuilder builder =
        DefinitionBuilder().version(5).global(livingSpace == 0).property(DescriptionReference, 77U);
    if (isRecord)
        builder.element(0, u"a"_s).elementVersion(8);
    else
        builder.elementCount(count);
    const auto *set = stand.add(builder, coordinate, {livingSpace});
    QCOMPARE(set->description(0), expected);
    QCOMPARE(set->elementDescription(0), expected);
}

void tst_CoordinateInstanceSetQueries::descriptionTexts()
{
    InstanceStand stand;
    const DefinitionBuilder builder =
        DefinitionBuilder().name(u"Rampe"_s).description(u"Die <i>Rampe</i>."_s);
    const QString tail = u"</b></p><p style=\"margin-top:0px; margin-bottom:20px; "
                         u"font-size:10pt;\"><hr></p>Die <i>Rampe</i>.</body>"_s;
    const QString head = u"<description>=<body style=\"font-family:Segoe UI, Arial, Helvetica, "
                         u"Swiss;font-weight:normal;padding:0;\"><p style=\"margin-top:0px; "
                         u"margin-bottom:0px; font-size:10pt;\"><b>"_s;
    for (const QString &coordinate : {u"P07"_s, u"Q123"_s}) {
        const auto *set = stand.add(builder, coordinate);
        QCOMPARE(set->description(0), head + coordinate + u" | Rampe"_s + tail);
        QCOMPARE(set->elementDescription(0), head + coordinate + u" | Rampe"_s + tail);
    }
}

void tst_CoordinateInstanceSetQueries::attachInstance()
{
    InstanceStand stand;
    CoordinateInstanceSet set(stand.container.get());
    const ParameterInstanceData *record = set.attachInstance(Axis3);
    QVERIFY(record);
    QCOMPARE(set.record(Axis3), record);
    QCOMPARE(record->owner(), &set);
    QCOMPARE(record->axisNumber(), 3U);
}

void tst_CoordinateInstanceSetQueries::attachSecondInstance()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    const quint32 first = set->instanceSerialNumber(Axis1);
    stand.messages.expect(eSeverity::Critical, u"CoordinateInstanceSet"_s,
        u"Unable to attach new Instance due to already existing instance"_s);
    QVERIFY(!set->attachInstance(Axis1));
    QCOMPARE(set->instanceSerialNumber(Axis1), first);
}

void tst_CoordinateInstanceSetQueries::createInstancesFromAnchors_data()
{
    QTest::addColumn<QStringList>("anchors");
    QTest::addColumn<QList<int>>("livingSpaces");
    QTest::addColumn<bool>("isReported");
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<int>("refused");

    QTest::newRow("one anchor of a global parameter")
        << QStringList {u"S;{P1}"_s, u"D.2;{P1}"_s} << QList<int> {0} << false << true << 0;
    QTest::newRow("two axes of a global parameter")
        << QStringList {u"S;{P1}"_s, u"D.1;{P1}"_s, u"D.2;{P1}"_s} << QList<int> {0} << false
        << true << 1;
    QTest::newRow("two anchors of one living space")
        << QStringList {u"S;{P1}"_s, u"D.3;{P1}"_s, u"D.3;{P2}"_s, u"D.4;{P1}"_s}
        << QList<int> {3, 4} << false << false << 1;
    QTest::newRow("one system anchor and two axes")
        << QStringList {u"S;{P1}"_s, u"D.1;{P1}"_s, u"D.3;{P1}"_s} << QList<int> {1, 3} << false
        << false << 0;
    QTest::newRow("system anchor alone")
        << QStringList {u"S;{P1}"_s} << QList<int>() << false << false << 0;
    QTest::newRow("no anchor") << QStringList() << QList<int>() << true << false << 0;
    QTest::newRow("no system anchor")
        << QStringList {u"D.2;{P1}"_s} << QList<int> {2} << true << false << 0;
    QTest::newRow("two system anchors")
        << QStringList {u"S;{P1}"_s, u"S;{P2}"_s} << QList<int>() << true << false << 0;
    QTest::newRow("relative and invalid anchors name nothing")
        << QStringList {u"S;{P1}"_s, u"D;{P1}"_s, u"D.1"_s, QString()} << QList<int>() << false
        << false << 0;
}

void tst_CoordinateInstanceSetQueries::createInstancesFromAnchors()
{
    QFETCH(QStringList, anchors);
    QFETCH(QList<int>, livingSpaces);
    QFETCH(bool, isReported);
    QFETCH(bool, isGlobal);
    QFETCH(int, refused);
    InstanceStand stand;
    CoordinateInstanceSet set(stand.container.get());
    set.initialize(stand.define(DefinitionBuilder().global(isGlobal).anchors(anchors), u"A12"_s),
        ParameterCoordinate(u"A12"_s));
    for (int i = 0; i < refused; ++i) {
        stand.messages.expect(eSeverity::Critical, u"CoordinateInstanceSet"_s,
            u"Unable to attach new Instance due to already existing instance"_s);
    }
    if (isReported) {
        stand.messages.expect(eSeverity::Critical, u"CoordinateInstanceSet"_s,
            u"Too many anchors for system parameter A12\""_s);
    }
    set.createInstancesFromAnchors();
    QList<int> created;
    for (const eLivingSpace livingSpace : set.livingSpaces())
        created.append(int(livingSpace));
    QCOMPARE(created, livingSpaces);
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetQueries)

#include "tst_CoordinateInstanceSetQueries.moc"
