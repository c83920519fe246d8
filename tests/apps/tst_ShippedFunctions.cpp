#include "apps/host/DriveProject.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QtTest>

namespace {

constexpr auto Axis1 = eLivingSpace::Axis1;
constexpr auto Axis2 = eLivingSpace::Axis2;
constexpr auto Global = eLivingSpace::Global;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

/// What writing one value of a shipped drive changes elsewhere through the drive's own functions.
class tst_ShippedFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyValueIsReadWithoutMessage_data();
    void everyValueIsReadWithoutMessage();
    void ratedCurrentLimitsCurrents_data();
    void ratedCurrentLimitsCurrents();
    void maximumCurrentFollowsTheRatedCurrent();
    void motorTypeHides_data();
    void motorTypeHides();
    void modeOfOperationHides_data();
    void modeOfOperationHides();
    void unitSystemChangesUnitsAndScaling_data();
    void unitSystemChangesUnitsAndScaling();
    void feedConstantScales();
    void unitSystemOfOneAxisAlone();
    void encoderBitsGiveItsResolution();
    void mappingGivesTheTelegramLength();
    void controllerKeepsMaximumCurrent();
    void controllerFeedScales();
    void controllerEncoderBitsGiveTheResolution();
    void controllerMappingGivesTheTelegramLength();

private:
    static std::unique_ptr<DriveProject> open(const QString &name)
    {
        QString error;
        std::unique_ptr<DriveProject> project = DriveProject::open(
            QFINDTESTDATA("../../devices") + u'/' + name + QStringLiteral(".json"), error);
        if (!project)
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return project;
    }
    static std::unique_ptr<DriveProject> twoAxisDrive()
    {
        return open(QStringLiteral("two-axis-drive"));
    }
    static ParameterSetup &at(DriveProject &project, const char *coordinate)
    {
        return *project.container().parameterSetup(
            ParameterCoordinate(QString::fromLatin1(coordinate)));
    }
    static QString shown(DriveProject &project, const char *coordinate, eLivingSpace livingSpace,
        quint16 element = 0)
    {
        return project.container().readValue(
            livingSpace, ParameterCoordinate(QString::fromLatin1(coordinate)), element, true);
    }
    static QString native(DriveProject &project, const char *coordinate, eLivingSpace livingSpace,
        quint16 element = 0)
    {
        return project.container().readValueNative(
            livingSpace, ParameterCoordinate(QString::fromLatin1(coordinate)), element, false);
    }
    static void write(DriveProject &project, const char *coordinate, eLivingSpace livingSpace,
        const char *display, quint16 element = 0)
    {
        at(project, coordinate).setValueText(livingSpace, element, text(display));
    }
};

void tst_ShippedFunctions::everyValueIsReadWithoutMessage_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("two-axis drive") << QStringLiteral("two-axis-drive");
    QTest::newRow("four-axis controller") << QStringLiteral("four-axis-controller");
}

void tst_ShippedFunctions::everyValueIsReadWithoutMessage()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    const auto project = open(name);
    QVERIFY(project);
    ParameterContainer &container = project->container();
    for (const ParameterCoordinate &coordinate : container.parameterList()) {
        const ParameterSetup &parameter = *container.parameterSetup(coordinate);
        for (const eLivingSpace livingSpace : parameter.livingSpaces()) {
            for (const quint16 element : parameter.elementList()) {
                parameter.valueText(livingSpace, element, true);
                parameter.lowerLimitText(livingSpace, element);
                parameter.upperLimitText(livingSpace, element);
                parameter.isHidden(livingSpace, element);
            }
        }
    }
}

void tst_ShippedFunctions::ratedCurrentLimitsCurrents_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rated");
    QTest::addColumn<QString>("currentLimit");
    QTest::addColumn<QString>("maximumCurrent");
    QTest::addColumn<QString>("lowestPeak");

    const auto row = [](const char *rule, const char *name, const char *rated, const char *limit,
                         const char *maximum, const char *peak) {
        QTest::newRow(rule) << text(name) << text(rated) << text(limit) << text(maximum)
                            << text(peak);
    };
    row("two axes, as delivered", "two-axis-drive", "4.2", "60000", "5000", "4200");
    row("two axes, small motor", "two-axis-drive", "2", "30000", "5000", "2000");
    row("two axes, large motor", "two-axis-drive", "10", "60000", "3600", "10000");
    row("four axes, as delivered", "four-axis-controller", "2.5", "10000", "4000", "2500");
    row("four axes, small motor", "four-axis-controller", "0.5", "7500", "4000", "500");
    row("four axes, large motor", "four-axis-controller", "5", "10000", "2000", "5000");
}

