#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// The units of values: which, of what living space, behind which texts.
class tst_CoordinateInstanceSetUnits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void adoptDropsTheUnit();
    void adoptWithoutUnitIsSilent();
    void units();
    void unitLocators();
    void unitProblems_data();
    void unitProblems();
    void unitLocatorFollowsTheLivingSpace();
    void onlyShownUnitsAreAskedFor_data();
    void onlyShownUnitsAreAskedFor();
    void unitIsTheLongText();
    void unitOfTheActiveAxis();
    void measuringUnit_data();
    void measuringUnit();
};

void tst_CoordinateInstanceSetUnits::adoptDropsTheUnit()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().units(u"mA"_s), u"A12"_s);
    QCOMPARE(set->adoptValueText(u" 15 mA"_s, Axis1, 0, nullptr), u"15"_s);
    QCOMPARE(set->adoptValueText(u"15 A"_s, Axis1, 0, nullptr), u"15 A"_s);
}

void tst_CoordinateInstanceSetUnits::adoptWithoutUnitIsSilent()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().without(ScaledMeasuringUnit), u"A12"_s);
    QCOMPARE(set->adoptValueText(u"15"_s, Axis1, 0, nullptr), u"15"_s);
}

void tst_CoordinateInstanceSetUnits::units()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().units(u"A"_s, u"inc"_s, u"bit"_s), u"A12"_s);
    QCOMPARE(set->scaledMeasuringUnit(0).longText(), u"A"_s);
    QCOMPARE(set->nativeMeasuringUnit(0).longText(), u"inc"_s);
    QCOMPARE(set->fieldbusMeasuringUnit(0).longText(), u"bit"_s);
}

void tst_CoordinateInstanceSetUnits::unitLocators()
{
    InstanceStand stand;
    stand.add(DefinitionBuilder().kind(5).datatype(u"STRING16"_s).defaultValue(u"mm"_s), u"E13"_s);
    const auto *set = stand.add(
        DefinitionBuilder().units(u"<localAxis:E13>"_s, u"<localAxis:E13>"_s, u"<localAxis:E13>"_s),
        u"A12"_s);
    for (const QString &language : {u"de"_s, u"en"_s}) {
        QCOMPARE(set->scaledMeasuringUnit(0).longText(language), u"mm"_s);
        QCOMPARE(set->nativeMeasuringUnit(0).shortText(language), u"mm"_s);
        QCOMPARE(set->fieldbusMeasuringUnit(0).longText(language), u"mm"_s);
    }
    QCOMPARE(set->valueText(Axis1, 0, true), u"0 mm"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, true), u"0 mm"_s);
    QCOMPARE(set->displayValueText(Axis1, 0, true), u"0 mm"_s);
}

void tst_CoordinateInstanceSetUnits::unitProblems_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("warning");

    const QList<std::pair<quint32, QString>> properties {
        {18U, u"scaled"_s}, {19U, u"native"_s}, {26U, u"fieldbus"_s}};
    for (const auto &[property, name] : properties) {
        const QString end = u" \"%1 measuring unit\" at parameter A12\""_s.arg(name);
        QTest::addRow("%u: absent parameter", property)
            << property << QVariant(u"<localAxis:E99>"_s) << u"unknown property value"_s + end;
        QTest::addRow("%u: other text with <", property)
            << property << QVariant(u"<mm>"_s) << u"unknown property value"_s + end;
        QTest::addRow("%u: no text", property)
            << property << QVariant(QVariantList {1}) << u"inconvertible property value"_s + end;
        QTest::addRow("%u: missing", property)
            << property << QVariant() << u"missing property"_s + end;
    }
}

void tst_CoordinateInstanceSetUnits::unitProblems()
{
    QFETCH(quint32, property);
    QFETCH(QVariant, value);
    QFETCH(QString, warning);
    InstanceStand stand;
    DefinitionBuilder builder;
    if (value.isValid())
        builder.property(eParameterProperty(property), value);
    else
        builder.without(eParameterProperty(property));
    const auto *set = stand.add(builder, u"A12"_s);
    stand.expectWarning(warning);
    const ParameterText unit = property == 18 ? set->scaledMeasuringUnit(0)
        : property == 19                      ? set->nativeMeasuringUnit(0)
                                              : set->fieldbusMeasuringUnit(0);
    QVERIFY(unit.longText().isEmpty());
    QVERIFY(stand.messages.verify());
    if (property == 26)
        return;
    stand.expectWarning(warning);
    QCOMPARE(property == 18 ? set->valueText(Axis1, 0, true) : set->nativeValueText(Axis1, 0, true),
        u"0"_s);
}

void tst_CoordinateInstanceSetUnits::unitLocatorFollowsTheLivingSpace()
{
    InstanceStand stand;
    auto *unit =
        stand.add(DefinitionBuilder().kind(5).datatype(u"STRING16"_s).defaultValue(u"mm"_s),
            u"E13"_s, {1, 2});
    unit->setOnlineValueText(Axis2, 0, u"inch"_s);
    const auto *set = stand.add(DefinitionBuilder().units(u"<localAxis:E13>"_s), u"A12"_s, {1, 2});
    QCOMPARE(set->valueText(Axis1, 0, true), u"0 mm"_s);
    QCOMPARE(set->valueText(Axis2, 0, true), u"0 inch"_s);
    // Without living space the first one of the set.
    QCOMPARE(set->scaledMeasuringUnit(0).longText(), u"mm"_s);
    const auto *second = stand.add(DefinitionBuilder().units(u"<localAxis:E13>"_s), u"A13"_s, {2});
    QCOMPARE(second->scaledMeasuringUnit(0).longText(), u"inch"_s);
}

