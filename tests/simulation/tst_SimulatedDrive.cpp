#include "apps/host/ActionForm.h"
#include "apps/host/ShippedDescriptions.h"
#include "apps/simulation/SimulatedDrive.h"
#include "tests/online/OnlineDevice.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <QtTest/QTest>

using eVerdict = SimulatedDrive::eVerdict;

namespace {

/// Values of all kinds at units 1 and 2; every one has a profile of its own.
QByteArray judgedDevice()
{
    return R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"],
  "dataTypes": ["INT8", "UINT16", "UINT64", "REAL32", "STRING8"],
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
     "elements": [{"dataType": "INT8", "limits": {"lower": -10, "upper": 10}}]},
    {"number": 2, "coordinates": ["A02"], "name": "N", "global": true,
     "elements": [{"dataType": "UINT64", "limits": {"lower": "1", "upper": "18446744073709551614"},
                   "default": 1}]},
    {"number": 3, "coordinates": ["A03"], "name": "N", "global": true,
     "elements": [{"dataType": "REAL32", "limits": {"lower": -1.5, "upper": 1.5}}]},
    {"number": 4, "coordinates": ["A04"], "name": "N", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 1, "choices": {"2": "zwei", "4": "vier"},
                   "default": 2}]},
    {"number": 5, "coordinates": ["A05"], "name": "N", "global": true,
     "elements": [{"dataType": "STRING8", "kind": 5}]},
    {"number": 6, "coordinates": ["A06"], "name": "N", "global": true,
     "elements": [{"dataType": "UINT16", "noWrite": 1}]}
  ]})";
}

/// The small device with a second action, C02; neither needs a disabled axis.
QByteArray twoActions()
{
    QByteArray description = OnlineDevice::description();
    description.replace("\"enableOffRequired\": 1", "\"enableOffRequired\": 0");
    const qsizetype begin = description.indexOf("{\"number\": 7,");
    const qsizetype end = description.indexOf("{\"number\": 8,");
    QByteArray second = description.mid(begin, end - begin);
    second.replace("\"number\": 7,", "\"number\": 9,").replace("C01", "C02");
    return description.insert(begin, second);
}

struct Setting {
    explicit Setting(const QByteArray &description = OnlineDevice::description())
        : device(description)
        , project(device.open())
        , drive(*project)
    {
    }

    QString native(const char *text)
    {
        const ParameterAddress a = address(text);
        return project->container().readValueNative(
            eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), false);
    }
    QList<quint16> registers(const char *text) { return drive.read(span(text)); }
    RegisterSpan span(const char *text)
    {
        const RegisterMap &map = drive.registerMap();
        return map.values().at(map.indexOf(address(text))).span;
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            drive.tick();
    }

    OnlineDevice device;
    std::unique_ptr<DriveProject> project;
    SimulatedDrive drive;
};

} // namespace

class tst_SimulatedDrive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void servesRegisters_data();
    void servesRegisters();
    void judgesWrites_data();
    void judgesWrites();
    void writesWholeValues_data();
    void writesWholeValues();
    void storesNothingWhereOneIsRefused();
    void keepsWhatTheTypeHolds();
    void startsUp();
    void runsAnAction();
    void abortsAnAction();
    void refusesAnActionOnAnEnabledAxis_data();
    void refusesAnActionOnAnEnabledAxis();
    void knowsActions();
    void knowsTheActionsOfShippedDevices_data();
    void knowsTheActionsOfShippedDevices();
    void enablesTheAxisForOtherActions();
    void enablesTheAxisForOverlappingActions();
    void startsUpBehindAnAction();
    void keepsAStateThatCameDuringAnAction();
    void movesMeasuredValues();
    void movesWithinLimits();
};

void tst_SimulatedDrive::servesRegisters_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<quint16>>("registers");

    using Registers = QList<quint16>;
    QTest::newRow("the signature") << 1 << 0 << 2 << Registers {0x4B52, 0x504D};
    QTest::newRow("the first value") << 1 << 16 << 1 << Registers {7};
    QTest::newRow("a long value") << 1 << 17 << 2 << Registers {1, 4464};
    QTest::newRow("half a value") << 1 << 18 << 1 << Registers {4464};
    QTest::newRow("across values") << 1 << 16 << 4 << Registers {7, 1, 4464, 0x6162};
    QTest::newRow("the last register") << 1 << 23 << 1 << Registers {0};
    QTest::newRow("behind the last") << 1 << 24 << 1 << Registers();
    QTest::newRow("up to behind the last") << 1 << 23 << 2 << Registers();
    QTest::newRow("up to the end of all registers") << 1 << 65535 << 125 << Registers();
    QTest::newRow("an axis") << 3 << 17 << 2 << Registers {0xFFFF, 0xFFFD};
    QTest::newRow("a unit that is not there") << 4 << 0 << 1 << Registers();
    QTest::newRow("unit 0") << 0 << 0 << 1 << Registers();
}

