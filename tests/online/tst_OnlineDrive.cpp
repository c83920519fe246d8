#include "apps/online/OnlineSession.h"
#include "tests/online/DriveProcess.h"
#include "tests/online/OnlineDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using eState = OnlineSession::eState;
using eKind = OnlineOutcome::eKind;
using std::chrono::milliseconds;

// A drive on a busy machine takes its time; waiting for what comes at once costs nothing.
#define QTRY_COMPARE_PATIENTLY(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, 60000)
#define QTRY_VERIFY_PATIENTLY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, 60000)

namespace {

constexpr int ParameterCount = 20;
constexpr int ElementCount = 100;
constexpr int AxisCount = 2;
constexpr int ValueCount = ParameterCount * ElementCount * AxisCount;

enum class eDefaults { Numbered, Zero };

/// 4,000 values of all kinds of types. Numbered, element e of parameter p begins with 1000 p + e.
QByteArray largeDevice(eDefaults defaults)
{
    constexpr const char *Types[] = {"UINT32", "INT64", "REAL32", "STRING8", "REAL64"};
    QStringList parameters;
    for (int p = 1; p <= ParameterCount; ++p) {
        QStringList values;
        for (int e = 0; e < ElementCount; ++e)
            values.append(QString::number(p * 1000 + e));
        const QString list = defaults == eDefaults::Numbered
            ? QStringLiteral(R"("defaults": ["%1"],)").arg(values.join(QLatin1String(R"(", ")")))
            : QString();
        parameters.append(QStringLiteral(R"({"number": %1, "coordinates": ["A%2"], "name": "N%1", %3
                "elementCount": 100, "elements": [{"dataType": "%4", "kind": %5, "onlineOrder": %6}]})")
                              .arg(p)
                              .arg(p, 2, 10, QLatin1Char('0'))
                              .arg(list, QLatin1String(Types[p % 5]))
                              .arg(p % 5 == 3 ? 5 : 0)
                              .arg(p % 3));
    }
    return QStringLiteral(R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 78, "name": "Large drive", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de"], "dataTypes": ["UINT32", "INT64", "REAL32", "REAL64", "STRING8"],
  "parameters": [%1]})")
        .arg(parameters.join(QLatin1String(", ")))
        .toUtf8();
}

OnlineRules rules()
{
    OnlineRules rules;
    rules.answerSpan = milliseconds(200);
    rules.firstPause = milliseconds(10);
    rules.cycleInterval = milliseconds(5);
    rules.firstContactPause = milliseconds(50);
    rules.contactAttempts = 20;
    return rules;
}

/// A host and a drive. Their descriptions may differ in what does not move registers.
struct Setting {
    Setting(const QByteArray &hostDescription, const QByteArray &driveDescription,
        const QStringList &options = {QStringLiteral("--tick"), QStringLiteral("0")},
        const OnlineRules &rules = ::rules())
        : host(hostDescription)
        , driveDevice(driveDescription)
        , driveOptions(options)
        , project(host.open())
        , container(project->container())
    {
        isUp = drive.start(driveDevice.fileName(), 0, options);
        session = OnlineSession::overModbusTcp(
            container, QStringLiteral("127.0.0.1"), drive.port(), rules);
        QObject::connect(session.get(), &OnlineSession::valueReported, session.get(),
            [this](const OnlineOutcome &outcome) {
                ++reports;
                if (!outcome.isGood())
                    losses.append(outcome.toText());
            });
        QObject::connect(session.get(), &OnlineSession::connectionFailed, session.get(),
            [this](const QString &reason) { failures.append(reason); });
    }

