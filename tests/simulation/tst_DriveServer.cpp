#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"
#include "tests/online/OnlineDevice.h"

#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

namespace {

/// A drive, its server and a connection to it, which carries bytes.
struct Setting {
    Setting()
        : project(device.open())
        , drive(*project)
        , server(drive)
    {
        isListening = server.listen(QStringLiteral("127.0.0.1"), 0);
        socket.connectToHost(QStringLiteral("127.0.0.1"), server.port());
    }

    void send(const char *hex) { socket.write(QByteArray::fromHex(hex)); }
    QByteArray received()
    {
        bytes += socket.readAll();
        return bytes.toHex(' ');
    }

    OnlineDevice device;
    std::unique_ptr<DriveProject> project;
    SimulatedDrive drive;
    DriveServer server;
    QTcpSocket socket;
    QByteArray bytes;
    bool isListening;
};

} // namespace

class tst_DriveServer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answersRequests_data();
    void answersRequests();
    void answersWhatComesInPieces();
    void closesABrokenConnection();
    void losesDoublesAndDelays();
    void refusesAPortInUse();
    void survivesItsClients();
};

void tst_DriveServer::answersRequests_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");

    const auto row = [](const char *name, const char *request, const char *answer) {
        QTest::newRow(name) << QByteArray(request) << QByteArray(answer);
    };
    row("a read", "0001000000060103 0010 0003", "00 01 00 00 00 09 01 03 06 00 07 00 01 11 70");
    row("a read of an axis", "0002000000060303 0010 0001", "00 02 00 00 00 05 03 03 02 00 05");
    row("125 registers are too many here", "0001000000060103 0000 007d",
        "00 01 00 00 00 03 01 83 02");
    row("126 are too many anywhere", "0001000000060103 0000 007e", "00 01 00 00 00 03 01 83 03");
    row("no register", "0001000000060103 0010 0000", "00 01 00 00 00 03 01 83 03");
    row("another kind of register", "0001000000060104 0010 0001", "00 01 00 00 00 03 01 84 02");
    row("a unit that is not there", "0001000000060903 0010 0001", "00 01 00 00 00 03 09 83 02");
    row("a write", "0001000000090210 0010 0001 02 000a", "00 01 00 00 00 06 02 10 00 10 00 01");
    row("a single write", "0001000000060206 0010 000a", "00 01 00 00 00 06 02 06 00 10 00 0a");
    row("a write beyond the limit", "0001000000090210 0010 0001 02 0065",
        "00 01 00 00 00 03 02 90 03");
    row("a write of what is only read", "00010000000b0210 0011 0002 04 00000000",
        "00 01 00 00 00 03 02 90 01");
    row("a write of half a value", "0001000000090110 0011 0001 02 0000",
        "00 01 00 00 00 03 01 90 02");
    row("a write whose length is wrong", "0001000000090110 0010 0001 03 0000",
        "00 01 00 00 00 03 01 90 03");
    row("a function that is none", "0001000000020141", "00 01 00 00 00 03 01 c1 01");
}

void tst_DriveServer::answersRequests()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, answer);

    Setting s;
    QVERIFY(s.isListening);
    s.send(request);
    QTRY_COMPARE(s.received(), answer);
}

void tst_DriveServer::answersWhatComesInPieces()
{
    Setting s;
    QTRY_COMPARE(s.socket.state(), QAbstractSocket::ConnectedState);
    s.send("000100000006");
    QTRY_COMPARE(s.socket.bytesToWrite(), qint64(0));
    QVERIFY(s.received().isEmpty());
    s.send("0103 0010 0001 000200000006 0103 0010 0001 0003");
    QTRY_COMPARE(s.received(),
        QByteArray("00 01 00 00 00 05 01 03 02 00 07 00 02 00 00 00 05 01 03 02 00 07"));
}

void tst_DriveServer::closesABrokenConnection()
{
    Setting s;
    s.send("474554202f20");
    QTRY_COMPARE(s.socket.state(), QAbstractSocket::UnconnectedState);
    QVERIFY(s.received().isEmpty());
}

void tst_DriveServer::losesDoublesAndDelays()
{
    Setting s;
    s.server.faults().lose(1);
    s.send("0001000000090210 0010 0001 02 0009");
    s.send("0002000000060203 0010 0001");
    // The answer is lost, not the work.
    QTRY_COMPARE(s.received(), QByteArray("00 02 00 00 00 05 02 03 02 00 09"));
    s.bytes.clear();
    s.server.faults().repeat(1);
    s.send("0003000000060203 0010 0001");
    QTRY_COMPARE(s.received(),
        QByteArray("00 03 00 00 00 05 02 03 02 00 09 00 03 00 00 00 05 02 03 02 00 09"));
    s.bytes.clear();
    s.server.faults().delay(1, std::chrono::milliseconds(30));
    s.send("0004000000060203 0010 0001 0005000000060203 0010 0001");
    QTRY_COMPARE(s.received(),
        QByteArray("00 05 00 00 00 05 02 03 02 00 09 00 04 00 00 00 05 02 03 02 00 09"));
    s.bytes.clear();
    s.server.faults().refuse(1);
    s.send("0006000000090210 0010 0001 02 0008");
    QTRY_COMPARE(s.received(), QByteArray("00 06 00 00 00 03 02 90 04"));
    s.bytes.clear();
    s.server.faults().beBusy(1);
    s.send("0007000000060203 0010 0001 0008000000060203 0010 0001");
    QTRY_COMPARE(
        s.received(), QByteArray("00 07 00 00 00 03 02 83 06 00 08 00 00 00 05 02 03 02 00 09"));
}

void tst_DriveServer::refusesAPortInUse()
{
    Setting s;
    DriveServer second(s.drive);
    QVERIFY(!second.listen(QStringLiteral("127.0.0.1"), s.server.port()));
    QVERIFY(!second.errorString().isEmpty());
    DriveServer third(s.drive);
    QVERIFY(!third.listen(QStringLiteral("no address"), 0));
}

void tst_DriveServer::survivesItsClients()
{
    Setting s;
    s.server.faults().delay(1, std::chrono::milliseconds(20));
    s.send("0001000000060203 0010 0001");
    QTRY_COMPARE(s.socket.bytesToWrite(), qint64(0));
    s.socket.abort();
    s.socket.connectToHost(QStringLiteral("127.0.0.1"), s.server.port());
    s.send("0002000000060203 0010 0001");
    QTRY_VERIFY(s.received().contains("02 03 02 00 05"));
}

QTEST_GUILESS_MAIN(tst_DriveServer)
#include "tst_DriveServer.moc"