void tst_SimulatedDrive::servesRegisters()
{
    QFETCH(int, unit);
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(QList<quint16>, registers);

    const Setting s;
    QCOMPARE(s.drive.read({quint8(unit), quint16(first), quint16(count)}), registers);
}

void tst_SimulatedDrive::judgesWrites_data()
{
    QTest::addColumn<QString>("at");
    QTest::addColumn<QList<quint16>>("registers");
    QTest::addColumn<eVerdict>("verdict");

    using Registers = QList<quint16>;
    const auto row = [](const char *name, const char *at, const Registers &registers,
                         eVerdict verdict) {
        QTest::newRow(name) << QString::fromLatin1(at) << registers << verdict;
    };
    row("the lower limit", "A01", {0x00F6}, eVerdict::Done);
    row("below the lower limit", "A01", {0x00F5}, eVerdict::NotAccepted);
    row("the upper limit", "A01", {10}, eVerdict::Done);
    row("above the upper limit", "A01", {11}, eVerdict::NotAccepted);
    row("the high half plays no part", "A01", {0xFF0A}, eVerdict::Done);
    row("the upper limit of 64 bits", "A02", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFE}, eVerdict::Done);
    row("above it", "A02", {0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}, eVerdict::NotAccepted);
    row("below the lower one of 64 bits", "A02", {0, 0, 0, 0}, eVerdict::NotAccepted);
    row("a real at its limit", "A03", {0x3FC0, 0}, eVerdict::Done);
    row("a real beyond it", "A03", {0x3FC0, 1}, eVerdict::NotAccepted);
    row("a real below the lower one", "A03", {0xBFC0, 1}, eVerdict::NotAccepted);
    row("no number", "A03", {0x7FC0, 0}, eVerdict::NotAccepted);
    row("infinite", "A03", {0x7F80, 0}, eVerdict::NotAccepted);
    row("a choice", "A04", {4}, eVerdict::Done);
    row("no choice", "A04", {3}, eVerdict::NotAccepted);
    row("any text", "A05", {0xFFFF, 0, 0x4100, 0}, eVerdict::Done);
    row("a value that is only read", "A06", {1}, eVerdict::ReadOnly);
}

void tst_SimulatedDrive::judgesWrites()
{
    QFETCH(QString, at);
    QFETCH(QList<quint16>, registers);
    QFETCH(eVerdict, verdict);

    Setting s(judgedDevice());
    const QByteArray place = at.toLatin1();
    const QList<quint16> before = s.registers(place);
    QCOMPARE(s.drive.write(s.span(place), registers), verdict);
    if (verdict != eVerdict::Done)
        QCOMPARE(s.registers(place), before);
}

void tst_SimulatedDrive::writesWholeValues_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<eVerdict>("verdict");

    QTest::newRow("one value") << 16 << 1 << eVerdict::Done;
    QTest::newRow("several") << 16 << 7 << eVerdict::Done;
    QTest::newRow("to the end") << 16 << 8 << eVerdict::Done;
    QTest::newRow("the first half of one") << 17 << 1 << eVerdict::NoSuchValue;
    QTest::newRow("the second half of one") << 18 << 1 << eVerdict::NoSuchValue;
    QTest::newRow("one and a half") << 16 << 2 << eVerdict::NoSuchValue;
    QTest::newRow("the header") << 0 << 1 << eVerdict::NoSuchValue;
    QTest::newRow("the header and a value") << 15 << 2 << eVerdict::NoSuchValue;
    QTest::newRow("behind the end") << 24 << 1 << eVerdict::NoSuchValue;
    QTest::newRow("to behind the end") << 23 << 2 << eVerdict::NoSuchValue;
    QTest::newRow("the last register of all") << 65535 << 1 << eVerdict::NoSuchValue;
}

void tst_SimulatedDrive::writesWholeValues()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(eVerdict, verdict);

    Setting s;
    const QList<quint16> zeros(count);
    QCOMPARE(s.drive.write({1, quint16(first), quint16(count)}, zeros), verdict);
    QCOMPARE(s.drive.write({7, quint16(first), quint16(count)}, zeros), eVerdict::NoSuchValue);
}

void tst_SimulatedDrive::storesNothingWhereOneIsRefused()
{
    Setting s(judgedDevice());
    // A01 would take it, A02 does not take 0.
    QCOMPARE(s.drive.write({1, 16, 5}, {9, 0, 0, 0, 0}), eVerdict::NotAccepted);
    QCOMPARE(s.native("A01"), QStringLiteral("0"));
    QCOMPARE(s.drive.write({1, 16, 5}, {9, 0, 0, 0, 8}), eVerdict::Done);
    QCOMPARE(s.native("A01"), QStringLiteral("9"));
    QCOMPARE(s.native("A02"), QStringLiteral("8"));
    QCOMPARE(s.registers("A02"), (QList<quint16> {0, 0, 0, 8}));
}