    bool restartDrive()
    {
        drive.kill();
        return drive.start(driveDevice.fileName(), drive.port(), driveOptions);
    }
    QString native(const char *text)
    {
        const ParameterAddress a = address(text);
        return container.readValueNative(
            eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), false);
    }
    void write(const char *text, const QString &display)
    {
        const ParameterAddress a = address(text);
        container.writeValue(eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), display);
    }
    /// The first value that is not 1000 p + e; empty where all are.
    QString firstWrongNumber()
    {
        for (int axis = 1; axis <= AxisCount; ++axis) {
            for (int p = 1; p <= ParameterCount; ++p) {
                const ParameterCoordinate coordinate(1, quint16(p));
                for (int e = 0; e < ElementCount; ++e) {
                    const QString text = container.readValueNative(
                        eLivingSpace(axis), coordinate, quint16(e), false);
                    if (text != QString::number(p * 1000 + e))
                        return coordinate.toText() + u' ' + QString::number(e) + u' ' + text;
                }
            }
        }
        return {};
    }

    OnlineDevice host;
    OnlineDevice driveDevice;
    QStringList driveOptions;
    std::unique_ptr<DriveProject> project;
    ParameterContainer &container;
    DriveProcess drive;
    bool isUp = false;
    int reports = 0;
    QStringList losses;
    QStringList failures;
    /// Goes first: it tells of its end.
    std::unique_ptr<OnlineSession> session;
};

struct LargeSetting : Setting {
    LargeSetting()
        : Setting(largeDevice(eDefaults::Zero), largeDevice(eDefaults::Numbered))
    {
    }
};

QByteArray smallDevice()
{
    return OnlineDevice::description();
}

} // namespace

class tst_OnlineDrive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void meetsItsDrive();
    void meetsAnotherDevice();
    void meetsNobody();
    void meetsSomethingElse_data();
    void meetsSomethingElse();

    void uploadsEverything();
    void uploadsThroughFaults_data();
    void uploadsThroughFaults();
    void losesTheDriveInTheMiddleOfAnUpload();
    void losesADriveThatFallsSilent();

    void runsAnAction();
    void losesTheDriveInTheMiddleOfAnAction();
    void startsAnActionOnceThoughTheAnswerIsLost();

    void isRefusedAWrite();
    void learnsWhatTheDriveCut();
    void writesThroughFaults_data();
    void writesThroughFaults();
    void downloadsEverything();
    void followsTheState();
};

void tst_OnlineDrive::meetsItsDrive()
{
    const MessageRecorder recorder;
    Setting s(smallDevice(), smallDevice());
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QVERIFY(s.container.isOnline());
    s.session->goOffline();
    QVERIFY(!s.container.isOnline());
    // And once more.
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QVERIFY(s.failures.isEmpty());
}

void tst_OnlineDrive::meetsAnotherDevice()
{
    QByteArray other = smallDevice();
    other.replace("\"dataType\": \"INT16\"", "\"dataType\": \"UINT16\"");
    other.replace("\"lower\": -100", "\"lower\": 0");
    Setting s(smallDevice(), other);
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.failures,
        QStringList {
            QStringLiteral("der Antrieb ist ein anderes Gerät als das beschriebene (Einheit 2)")});
    QCOMPARE(s.session->state(), eState::Offline);
    QVERIFY(!s.container.isOnline());
    QCOMPARE(s.native("A01"), QStringLiteral("7"));
}

void tst_OnlineDrive::meetsNobody()
{
    OnlineRules rules = ::rules();
    rules.contactAttempts = 2;
    Setting s(smallDevice(), smallDevice(), {}, rules);
    QVERIFY(s.isUp);
    s.drive.kill();
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.failures.size(), 1);
    QCOMPARE(s.session->state(), eState::Offline);
    QVERIFY(s.restartDrive());
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
}

void tst_OnlineDrive::meetsSomethingElse_data()
{
    QTest::addColumn<bool>("isClosing");
    QTest::addColumn<QByteArray>("says");

    QTest::newRow("that says nothing") << false << QByteArray();
    QTest::newRow("that hangs up") << true << QByteArray();
    QTest::newRow("that speaks another protocol")
        << false << QByteArray("HTTP/1.1 400 Bad Request\r\n\r\n").repeated(20);
    QTest::newRow("that sends zeros") << false << QByteArray(5000, '\0');
    QTest::newRow("that sends ones") << false << QByteArray(70000, '\xFF');
    // Answers to the first transactions, with registers missing and with none.
    QTest::newRow("that answers too little")
        << false
        << QByteArray::fromHex("00000000000501030200aa 000100000003010300 000200000002 0103");
}