void tst_ShippedFunctions::ratedCurrentLimitsCurrents()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    QFETCH(QString, rated);
    const auto project = open(name);
    QVERIFY(project);
    write(*project, "B01", Axis1, rated.toLatin1());
    QTEST(at(*project, "H00").upperLimitText(Axis1, 0), "currentLimit");
    QTEST(at(*project, "H01").upperLimitText(Axis1, 0), "maximumCurrent");
    QTEST(at(*project, "B04").lowerLimitText(Axis1, 0), "lowestPeak");
}

void tst_ShippedFunctions::maximumCurrentFollowsTheRatedCurrent()
{
    MessageRecorder recorder;
    const auto project = twoAxisDrive();
    QVERIFY(project);
    write(*project, "H01", Axis1, "500");
    QCOMPARE(native(*project, "H01", Axis1), text("5000"));
    write(*project, "B01", Axis1, "10");
    QCOMPARE(native(*project, "H01", Axis1), text("3600"));
    // What is inside of the limits stays, and so does the other axis.
    write(*project, "B01", Axis1, "4.2");
    QCOMPARE(native(*project, "H01", Axis1), text("3600"));
    QCOMPARE(native(*project, "H01", Axis2), text("3000"));
}

void tst_ShippedFunctions::motorTypeHides_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("motor");
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QStringList>("shown");

    const QStringList absolute {
        text("B21"), text("B22"), text("C03"), text("C04"), text("C09"), text("C10"), text("C12")};
    const QStringList induction {text("B24"), text("B25")};
    const QStringList commutation {text("B21"), text("B22"), text("C12")};
    const QStringList stepper {text("V00"), text("V01"), text("V04")};
    const auto row = [](const char *rule, const char *name, const char *motor,
                         const QStringList &hidden, const QStringList &shown) {
        QTest::newRow(rule) << text(name) << text(motor) << hidden << shown;
    };
    row("synchronous servo motor", "two-axis-drive", "10", induction, absolute);
    row("induction motor", "two-axis-drive", "7", absolute, induction);
    row("reluctance motor", "two-axis-drive", "12", induction, absolute);
    row("non-standard motor", "two-axis-drive", "0", {}, absolute + induction);
    row("block commutation", "four-axis-controller", "11", stepper, commutation);
    row("DC motor", "four-axis-controller", "1", commutation + stepper, {});
    row("microstep motor", "four-axis-controller", "9", commutation, stepper);
}

void tst_ShippedFunctions::motorTypeHides()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    QFETCH(QString, motor);
    QFETCH(QStringList, hidden);
    QFETCH(QStringList, shown);
    const auto project = open(name);
    QVERIFY(project);
    // Asked once before, so that the write has to change the answers.
    for (const QString &coordinate : hidden + shown)
        at(*project, coordinate.toLatin1()).isHidden(Axis1, 0);
    write(*project, "B00", Axis1, motor.toLatin1());
    for (const QString &coordinate : hidden)
        QVERIFY2(at(*project, coordinate.toLatin1()).isHidden(Axis1, 0), qPrintable(coordinate));
    for (const QString &coordinate : shown)
        QVERIFY2(!at(*project, coordinate.toLatin1()).isHidden(Axis1, 0), qPrintable(coordinate));
}

void tst_ShippedFunctions::modeOfOperationHides_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("areRampsHidden");
    QTest::addColumn<bool>("isTorqueSlopeHidden");

    for (const char *name : {"two-axis-drive", "four-axis-controller"}) {
        const auto row = [name](const char *rule, const char *mode, bool ramps, bool slope) {
            QTest::addRow("%s: %s", name, rule) << text(name) << text(mode) << ramps << slope;
        };
        row("none", "0", false, false);
        row("profile position", "1", false, true);
        row("profile velocity", "3", false, true);
        row("profile torque", "4", true, false);
        row("homing", "6", false, true);
        row("cyclic synchronous position", "8", true, true);
        row("own mode", "-1", false, false);
    }
}

