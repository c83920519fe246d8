#include <KrParameterInstance/ParameterValueSnapshot.h>

#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/MessageRecorder.h"

#include <QtTest/QTest>

/// The units that a snapshot of a real container holds.
class tst_SnapshotUnits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formsAndUnits();
    void kindFiveHasNoUnit();
    void locatorUnits();
    void locatorUnitsOfEmptyTexts();
    void locatorOfTheActiveAxis();
    void oneLocatorOnePlainUnit();
    void locatorOfNothing();
};

namespace {

constexpr eLivingSpace Global = eLivingSpace::Global;
constexpr eLivingSpace Axis1 = eLivingSpace::Axis1;
constexpr eLivingSpace Axis2 = eLivingSpace::Axis2;

/// Adds A76 with "mm" on axis 1 and "Grad" on axis 2.
void addUnitParameter(SnapshotFixture &fixture)
{
    fixture.add(SnapshotFixture::parameter("A76", "Unit"));
    fixture.write(1, "A76", 0, QStringLiteral("mm"));
    fixture.write(2, "A76", 0, QStringLiteral("Grad"));
}

} // namespace

void tst_SnapshotUnits::formsAndUnits()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Speed")
                    .kind(3)
                    .datatype(QStringLiteral("UINT8"))
                    .global()
                    .units(QStringLiteral("rpm"), QStringLiteral("inc")));
    fixture.write(0, "A00", 0, QStringLiteral("255"));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.valueNative(Global, at("A00"), 0, false), QStringLiteral("255"));
    QCOMPARE(snapshot.valueNative(Global, at("A00"), 0, true), QStringLiteral("255 inc"));
    QCOMPARE(snapshot.undecoratedValue(Global, at("A00"), 0, false), QStringLiteral("255"));
    QCOMPARE(snapshot.undecoratedValue(Global, at("A00"), 0, true), QStringLiteral("255 rpm"));
    QCOMPARE(snapshot.value(Global, at("A00"), 0, false), QStringLiteral("ff hex"));
    QCOMPARE(snapshot.value(Global, at("A00"), 0, true), QStringLiteral("ff hex rpm"));
}

void tst_SnapshotUnits::kindFiveHasNoUnit()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Choice")
                    .kind(5)
                    .global()
                    .units(QStringLiteral("rpm"), QStringLiteral("inc")));
    fixture.write(0, "A00", 0, QStringLiteral("3"));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(
        snapshot.value(Global, at("A00"), 0, true), snapshot.value(Global, at("A00"), 0, false));
    QCOMPARE(snapshot.valueNative(Global, at("A00"), 0, true), QStringLiteral("3"));
    QCOMPARE(snapshot.undecoratedValue(Global, at("A00"), 0, true), QStringLiteral("3"));
}

/// The accessor of a unit knows one living space only; a snapshot knows each.
void tst_SnapshotUnits::locatorUnits()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A76", "Unit"));
    fixture.add(SnapshotFixture::parameter("A00", "Position")
                    .units(QStringLiteral("<localAxis:A76>"), QStringLiteral("<localAxis:A76>")));
    fixture.write(1, "A76", 0, QStringLiteral("mm"));
    fixture.write(2, "A76", 0, QStringLiteral("Grad"));
    fixture.write(1, "A00", 0, QStringLiteral("1"));
    fixture.write(2, "A00", 0, QStringLiteral("2"));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("1 mm"));
    QCOMPARE(snapshot.value(Axis2, at("A00"), 0, true), QStringLiteral("2 Grad"));
    QCOMPARE(snapshot.valueNative(Axis2, at("A00"), 0, true), QStringLiteral("2 Grad"));
    QCOMPARE(snapshot.undecoratedValue(Axis2, at("A00"), 0, true), QStringLiteral("2 Grad"));
}

/// No text shows the unit here.
void tst_SnapshotUnits::locatorUnitsOfEmptyTexts()
{
    SnapshotFixture fixture;
    addUnitParameter(fixture);
    fixture.add(SnapshotFixture::parameter("A00", "Label")
                    .defaultValue(QString())
                    .units(QStringLiteral("<localAxis:A76>"), QStringLiteral("<localAxis:A76>")));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, false), QString());
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral(" mm"));
    QCOMPARE(snapshot.value(Axis2, at("A00"), 0, true), QStringLiteral(" Grad"));
    QCOMPARE(snapshot.valueNative(Axis2, at("A00"), 0, true), QStringLiteral(" Grad"));
    QCOMPARE(snapshot.undecoratedValue(Axis2, at("A00"), 0, true), QStringLiteral(" Grad"));
}

void tst_SnapshotUnits::locatorOfTheActiveAxis()
{
    SnapshotFixture fixture;
    addUnitParameter(fixture);
    fixture.add(SnapshotFixture::parameter("E84", "Active axis")
                    .global()
                    .defaultValue(QStringLiteral("1")));
    fixture.add(SnapshotFixture::parameter("A00", "Position")
                    .units(QStringLiteral("<activeAxis:A76>"), QStringLiteral("<localAxis:A76>")));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("0 Grad"));
    QCOMPARE(snapshot.valueNative(Axis1, at("A00"), 0, true), QStringLiteral("0 mm"));
}

void tst_SnapshotUnits::oneLocatorOnePlainUnit()
{
    SnapshotFixture fixture;
    addUnitParameter(fixture);
    fixture.add(SnapshotFixture::parameter("A00", "Position")
                    .units(QStringLiteral("<localAxis:A76>"), QStringLiteral("inc")));
    fixture.add(SnapshotFixture::parameter("A01", "Distance")
                    .units(QStringLiteral("inc"), QStringLiteral("<localAxis:A76>")));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("0 mm"));
    QCOMPARE(snapshot.value(Axis2, at("A00"), 0, true), QStringLiteral("0 Grad"));
    QCOMPARE(snapshot.valueNative(Axis2, at("A00"), 0, true), QStringLiteral("0 inc"));
    QCOMPARE(snapshot.value(Axis2, at("A01"), 0, true), QStringLiteral("0 inc"));
    QCOMPARE(snapshot.valueNative(Axis1, at("A01"), 0, true), QStringLiteral("0 mm"));
    QCOMPARE(snapshot.valueNative(Axis2, at("A01"), 0, true), QStringLiteral("0 Grad"));
}

/// Empty, and said once for each value.
void tst_SnapshotUnits::locatorOfNothing()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Position")
                    .global()
                    .units(QStringLiteral("<localAxis:A99>"), QStringLiteral("inc")));
    MessageRecorder messages;
    ParameterValueSnapshot snapshot(fixture.container.get());
    messages.expect(MessageRecorder::eSeverity::Warning, QStringLiteral("CoordinateInstanceSet"),
        QStringLiteral("unknown property value \"scaled measuring unit\" at parameter A00\""));
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Global, at("A00"), 0, true), QStringLiteral("0"));
    QCOMPARE(snapshot.valueNative(Global, at("A00"), 0, true), QStringLiteral("0 inc"));
}

QTEST_GUILESS_MAIN(tst_SnapshotUnits)
#include "tst_SnapshotUnits.moc"