void tst_OnlineDrive::meetsSomethingElse()
{
    QFETCH(bool, isClosing);
    QFETCH(QByteArray, says);

    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, &server, [&server, isClosing, says] {
        QTcpSocket *socket = server.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket, [socket, isClosing, says] {
            socket->readAll();
            socket->write(says);
            if (isClosing)
                socket->abort();
        });
    });
    const OnlineDevice device(smallDevice());
    const auto project = device.open();
    OnlineRules rules = ::rules();
    rules.contactAttempts = 2;
    const auto session = OnlineSession::overModbusTcp(
        project->container(), QStringLiteral("127.0.0.1"), server.serverPort(), rules);
    const QSignalSpy failures(session.get(), &OnlineSession::connectionFailed);
    session->goOnline();
    QTRY_COMPARE_PATIENTLY(failures.size(), 1);
    QCOMPARE(session->state(), eState::Offline);
    QVERIFY(!project->container().isOnline());
}

void tst_OnlineDrive::uploadsEverything()
{
    const MessageRecorder recorder;
    LargeSetting s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QVERIFY(s.session->upload());
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("4000 Werte: 4000 geändert"));
    QCOMPARE(s.firstWrongNumber(), QString());
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("4000 Werte: 4000 unverändert"));
}

void tst_OnlineDrive::uploadsThroughFaults_data()
{
    QTest::addColumn<QStringList>("orders");

    const auto row = [](const char *name, std::initializer_list<const char *> orders) {
        QStringList texts;
        for (const char *order : orders)
            texts.append(QLatin1String(order));
        QTest::newRow(name) << texts;
    };
    row("the first answers are lost", {"lose 3"});
    row("answers come late", {"delay 6 300"});
    row("answers come late and are overtaken", {"delay 6 20"});
    row("every answer comes twice", {"double 1000000"});
    row("twice and late", {"double 12", "delay 12 300"});
    row("the drive is busy", {"busy 9"});
    row("the drive refuses blocks", {"refuse 2"});
    row("lost, twice and busy", {"lose 2", "double 20", "busy 6"});
}

void tst_OnlineDrive::uploadsThroughFaults()
{
    QFETCH(QStringList, orders);

    const MessageRecorder recorder;
    LargeSetting s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    for (const QString &order : orders)
        QCOMPARE(s.drive.order(order), QStringLiteral("ok"));
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.reports, ValueCount);
    QCOMPARE(s.firstWrongNumber(), QString());
    QCOMPARE(s.session->state(), eState::Online);
}

void tst_OnlineDrive::losesTheDriveInTheMiddleOfAnUpload()
{
    const MessageRecorder recorder;
    LargeSetting s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    // It answers some, so that the upload cannot be over.
    s.drive.order(QStringLiteral("silent 10"));
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(s.reports > 0);
    s.drive.kill();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Offline);
    QVERIFY(!s.container.isOnline());
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.failures.size(), 1);
    const OnlineReport &report = s.session->report();
    QCOMPARE(report.outcomes().size(), ValueCount);
    QVERIFY(report.count(eKind::Changed) > 0);
    QCOMPARE(report.count(eKind::Changed) + report.count(eKind::Lost), ValueCount);
    QCOMPARE(s.losses.size(), report.count(eKind::Lost));

    QVERIFY(s.restartDrive());
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QVERIFY(s.session->report().isGood());
    QCOMPARE(s.firstWrongNumber(), QString());
}

void tst_OnlineDrive::losesADriveThatFallsSilent()
{
    LargeSetting s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(QStringLiteral("silent 0"));
    s.session->upload();
    QTRY_COMPARE_PATIENTLY(s.failures, QStringList {QStringLiteral("der Antrieb antwortet nicht")});
    QCOMPARE(s.losses.size(), ValueCount);
    s.drive.order(QStringLiteral("clear"));
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.firstWrongNumber(), QString());
}