void tst_ShippedFunctions::modeOfOperationHides()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    QFETCH(QString, mode);
    const auto project = open(name);
    QVERIFY(project);
    for (const char *coordinate : {"I00", "I02", "I03", "D20"})
        at(*project, coordinate).isHidden(Axis1, 0);
    write(*project, "E10", Axis1, mode.toLatin1());
    for (const char *coordinate : {"I00", "I02", "I03"})
        QTEST(at(*project, coordinate).isHidden(Axis1, 0), "areRampsHidden");
    QTEST(at(*project, "D20").isHidden(Axis1, 0), "isTorqueSlopeHidden");
    // Quick stop and jogging need their ramps in every mode.
    QVERIFY(!at(*project, "I04").isHidden(Axis1, 0));
    QVERIFY(!at(*project, "I09").isHidden(Axis1, 0));
}

void tst_ShippedFunctions::unitSystemChangesUnitsAndScaling_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("position");
    QTest::addColumn<QString>("velocity");
    QTest::addColumn<QString>("acceleration");

    const auto row = [](const char *rule, const char *name, const char *system,
                         const char *position, const char *velocity, const char *acceleration) {
        QTest::newRow(rule) << text(name) << text(system) << text(position) << text(velocity)
                            << text(acceleration);
    };
    row("two axes, metric", "two-axis-drive", "0", "65.536 mm", "200.00 mm/s", "2000.0 mm/s²");
    row("two axes, rotary", "two-axis-drive", "1", "2359.296 °", "7200.00 °/s", "72000.0 °/s²");
    row("two axes, imperial", "two-axis-drive", "2", "2.580 in", "7.87 in/s", "78.7 in/s²");
    row("four axes, metric", "four-axis-controller", "0", "10.000 mm", "50.0 mm/s", "250.0 mm/s²");
    row("four axes, rotary", "four-axis-controller", "1", "360.000 °", "1800.0 °/s", "9000.0 °/s²");
    row("four axes, imperial", "four-axis-controller", "2", "0.394 in", "2.0 in/s", "9.8 in/s²");
}

void tst_ShippedFunctions::unitSystemChangesUnitsAndScaling()
{
    MessageRecorder recorder;
    QFETCH(QString, name);
    QFETCH(QString, system);
    const auto project = open(name);
    QVERIFY(project);
    project->container().writeValueNative(
        Axis1, ParameterCoordinate(QStringLiteral("H05")), 1, QStringLiteral("65536"));
    write(*project, "E11", Axis1, system.toLatin1());
    QTEST(shown(*project, "H05", Axis1, 1), "position");
    QTEST(shown(*project, "I00", Axis1), "velocity");
    QTEST(shown(*project, "I02", Axis1), "acceleration");
    // What is shown is written back as the same number of the drive.
    QCOMPARE(native(*project, "H05", Axis1, 1), text("65536"));
    QFETCH(QString, position);
    write(*project, "H05", Axis1, position.toUtf8(), 1);
    QFETCH(QString, velocity);
    write(*project, "I00", Axis1, velocity.toUtf8());
    QTEST(shown(*project, "H05", Axis1, 1), "position");
    QTEST(shown(*project, "I00", Axis1), "velocity");
}

void tst_ShippedFunctions::feedConstantScales()
{
    MessageRecorder recorder;
    const auto project = twoAxisDrive();
    QVERIFY(project);
    project->container().writeValueNative(
        Axis1, ParameterCoordinate(QStringLiteral("H05")), 1, QStringLiteral("25400"));
    write(*project, "E11", Axis1, "1");
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("914.400 °"));
    write(*project, "C32", Axis1, "5", 1);
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("1828.800 °"));
    write(*project, "C32", Axis1, "2", 2);
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("3657.600 °"));
    QCOMPARE(shown(*project, "C32", Axis1, 1), text("5.000 mm"));
}

void tst_ShippedFunctions::unitSystemOfOneAxisAlone()
{
    MessageRecorder recorder;
    const auto project = twoAxisDrive();
    QVERIFY(project);
    write(*project, "E11", Axis2, "1");
    QCOMPARE(shown(*project, "E12", Axis1), text("mm"));
    QCOMPARE(shown(*project, "E12", Axis2), text("°"));
    QCOMPARE(shown(*project, "E16", Axis2), text("°/s³"));
    QCOMPARE(shown(*project, "I00", Axis1), text("200.00 mm/s"));
    QCOMPARE(shown(*project, "I00", Axis2), text("7200.00 °/s"));
}

