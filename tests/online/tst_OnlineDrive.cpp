#include "apps/online/OnlineSession.h"
#include "tests/online/DriveStand.h"
#include "tests/online/Patience.h"
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

struct LargeStand : DriveStand {
    explicit LargeStand(eDefaults ofHost = eDefaults::Zero, eDefaults ofDrive = eDefaults::Numbered)
        : DriveStand(largeDevice(ofHost), largeDevice(ofDrive))
    {
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
};

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

    void isRefusedAWrite();
    void endsInTheDrivesStateThoughTheReadBackIsRefused();
    void sendsNoTextThatTheDriveWouldCut();
    void writesThroughFaults_data();
    void writesThroughFaults();
    void downloadsEverything();
    void downloadsThroughFaults_data();
    void downloadsThroughFaults();
    void losesTheDriveInTheMiddleOfADownload();
};

void tst_OnlineDrive::meetsItsDrive()
{
    const MessageRecorder recorder;
    DriveStand s;
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
    QByteArray other = OnlineDevice::description();
    other.replace("\"dataType\": \"INT16\"", "\"dataType\": \"UINT16\"");
    other.replace("\"lower\": -100", "\"lower\": 0");
    DriveStand s(OnlineDevice::description(), other);
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
    OnlineRules rules = driveRules();
    rules.contactAttempts = 2;
    DriveStand s(OnlineDevice::description(), OnlineDevice::description(), {}, rules);
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
    const OnlineDevice device(OnlineDevice::description());
    const auto project = device.open();
    OnlineRules rules = driveRules();
    rules.contactAttempts = 2;
    // Nothing that it says is an answer, however long it may take.
    rules.answerSpan = milliseconds(50);
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
    LargeStand s;
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
    LargeStand s;
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
    LargeStand s;
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
    LargeStand s;
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

void tst_OnlineDrive::isRefusedAWrite()
{
    const MessageRecorder recorder;
    QByteArray narrow = OnlineDevice::description();
    narrow.replace("\"upper\": 100", "\"upper\": 50");
    DriveStand s(OnlineDevice::description(), narrow);
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

void tst_OnlineDrive::endsInTheDrivesStateThoughTheReadBackIsRefused()
{
    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QCOMPARE(s.drive.order(QStringLiteral("refuse 2")), QStringLiteral("ok"));
    s.write("2.B01", QStringLiteral("50"));
    QCOMPARE(s.native("2.B01"), QStringLiteral("50"));
    QTRY_COMPARE_PATIENTLY(s.losses.size(), 1);
    QTRY_COMPARE_PATIENTLY(s.native("2.B01"), QStringLiteral("5"));
    QCOMPARE(s.drive.value("2.B01"), QStringLiteral("5"));
    QCOMPARE(s.session->state(), eState::Online);
}

void tst_OnlineDrive::sendsNoTextThatTheDriveWouldCut()
{
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.container.writeValueNative(
        eLivingSpace::Global, at("A03"), 0, QStringLiteral("neun Zeichen"));
    QTRY_COMPARE_PATIENTLY(s.losses,
        QStringList {QStringLiteral("A03: abgelehnt - \"neun Zeichen\" passt nicht, erwartet wird "
                                    "höchstens 8 Zeichen aus Latin-1")});
    QCOMPARE(s.native("A03"), QStringLiteral("abc"));
    QCOMPARE(s.drive.value("A03"), QStringLiteral("abc"));
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
    DriveStand s;
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
    LargeStand s(eDefaults::Numbered, eDefaults::Zero);
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

void tst_OnlineDrive::downloadsThroughFaults_data()
{
    QTest::addColumn<QStringList>("orders");

    // Values of different order go alone: what befalls the drive befalls the attempts of one value.
    QTest::newRow("answers are lost") << QStringList {QStringLiteral("lose 2")};
    QTest::newRow("answers come late") << QStringList {QStringLiteral("delay 2 300")};
    QTest::newRow("answers come late and are overtaken")
        << QStringList {QStringLiteral("delay 12 20")};
    QTest::newRow("every answer comes twice") << QStringList {QStringLiteral("double 1000000")};
    QTest::newRow("lost, twice and busy") << QStringList {
        QStringLiteral("lose 1"), QStringLiteral("double 20"), QStringLiteral("busy 1")};
}

void tst_OnlineDrive::downloadsThroughFaults()
{
    QFETCH(QStringList, orders);

    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.container.writeValueNative(eLivingSpace::Global, at("A01"), 0, QStringLiteral("11"));
    s.container.writeValueNative(eLivingSpace::Global, at("A02"), 0, QStringLiteral("12"));
    s.container.writeValueNative(eLivingSpace::Global, at("A03"), 0, QStringLiteral("dreizehn"));
    s.container.writeValueNative(eLivingSpace::Axis1, at("B01"), 0, QStringLiteral("-14"));
    s.container.writeValueNative(eLivingSpace::Axis2, at("B01"), 0, QStringLiteral("15"));
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    for (const QString &order : orders)
        QCOMPARE(s.drive.order(order), QStringLiteral("ok"));
    QVERIFY(s.session->download());
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("5 Werte: 5 geschrieben"));
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.session->state(), eState::Online);
    constexpr const char *Addresses[] = {"A01", "A02", "A03", "1.B01", "2.B01"};
    const QStringList expected {QStringLiteral("11"), QStringLiteral("12"),
        QStringLiteral("dreizehn"), QStringLiteral("-14"), QStringLiteral("15")};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(s.native(Addresses[i]), expected.at(i));
        QCOMPARE(s.drive.value(Addresses[i]), expected.at(i));
    }
}

void tst_OnlineDrive::losesTheDriveInTheMiddleOfADownload()
{
    const MessageRecorder recorder;
    LargeStand s(eDefaults::Numbered, eDefaults::Zero);
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    // The first of three orders are 1,200 values; it answers their writes, and some of their reads.
    s.drive.order(QStringLiteral("silent 1500"));
    QVERIFY(s.session->download());
    QTRY_VERIFY_PATIENTLY(s.reports > 0);
    s.drive.kill();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Offline);
    QVERIFY(!s.container.isOnline());
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.failures.size(), 1);
    const OnlineReport &report = s.session->report();
    QCOMPARE(report.outcomes().size(), ValueCount);
    QVERIFY(report.count(eKind::Written) > 0);
    QCOMPARE(report.count(eKind::Written) + report.count(eKind::Lost), ValueCount);
    QCOMPARE(s.losses.size(), report.count(eKind::Lost));

    // It has forgotten what was written; the host has not.
    QVERIFY(s.restartDrive());
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QCOMPARE(s.drive.value("2.A20[99]"), QStringLiteral("0"));
    QVERIFY(s.session->download());
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("4000 Werte: 4000 geschrieben"));
    QCOMPARE(s.drive.value("1.A01[0]"), QStringLiteral("1000"));
    QCOMPARE(s.drive.value("2.A20[99]"), QStringLiteral("20099"));
    QCOMPARE(s.firstWrongNumber(), QString());
}

QTEST_GUILESS_MAIN(tst_OnlineDrive)
#include "tst_OnlineDrive.moc"
