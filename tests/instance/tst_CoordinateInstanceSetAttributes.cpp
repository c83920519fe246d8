#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

#include <functional>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

namespace {

QString warned(const char *name)
{
    return u"missing property \""_s + QLatin1String(name) + u"\" at parameter A12\""_s;
}

} // namespace

/// Change tags, the attributes of a tag, and the numbers among the properties.
class tst_CoordinateInstanceSetAttributes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changeTagLists();
    void sortedChangeTagList();
    void tagAttributes();
    void levelTagAttributes();
    void scalingAttributes_data();
    void scalingAttributes();
    void unknownAttributes_data();
    void unknownAttributes();
    void numberAccessors_data();
    void numberAccessors();
    void missingNumbers_data();
    void missingNumbers();
    void invalidWriteLevel();
    void accessorsOfAbsentElements();
};

void tst_CoordinateInstanceSetAttributes::changeTagLists()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
    QCOMPARE(set->changeTagList(Axis1), QStringList());
    QVERIFY(set->setValueChangeTag(Axis1, 0, u"b"_s));
    QVERIFY(set->setDefaultValueChangeTag(Axis1, 1, u"a"_s));
    QVERIFY(set->setValueChangeTag(Axis1, 1, u"b"_s));
    QVERIFY(set->setValueChangeTag(Axis2, 0, u"c"_s));
    QVERIFY(set->setDefaultValueChangeTag(Axis2, 0, u"a"_s));
    QCOMPARE(set->changeTagList(Axis1), (QStringList {u"a"_s, u"b"_s}));
    QCOMPARE(set->changeTagList(Axis2), (QStringList {u"a"_s, u"c"_s}));
    QCOMPARE(set->changeTagList(Axis3), QStringList());
    QCOMPARE(set->changeTagListOfAllInstances(), (QStringList {u"a"_s, u"b"_s, u"c"_s}));

    auto *global = stand.add(DefinitionBuilder().global(), u"A13"_s, {0});
    global->setValueChangeTag(Axis4, 0, u"g"_s);
    QCOMPARE(global->changeTagList(eLivingSpace(-1)), QStringList {u"g"_s});
}