void tst_SimulatedDrive::keepsWhatTheTypeHolds()
{
    Setting s;
    s.project->container().writeValueNative(
        eLivingSpace::Global, at("A03"), 0, QStringLiteral("abcdefghij"));
    QCOMPARE(s.registers("A03"), (QList<quint16> {0x6162, 0x6364, 0x6566, 0x6768}));
    s.drive.write({1, 19, 4}, {0x7879, 0, 0x7A7A, 0});
    QCOMPARE(s.native("A03"), QStringLiteral("xy"));
    QCOMPARE(s.registers("A03"), (QList<quint16> {0x7879, 0, 0, 0}));
}

void tst_SimulatedDrive::startsUp()
{
    Setting s;
    s.tick(4);
    QCOMPARE(s.native("1.E48"), QStringLiteral("0"));
    s.tick(1);
    QCOMPARE(s.native("1.E48"), QStringLiteral("1"));
    QCOMPARE(s.native("2.E48"), QStringLiteral("1"));
    s.tick(4);
    QCOMPARE(s.native("1.E48"), QStringLiteral("1"));
    s.tick(1);
    QCOMPARE(s.native("2.E48"), QStringLiteral("2"));
    QCOMPARE(s.registers("2.E48"), QList<quint16> {2});

    Setting changed;
    changed.project->container().writeValueNative(
        eLivingSpace::Axis1, at("E48"), 0, QStringLiteral("5"));
    changed.tick(20);
    QCOMPARE(changed.native("1.E48"), QStringLiteral("5"));
}

void tst_SimulatedDrive::runsAnAction()
{
    Setting s;
    const RegisterSpan control = s.span("2.C01[0]");
    QCOMPARE(s.drive.write(control, {2}), eVerdict::NotAccepted);
    QCOMPARE(s.drive.write(control, {1}), eVerdict::Done);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {1, 0, 0}));
    s.tick(1);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {1, 1, 0}));
    // Once more is no new start.
    QCOMPARE(s.drive.write(control, {1}), eVerdict::Done);
    s.tick(98);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {1, 99, 0}));
    s.tick(1);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {0, 100, 1}));
    s.tick(10);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {0, 100, 1}));
    QCOMPARE(s.drive.write(control, {1}), eVerdict::Done);
    QCOMPARE(s.drive.read({3, 19, 3}), (QList<quint16> {1, 0, 0}));
    // The other axis has its own.
    QCOMPARE(s.drive.read({2, 19, 3}), (QList<quint16> {0, 0, 0}));
}

void tst_SimulatedDrive::abortsAnAction()
{
    Setting s;
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {0}), eVerdict::Done);
    QCOMPARE(s.drive.read({2, 19, 3}), (QList<quint16> {0, 0, 0}));
    s.drive.write(s.span("1.C01[0]"), {1});
    s.tick(30);
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {0}), eVerdict::Done);
    QCOMPARE(s.drive.read({2, 19, 3}), (QList<quint16> {0, 30, 2}));
    s.tick(30);
    QCOMPARE(s.drive.read({2, 19, 3}), (QList<quint16> {0, 30, 2}));
}

void tst_SimulatedDrive::refusesAnActionOnAnEnabledAxis_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<eVerdict>("verdict");

    for (const int state : {0, 1, 2, 5, 8})
        QTest::addRow("state %d", state) << state << eVerdict::Done;
    for (const int state : {3, 4, 6, 7})
        QTest::addRow("state %d", state) << state << eVerdict::WrongState;
}

void tst_SimulatedDrive::refusesAnActionOnAnEnabledAxis()
{
    QFETCH(int, state);
    QFETCH(eVerdict, verdict);

    Setting s;
    s.project->container().writeValueNative(
        eLivingSpace::Axis1, at("E48"), 0, QString::number(state));
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {1}), verdict);
    // It needs a disabled axis and leaves it so.
    QCOMPARE(s.native("1.E48"), QString::number(state));
}

void tst_SimulatedDrive::knowsActions()
{
    const Setting s;
    const auto isAction = [&s](const char *text) {
        return ActionForm::isAction(*s.project->container().parameterInformation(at(text)));
    };
    QVERIFY(isAction("C01"));
    QVERIFY(!isAction("B01"));
    QVERIFY(!isAction("A04"));
}

void tst_SimulatedDrive::knowsTheActionsOfShippedDevices_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("actions");

    QTest::newRow("two axes") << QStringLiteral("two-axis-drive")
                              << QStringLiteral("J14 O00 O01 O02 O03 O04 O05 O06 O07 O08");
    QTest::newRow("four axes") << QStringLiteral("four-axis-controller")
                               << QStringLiteral("J14 O00 O01 O02 O03 O07 O08");
}