void tst_CoordinateInstanceSetUnits::onlyShownUnitsAreAskedFor_data()
{
    QTest::addColumn<quint32>("kind");
    QTest::addColumn<QString>("shown");
    QTest::newRow("choice") << 1U << u"5"_s;
    QTest::newRow("online choice") << 2U << u"5"_s;
    QTest::newRow("hexadecimal") << 3U << u"00000005 hex"_s;
    QTest::newRow("binary") << 4U << u"0000 0000 0000 0000 0000 0000 0000 0101 bin"_s;
    QTest::newRow("text") << 5U << u"5"_s;
    QTest::newRow("kind 6") << 6U << u"5"_s;
    QTest::newRow("time") << 7U << u"0h 00m 05s"_s;
    QTest::newRow("kind 8") << 8U << u"5"_s;
    QTest::newRow("kind 9") << 9U << u"5"_s;
    QTest::newRow("IPv4") << 10U << u"0.0.0.5"_s;
    QTest::newRow("address") << 11U << u"5"_s;
}

// A missing or unknown unit is reported where it would be shown, and there alone.
void tst_CoordinateInstanceSetUnits::onlyShownUnitsAreAskedFor()
{
    QFETCH(quint32, kind);
    QFETCH(QString, shown);
    for (const QVariant &unit : {QVariant(), QVariant(u"<localAxis:E99>"_s)}) {
        InstanceStand stand;
        DefinitionBuilder builder;
        builder.kind(kind).choices(QMap<qint32, QString>()).defaultValue(u"5"_s);
        if (unit.isValid())
            builder.property(ScaledMeasuringUnit, unit);
        else
            builder.without(ScaledMeasuringUnit);
        const auto *set = stand.add(builder, u"A12"_s);
        QCOMPARE(set->displayValueText(Axis1, 0, true), shown);
        QCOMPARE(set->prepareValueText(u"5"_s, Axis1, 0, true, nullptr), shown);
    }
}

void tst_CoordinateInstanceSetUnits::unitIsTheLongText()
{
    InstanceStand stand;
    ParameterText unit;
    unit.setText(u"de"_s, u"A"_s, u"Ampere"_s);
    const auto *set = stand.add(DefinitionBuilder()
                                    .property(ScaledMeasuringUnit, QVariant::fromValue(unit))
                                    .property(NativeMeasuringUnit, QVariant::fromValue(unit))
                                    .defaultValue(u"5"_s),
        u"A12"_s);
    QCOMPARE(set->valueText(Axis1, 0, true), u"5 Ampere"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, true), u"5 Ampere"_s);
    QCOMPARE(set->displayValueText(Axis1, 0, true), u"5 Ampere"_s);
    QCOMPARE(set->adoptValueText(u"7 Ampere"_s, Axis1, 0, nullptr), u"7"_s);
}

void tst_CoordinateInstanceSetUnits::unitOfTheActiveAxis()
{
    InstanceStand stand;
    auto *active = stand.add(DefinitionBuilder().global().defaultValue(u"1"_s), u"E84"_s, {0});
    auto *unit =
        stand.add(DefinitionBuilder().kind(5).datatype(u"STRING16"_s).defaultValue(u"mm"_s),
            u"E13"_s, {1, 2});
    unit->setOnlineValueText(Axis2, 0, u"inch"_s);
    const auto *set = stand.add(DefinitionBuilder().units(u"<activeAxis:E13>"_s), u"A12"_s, {1, 2});
    // 0 is the first axis, 1 the second.
    QCOMPARE(set->valueText(Axis1, 0, true), u"0 inch"_s);
    active->setOnlineValueText(Global, 0, u"0"_s);
    QCOMPARE(set->valueText(Axis1, 0, true), u"0 mm"_s);
    QCOMPARE(set->valueText(Axis2, 0, true), u"0 mm"_s);
}

void tst_CoordinateInstanceSetUnits::measuringUnit_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<QString>("expected");
    QTest::newRow("scaled") << 18U << quint16(0) << u"A"_s;
    QTest::newRow("native") << 19U << quint16(1) << u"inc"_s;
    QTest::newRow("fieldbus is missing") << 26U << quint16(0) << QString();
    for (const quint32 property : {17U, 20U, 105U, 107U, 4294967295U})
        QTest::addRow("%u is no unit", property) << property << quint16(0) << QString();
    QTest::newRow("absent element") << 18U << quint16(2) << QString();
}

// All of it is silent.
void tst_CoordinateInstanceSetUnits::measuringUnit()
{
    QFETCH(quint32, property);
    QFETCH(quint16, element);
    QFETCH(QString, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .elementCount(2)
                                    .units(u"A"_s, u"inc"_s)
                                    .property(ChoiceMap, u"kein"_s)
                                    .without(FieldbusMeasuringUnit),
        u"A12"_s);
    for (const eLivingSpace livingSpace : {Global, Axis1, Axis2}) {
        const ParameterText unit =
            set->measuringUnit(eParameterProperty(property), livingSpace, element);
        QCOMPARE(unit.longText(), expected);
        QCOMPARE(unit.isEmpty(), expected.isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetUnits)

#include "tst_CoordinateInstanceSetUnits.moc"