void tst_CoordinateInstanceSetAttributes::sortedChangeTagList()
{
    InstanceStand stand;
    auto *first = stand.add(DefinitionBuilder(), u"A12"_s, {1}, u"same"_s);
    auto *identical = stand.add(DefinitionBuilder(), u"A13"_s, {1}, u"same"_s);
    auto *version = stand.add(DefinitionBuilder().version(9), u"A14"_s, {1}, u"same"_s);
    auto *stranger = stand.add(DefinitionBuilder(), u"A15"_s, {1}, u"other"_s);
    first->setValueChangeTag(Axis1, 0, u"c"_s);
    identical->setDefaultValueChangeTag(Axis1, 0, u"a"_s);
    version->setValueChangeTag(Axis1, 0, u"b"_s);
    version->setDefaultValueChangeTag(Axis1, 0, u"c"_s);
    stranger->setValueChangeTag(Axis1, 0, u"x"_s);
    QCOMPARE(first->sortedChangeTagList(), (QStringList {u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(version->sortedChangeTagList(), (QStringList {u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(stranger->sortedChangeTagList(), QStringList {u"x"_s});
}

void tst_CoordinateInstanceSetAttributes::tagAttributes()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
    set->setValueChangeTag(Axis1, 0, u"v"_s);
    set->setDefaultValueChangeTag(Axis1, 0, u"d"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"v"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), u"d"_s);
    QCOMPARE(set->attribute(Axis2, 0, u"ValueChangeTag"_s), QString());
    QVERIFY(!set->setValueChangeTag(Axis2, 0, u"x"_s));
    QVERIFY(!set->setDefaultValueChangeTag(Axis2, 0, u"x"_s));
}

void tst_CoordinateInstanceSetAttributes::levelTagAttributes()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setParameterChangeTag(u"lesen"_s);
    set->setProperty(0, ReadLevel, ParameterProperty(QVariant(0U)));
    stand.container->setParameterChangeTag(u"schreiben"_s);
    set->setProperty(0, WriteLevel, ParameterProperty(QVariant(0U)));
    QCOMPARE(set->attribute(Axis1, 0, u"ReadLevelChangeTag"_s), u"lesen"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"WriteLevelChangeTag"_s), u"schreiben"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
    QCOMPARE(set->attribute(Axis1, 0, u"PropertyChangeTag_5"_s), u"lesen"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"PropertyChangeTag_6"_s), u"schreiben"_s);
    for (const QString &key : {u"PropertyChangeTag_8"_s, u"PropertyChangeTag_"_s,
             u"PropertyChangeTag_x"_s, u"PropertyChangeTag_99999999999"_s})
        QCOMPARE(set->attribute(Axis1, 0, key), QString());
}

void tst_CoordinateInstanceSetAttributes::scalingAttributes_data()
{
    QTest::addColumn<float>("scaling");
    QTest::addColumn<float>("fieldbus");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("fieldbusNative");
    QTest::addColumn<QString>("fieldbusScaled");

    QTest::newRow("both factors") << 0.1F << 0.5F << u"1 LSB = 0.1 A"_s << u"1 LSB = 5 inc"_s
                                  << u"1 LSB = 0.5 A"_s;
    QTest::newRow("no fieldbus factor")
        << 0.1F << 0.0F << u"1 LSB = 0.1 A"_s << u"1 LSB"_s << u"1 LSB"_s;
    QTest::newRow("no scaling factor")
        << 0.0F << 0.5F << u"1 LSB"_s << u"1 LSB"_s << u"1 LSB = 0.5 A"_s;
    QTest::newRow("no factor") << 0.0F << 0.0F << u"1 LSB"_s << u"1 LSB"_s << u"1 LSB"_s;
    QTest::newRow("quotient beyond a float")
        << 1e-30F << 3e38F << u"1 LSB = 1e-30 A"_s << u"1 LSB"_s << u"1 LSB = 3e+38 A"_s;
    QTest::newRow("quotient that is 0 as a float")
        << 1e30F << 1e-30F << u"1 LSB = 1e+30 A"_s << u"1 LSB"_s << u"1 LSB = 1e-30 A"_s;
}

void tst_CoordinateInstanceSetAttributes::scalingAttributes()
{
    QFETCH(float, scaling);
    QFETCH(float, fieldbus);
    QFETCH(QString, native);
    QFETCH(QString, fieldbusNative);
    QFETCH(QString, fieldbusScaled);
    InstanceStand stand;
    DefinitionBuilder builder = DefinitionBuilder().units(u"A"_s, u"inc"_s, u"bit"_s);
    if (scaling != 0.0F)
        builder.scaling(scaling);
    if (fieldbus != 0.0F)
        builder.property(FieldbusScalingFactor, fieldbus);
    const auto *set = stand.add(builder, u"A12"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ScalingInformationNative"_s), native);
    QCOMPARE(set->attribute(Axis1, 0, u"ScalingInformationFieldbusNative"_s), fieldbusNative);
    QCOMPARE(set->attribute(Axis1, 0, u"ScalingInformationFieldbusScaled"_s), fieldbusScaled);
}

void tst_CoordinateInstanceSetAttributes::unknownAttributes_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("empty") << QString();
    QTest::newRow("another case") << u"valuechangetag"_s;
    QTest::newRow("unknown") << u"Whatever"_s;
}

void tst_CoordinateInstanceSetAttributes::unknownAttributes()
{
    QFETCH(QString, key);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setValueChangeTag(Axis1, 0, u"v"_s);
    QCOMPARE(set->attribute(Axis1, 0, key), QString());
}

void tst_CoordinateInstanceSetAttributes::numberAccessors_data()
{
    QTest::addColumn<bool>("isOverridden");
    QTest::newRow("as defined") << false;
    QTest::newRow("overridden") << true;
}

void tst_CoordinateInstanceSetAttributes::numberAccessors()
{
    QFETCH(bool, isOverridden);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder()
                              .datatype(u"UINT64"_s)
                              .kind(3)
                              .property(MemoryAllocation, 2U)
                              .levels(4, 5)
                              .decimals(-6, 7),
        u"A12"_s);
    if (isOverridden) {
        for (const eParameterProperty property : {Datatype, ParameterKind, MemoryAllocation,
                 ReadLevel, WriteLevel, DecimalPlacesBehind, DecimalPlacesSignificant})
            set->setProperty(0, property, ParameterProperty(QVariant(1U)));
    }
    QCOMPARE(set->datatype(0), quint8(isOverridden ? 1 : 8));
    QCOMPARE(set->kind(0), isOverridden ? 1 : 3);
    QCOMPARE(set->memoryAllocation(0), isOverridden ? 1 : 2);
    QCOMPARE(set->readLevel(0), isOverridden ? 1U : 4U);
    QCOMPARE(set->writeLevel(0), isOverridden ? 1 : 5);
    QCOMPARE(set->decimalPlacesBehind(0), isOverridden ? 1 : -6);
    QCOMPARE(set->decimalPlacesSignificant(0), isOverridden ? 1U : 7U);
}

void tst_CoordinateInstanceSetAttributes::missingNumbers_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<int>("accessor");
    QTest::addColumn<QString>("warning");
    QTest::newRow("datatype") << 16U << 0 << warned("datatype");
    QTest::newRow("kind") << 11U << 1 << warned("kind");
    QTest::newRow("memory allocation") << 10U << 2 << warned("memoryAllocation");
    QTest::newRow("write level") << 6U << 3 << warned("writeLevel");
    QTest::newRow("read level") << 5U << 4 << warned("readLevel");
    QTest::newRow("decimal places behind") << 23U << 5 << warned("decimalPlacesBehind");
    QTest::newRow("decimal places significant") << 24U << 6 << warned("decimalPlacesSignificant");
    QTest::newRow("scaled unit") << 18U << 7 << warned("scaled measuring unit");
    QTest::newRow("native unit") << 19U << 8 << warned("native measuring unit");
    QTest::newRow("fieldbus unit") << 26U << 9 << warned("fieldbus measuring unit");
}

