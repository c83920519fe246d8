#include "apps/simulation/DriveOrders.h"
#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"
#include "tests/online/OnlineDevice.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_DriveOrders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answersOrders_data();
    void answersOrders();
    void doesWhatItIsTold();
};

void tst_DriveOrders::answersOrders_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("answer");

    const auto row = [](const char *name, const char *order, const char *answer) {
        QTest::newRow(name) << QString::fromLatin1(order) << QString::fromLatin1(answer);
    };
    row("lose", "lose 3", "ok");
    row("lose nothing", "lose 0", "ok");
    row("double", "double 1", "ok");
    row("delay", "delay 2 50", "ok");
    row("refuse", "refuse 1", "ok");
    row("busy", "busy 1", "ok");
    row("silent", "silent 0", "ok");
    row("clear", "clear", "ok");
    row("tick", "tick 3", "ok");
    row("get of a global value", "get A02", "ok 70000");
    row("get of an axis", "get 2.B02", "ok -3");
    row("get of an element", "get 1.C01[1]", "ok 0");
    row("get of an empty line", "", "error order");
    row("an unknown order", "explode", "error order");
    row("a count that is none", "lose many", "error number");
    row("a negative count", "lose -1", "error number");
    row("the greatest count", "lose 1000000", "ok");
    row("a count that is too great", "lose 1000001", "error number");
    row("a count that is missing", "lose", "error order");
    row("a count too many", "lose 1 2", "error order");
    row("a delay without span", "delay 1", "error order");
    row("a span that is none", "delay 1 x", "error number");
    row("ticks that are none", "tick x", "error number");
    row("an address that is none", "get x", "error address");
    row("a value that is not there", "get Z99", "error address");
    row("get of more", "get A01 A02", "error order");
    row("set of what is not there", "set Z99 5", "error address");
    row("an order in capitals", "LOSE 1", "error order");
}

void tst_DriveOrders::answersOrders()
{
    QFETCH(QString, order);
    QFETCH(QString, answer);

    const OnlineDevice device;
    const auto project = device.open();
    SimulatedDrive drive(*project);
    DriveServer server(drive);
    DriveOrders orders(drive, server);
    QCOMPARE(orders.follow(order), answer);
}

void tst_DriveOrders::doesWhatItIsTold()
{
    const OnlineDevice device;
    const auto project = device.open();
    SimulatedDrive drive(*project);
    DriveServer server(drive);
    DriveOrders orders(drive, server);

    orders.follow(QStringLiteral("lose 1"));
    QVERIFY(server.faults().next().isLost);
    QVERIFY(!server.faults().next().isLost);
    orders.follow(QStringLiteral("delay 1 40"));
    QCOMPARE(server.faults().next().delay.count(), 40);
    orders.follow(QStringLiteral("silent 0"));
    QVERIFY(server.faults().next().isLost);
    orders.follow(QStringLiteral("clear"));
    QVERIFY(!server.faults().next().isLost);

    QCOMPARE(orders.follow(QStringLiteral("set A03 a  b ")), QStringLiteral("ok"));
    QCOMPARE(orders.follow(QStringLiteral("get A03")), QStringLiteral("ok a  b "));
    orders.follow(QStringLiteral("tick 5"));
    QCOMPARE(orders.follow(QStringLiteral("get 1.E48")), QStringLiteral("ok 1"));

    const QSignalSpy quits(&orders, &DriveOrders::quitOrdered);
    QCOMPARE(orders.follow(QStringLiteral("quit")), QStringLiteral("ok"));
    QCOMPARE(quits.size(), 1);
    QCOMPARE(orders.follow(QStringLiteral("quit now")), QStringLiteral("error order"));
    QCOMPARE(quits.size(), 1);
}

QTEST_GUILESS_MAIN(tst_DriveOrders)
#include "tst_DriveOrders.moc"