void tst_OnlineDrive::runsAnAction()
{
    const MessageRecorder recorder;
    Setting s(smallDevice(), smallDevice(), {QStringLiteral("--tick"), QStringLiteral("2")});
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis2));
    QVERIFY(action);
    QList<int> percents;
    connect(action.get(), &ActionParameter::progressChanged, action.get(),
        [&percents](int percent) { percents.append(percent); });
    QStringList states;
    connect(action.get(), &ActionParameter::stateChanged, action.get(), [&] {
        states.append(QStringLiteral("%1 %2").arg(
            action->isIdle() ? QStringLiteral("idle") : QStringLiteral("running"),
            action->stateText()));
        // Whoever hears of the end has heard of everything before.
        if (action->isIdle())
            QCOMPARE(percents.value(percents.size() - 1), 100);
    });
    QVERIFY(action->start());
    QTRY_VERIFY_PATIENTLY(percents.size() > 3);
    QVERIFY(!action->isIdle());
    QTRY_COMPARE_PATIENTLY(states,
        (QStringList {QStringLiteral("running Ergebnis: 0"), QStringLiteral("idle Ergebnis: 1")}));
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
    QCOMPARE(action->stateText(), QStringLiteral("Ergebnis: 1"));
    QCOMPARE(s.native("1.C01[2]"), QStringLiteral("0"));
    QCOMPARE(s.losses, QStringList());
}

void tst_OnlineDrive::losesTheDriveInTheMiddleOfAnAction()
{
    const MessageRecorder recorder;
    OnlineRules rules = ::rules();
    rules.returnsToVanished = true;
    Setting s(smallDevice(), smallDevice(), {QStringLiteral("--tick"), QStringLiteral("0")}, rules);
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1));
    QVERIFY(action->start());
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    s.drive.order(QStringLiteral("tick 40"));
    QTRY_COMPARE_PATIENTLY(s.native("1.C01[1]"), QStringLiteral("40"));
    s.drive.kill();
    QTRY_VERIFY_PATIENTLY(!s.container.isOnline());
    QCOMPARE(s.failures.size(), 1);
    // What it was doing when it was last heard of.
    QVERIFY(!action->isIdle());

    QVERIFY(s.restartDrive());
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QTRY_VERIFY_PATIENTLY(action->isIdle());
    QTRY_COMPARE_PATIENTLY(s.native("1.C01[1]"), QStringLiteral("0"));
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
    QVERIFY(action->start());
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
}