void tst_SimulatedDrive::knowsTheActionsOfShippedDevices()
{
    QFETCH(QString, device);
    QFETCH(QString, actions);

    QString error;
    const auto project = DriveProject::open(ShippedDescriptions::filePath(device), error);
    QVERIFY2(project, qPrintable(error));
    QStringList found;
    QList<ParameterCoordinate> coordinates = project->container().parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates)) {
        if (ActionForm::isAction(*project->container().parameterInformation(coordinate)))
            found.append(coordinate.toText());
    }
    // N02, the error history, is none though its number can be written.
    QCOMPARE(found.join(u' '), actions);
}

void tst_SimulatedDrive::enablesTheAxisForOtherActions()
{
    QByteArray description = OnlineDevice::description();
    description.replace("\"enableOffRequired\": 1", "\"enableOffRequired\": 0");
    Setting s(description);
    s.tick(10);
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {1}), eVerdict::Done);
    QCOMPARE(s.native("1.E48"), QStringLiteral("4"));
    QCOMPARE(s.native("2.E48"), QStringLiteral("2"));
    s.tick(100);
    QCOMPARE(s.native("1.E48"), QStringLiteral("2"));
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
}

void tst_SimulatedDrive::enablesTheAxisForOverlappingActions()
{
    Setting s(twoActions());
    s.tick(10);
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {1}), eVerdict::Done);
    s.tick(30);
    QCOMPARE(s.drive.write(s.span("1.C02[0]"), {1}), eVerdict::Done);
    s.tick(70);
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.E48"), QStringLiteral("4"));
    s.tick(30);
    QCOMPARE(s.native("1.C02[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.E48"), QStringLiteral("2"));
}

void tst_SimulatedDrive::startsUpBehindAnAction()
{
    Setting s(twoActions());
    QCOMPARE(s.drive.write(s.span("1.C01[0]"), {1}), eVerdict::Done);
    s.tick(99);
    QCOMPARE(s.native("1.E48"), QStringLiteral("4"));
    QCOMPARE(s.native("2.E48"), QStringLiteral("2"));
    s.tick(1);
    QCOMPARE(s.native("1.E48"), QStringLiteral("2"));
}

void tst_SimulatedDrive::keepsAStateThatCameDuringAnAction()
{
    Setting s(twoActions());
    s.drive.write(s.span("1.C01[0]"), {1});
    s.project->container().writeValueNative(eLivingSpace::Axis1, at("E48"), 0, QStringLiteral("5"));
    s.tick(100);
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.E48"), QStringLiteral("5"));
}

void tst_SimulatedDrive::movesMeasuredValues()
{
    Setting s;
    s.tick(4);
    QCOMPARE(s.native("1.B02"), QStringLiteral("-3"));
    s.tick(1);
    QCOMPARE(s.native("1.B02"), QStringLiteral("-2"));
    QCOMPARE(s.registers("1.B02"), (QList<quint16> {0xFFFF, 0xFFFE}));
    s.tick(19 * 5);
    QCOMPARE(s.native("1.B02"), QStringLiteral("17"));
    s.tick(5);
    QCOMPARE(s.native("1.B02"), QStringLiteral("16"));
    s.tick(19 * 5);
    QCOMPARE(s.native("1.B02"), QStringLiteral("-3"));
    s.tick(5);
    QCOMPARE(s.native("1.B02"), QStringLiteral("-2"));
    // Settings, states and the elements of actions stay.
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));
    QCOMPARE(s.native("1.C01[1]"), QStringLiteral("0"));

    QByteArray plainState = OnlineDevice::description();
    plainState.replace("\"dataType\": \"UINT8\", \"kind\": 1,", "\"dataType\": \"UINT8\",");
    Setting plain(plainState);
    plain.tick(50);
    QCOMPARE(plain.native("1.E48"), QStringLiteral("2"));
}

void tst_SimulatedDrive::movesWithinLimits()
{
    QByteArray description = OnlineDevice::description();
    description.replace(
        "\"dataType\": \"INT32\", \"default\": -3", "\"dataType\": \"UINT8\", \"default\": 240");
    Setting s(description);
    s.tick(5);
    QCOMPARE(s.native("1.B02"), QStringLiteral("239"));

    QByteArray narrow = OnlineDevice::description();
    narrow.replace(
        "\"default\": -3", "\"default\": 5, \"limits\": {\"lower\": -14, \"upper\": 24}");
    Setting still(narrow);
    still.tick(50);
    QCOMPARE(still.native("1.B02"), QStringLiteral("5"));
}

QTEST_GUILESS_MAIN(tst_SimulatedDrive)
#include "tst_SimulatedDrive.moc"