void tst_ShippedFunctions::encoderBitsGiveItsResolution()
{
    MessageRecorder recorder;
    const auto project = twoAxisDrive();
    QVERIFY(project);
    QCOMPARE(native(*project, "C01", Axis1, 1), text("1048576"));
    write(*project, "C04", Axis1, "24");
    QCOMPARE(native(*project, "C01", Axis1, 1), text("16777216"));
    write(*project, "C04", Axis1, "32");
    QCOMPARE(native(*project, "C01", Axis1, 1), text("4294967295"));
    QCOMPARE(native(*project, "C01", Axis2, 1), text("1048576"));
}

void tst_ShippedFunctions::mappingGivesTheTelegramLength()
{
    MessageRecorder recorder;
    const auto project = twoAxisDrive();
    QVERIFY(project);
    QCOMPARE(native(*project, "M04", Global, 0), text("14"));
    QCOMPARE(native(*project, "M04", Global, 1), text("14"));
    const auto map = [&](const char *mapping, quint16 entry, const char *address) {
        project->container().writeValueNative(Global,
            ParameterCoordinate(QString::fromLatin1(mapping)), entry, QString::fromLatin1(address));
    };
    // H00, four bytes.
    map("M00", 6, "8000");
    QCOMPARE(native(*project, "M04", Global, 0), text("18"));
    QCOMPARE(native(*project, "M04", Global, 1), text("14"));
    // Nothing instead of E00, two bytes.
    map("M01", 0, "4294967295");
    QCOMPARE(native(*project, "M04", Global, 0), text("18"));
    QCOMPARE(native(*project, "M04", Global, 1), text("12"));
}

void tst_ShippedFunctions::controllerKeepsMaximumCurrent()
{
    MessageRecorder recorder;
    const auto project = open(QStringLiteral("four-axis-controller"));
    QVERIFY(project);
    write(*project, "H01", Axis1, "400");
    write(*project, "H01", Axis2, "400");
    QCOMPARE(native(*project, "H01", Axis1), text("4000"));
    write(*project, "B01", Axis1, "5");
    QCOMPARE(native(*project, "H01", Axis1), text("2000"));
    QCOMPARE(native(*project, "H01", Axis2), text("4000"));
}

void tst_ShippedFunctions::controllerFeedScales()
{
    MessageRecorder recorder;
    const auto project = open(QStringLiteral("four-axis-controller"));
    QVERIFY(project);
    project->container().writeValueNative(
        Axis1, ParameterCoordinate(QStringLiteral("H05")), 1, QStringLiteral("65536"));
    write(*project, "E11", Axis1, "0");
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("10.000 mm"));
    write(*project, "C32", Axis1, "5", 1);
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("5.000 mm"));
    write(*project, "C32", Axis1, "2", 2);
    QCOMPARE(shown(*project, "H05", Axis1, 1), text("2.500 mm"));
}

void tst_ShippedFunctions::controllerEncoderBitsGiveTheResolution()
{
    MessageRecorder recorder;
    const auto project = open(QStringLiteral("four-axis-controller"));
    QVERIFY(project);
    QCOMPARE(native(*project, "C01", Axis1, 1), text("65536"));
    write(*project, "C04", Axis1, "8");
    QCOMPARE(native(*project, "C01", Axis1, 1), text("256"));
    write(*project, "C04", Axis1, "24");
    QCOMPARE(native(*project, "C01", Axis1, 1), text("16777216"));
    QCOMPARE(native(*project, "C01", Axis2, 1), text("65536"));
}

void tst_ShippedFunctions::controllerMappingGivesTheTelegramLength()
{
    MessageRecorder recorder;
    const auto project = open(QStringLiteral("four-axis-controller"));
    QVERIFY(project);
    const auto map = [&](quint16 entry, const char *address) {
        project->container().writeValueNative(Global, ParameterCoordinate(QStringLiteral("M00")),
            entry, QString::fromLatin1(address));
    };
    // A control word of two bytes and a target position of four for each axis.
    QCOMPARE(native(*project, "M04", Global, 0), text("24"));
    map(8, "7010");
    QCOMPARE(native(*project, "M04", Global, 0), text("28"));
    map(0, "4294967295");
    QCOMPARE(native(*project, "M04", Global, 0), text("26"));
}

QTEST_GUILESS_MAIN(tst_ShippedFunctions)
#include "tst_ShippedFunctions.moc"