void tst_CoordinateInstanceSetAttributes::missingNumbers()
{
    QFETCH(quint32, property);
    QFETCH(int, accessor);
    QFETCH(QString, warning);

    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().without(eParameterProperty(property)), u"A12"_s);
    const QList<std::function<bool()>> isEmpty {
        [&] { return set->datatype(0) == 0; },
        [&] { return set->kind(0) == 0; },
        [&] { return set->memoryAllocation(0) == 0; },
        [&] { return set->writeLevel(0) == 0; },
        [&] { return set->readLevel(0) == 0; },
        [&] { return set->decimalPlacesBehind(0) == 0; },
        [&] { return set->decimalPlacesSignificant(0) == 0; },
        [&] { return set->scaledMeasuringUnit(0).isEmpty(); },
        [&] { return set->nativeMeasuringUnit(0).isEmpty(); },
        [&] { return set->fieldbusMeasuringUnit(0).isEmpty(); },
    };
    // The others are silent.
    for (int i = 0; i < isEmpty.size(); ++i) {
        if (i == accessor)
            stand.expectWarning(warning);
        QVERIFY(i == 0 || isEmpty.at(i)());
        if (i == 0)
            QCOMPARE(isEmpty.at(0)(), accessor == 0);
        QVERIFY(stand.messages.verify());
    }
}

void tst_CoordinateInstanceSetAttributes::invalidWriteLevel()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().property(WriteLevel, u"hoch"_s), u"A12"_s);
    stand.expectWarning(u"invalid definition \"writeLevel\" at parameter A12\""_s);
    QCOMPARE(set->writeLevel(0), 0);
}

void tst_CoordinateInstanceSetAttributes::accessorsOfAbsentElements()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .kind(3)
                                    .levels(2, 2)
                                    .decimals(1, 1)
                                    .property(MemoryAllocation, 1U)
                                    .units(u"A"_s, u"B"_s, u"C"_s),
        u"A12"_s);
    QCOMPARE(set->datatype(1), quint8(0));
    QCOMPARE(set->kind(1), 0);
    QCOMPARE(set->memoryAllocation(1), 0);
    QCOMPARE(set->writeLevel(1), 0);
    QCOMPARE(set->readLevel(1), 0U);
    QCOMPARE(set->decimalPlacesBehind(1), 0);
    QCOMPARE(set->decimalPlacesSignificant(1), 0U);
    QVERIFY(set->scaledMeasuringUnit(1).isEmpty());
    QVERIFY(set->nativeMeasuringUnit(1).isEmpty());
    QVERIFY(set->fieldbusMeasuringUnit(1).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetAttributes)

#include "tst_CoordinateInstanceSetAttributes.moc"