void tst_OnlineDrive::startsAnActionOnceThoughTheAnswerIsLost()
{
    const MessageRecorder recorder;
    Setting s(smallDevice(), smallDevice());
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(QStringLiteral("lose 1"));
    s.write("1.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.reports, 1);
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    // One whose end came before the answer was missed is not started again either.
    s.drive.order(QStringLiteral("tick 100"));
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    s.drive.order(QStringLiteral("lose 1"));
    s.write("1.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    s.drive.order(QStringLiteral("tick 100"));
    QTRY_COMPARE_PATIENTLY(
        s.losses, QStringList {QStringLiteral("1.C01[0]: verloren - keine Antwort")});
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
}

void tst_OnlineDrive::isRefusedAWrite()
{
    const MessageRecorder recorder;
    QByteArray narrow = smallDevice();
    narrow.replace("\"upper\": 100", "\"upper\": 50");
    Setting s(smallDevice(), narrow);
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.write("2.B01", QStringLiteral("50"));
    QTRY_COMPARE_PATIENTLY(s.reports, 1);
    s.write("2.B01", QStringLiteral("51"));
    QTRY_COMPARE_PATIENTLY(s.losses,
        QStringList {QStringLiteral("2.B01: abgelehnt - der Antrieb nimmt diesen Wert nicht an")});
    QCOMPARE(s.native("2.B01"), QStringLiteral("50"));
    QCOMPARE(s.drive.value("2.B01"), QStringLiteral("50"));

    s.drive.order(QStringLiteral("set 2.E48 4"));
    s.write("2.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.losses.size(), 2);
    QCOMPARE(s.losses.constLast(),
        QStringLiteral("2.C01[0]: abgelehnt - der Antrieb kann das in seinem Zustand nicht"));
    QCOMPARE(s.native("2.C01[0]"), QStringLiteral("0"));
}

void tst_OnlineDrive::learnsWhatTheDriveCut()
{
    Setting s(smallDevice(), smallDevice());
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.container.writeValueNative(
        eLivingSpace::Global, at("A03"), 0, QStringLiteral("neun Zeichen"));
    QTRY_COMPARE_PATIENTLY(s.losses,
        QStringList {QStringLiteral(
            "A03: geschrieben wurde \"neun Zeichen\", der Antrieb hat \"neun Zei\"")});
    QCOMPARE(s.native("A03"), QStringLiteral("neun Zei"));
    QCOMPARE(s.drive.value("A03"), QStringLiteral("neun Zei"));
}

void tst_OnlineDrive::writesThroughFaults_data()
{
    QTest::addColumn<QString>("order");

    QTest::newRow("answers are lost") << QStringLiteral("lose 3");
    QTest::newRow("answers come late") << QStringLiteral("delay 8 300");
    QTest::newRow("answers are overtaken") << QStringLiteral("delay 8 20");
    QTest::newRow("answers come twice") << QStringLiteral("double 1000");
    QTest::newRow("the drive is busy") << QStringLiteral("busy 8");
}

void tst_OnlineDrive::writesThroughFaults()
{
    QFETCH(QString, order);

    const MessageRecorder recorder;
    Setting s(smallDevice(), smallDevice());
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(order);
    s.write("A01", QStringLiteral("11"));
    s.write("A02", QStringLiteral("12"));
    s.write("A03", QStringLiteral("dreizehn"));
    s.write("1.B01", QStringLiteral("-14"));
    s.write("2.B01", QStringLiteral("15"));
    s.write("2.B01", QStringLiteral("16"));
    QTRY_COMPARE_PATIENTLY(s.reports, 5);
    QCOMPARE(s.losses, QStringList());
    constexpr const char *Addresses[] = {"A01", "A02", "A03", "1.B01", "2.B01"};
    const QStringList expected {QStringLiteral("11"), QStringLiteral("12"),
        QStringLiteral("dreizehn"), QStringLiteral("-14"), QStringLiteral("16")};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(s.native(Addresses[i]), expected.at(i));
        QCOMPARE(s.drive.value(Addresses[i]), expected.at(i));
    }
}

void tst_OnlineDrive::downloadsEverything()
{
    const MessageRecorder recorder;
    Setting s(largeDevice(eDefaults::Numbered), largeDevice(eDefaults::Zero));
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QCOMPARE(s.drive.value("2.A20[99]"), QStringLiteral("0"));
    s.session->download();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("4000 Werte: 4000 geschrieben"));
    QCOMPARE(s.drive.value("1.A01[0]"), QStringLiteral("1000"));
    QCOMPARE(s.drive.value("2.A13[7]"), QStringLiteral("13007"));
    QCOMPARE(s.drive.value("2.A20[99]"), QStringLiteral("20099"));
    QCOMPARE(s.firstWrongNumber(), QString());
}

void tst_OnlineDrive::followsTheState()
{
    Setting s(smallDevice(), smallDevice());
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.container.parameterSetup(at("E48"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1));
    const QSignalSpy enables(action.get(), &ActionParameter::enableChanged);
    s.drive.order(QStringLiteral("set 1.E48 4"));
    QTRY_COMPARE_PATIENTLY(enables.size(), 1);
    QCOMPARE(enables.at(0).at(0).toBool(), false);
    QVERIFY(!action->start());
    s.drive.order(QStringLiteral("set 1.E48 2"));
    QTRY_COMPARE_PATIENTLY(enables.size(), 2);
    QVERIFY(action->start());
}

QTEST_GUILESS_MAIN(tst_OnlineDrive)
#include "tst_OnlineDrive.moc"
