#include "apps/online/CyclicNeeds.h"
#include "apps/online/RegisterMap.h"
#include "tests/online/OnlineDevice.h"

#include <QtTest/QTest>

using std::chrono::milliseconds;

class tst_CyclicNeeds : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void remembersWhatWasAskedForBefore();
    void waitsForWhatIsOnItsWay();
    void keepsTheIntervals_data();
    void keepsTheIntervals();
    void forgetsWhatIsNotNeeded();
    void namesWhatTheMapLacks();
};

void tst_CyclicNeeds::remembersWhatWasAskedForBefore()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    const qsizetype value = map.indexOf(address("A01"));
    CyclicNeeds needs(milliseconds(100));
    needs.add(address("A01"), milliseconds(0));
    QVERIFY(!needs.nextDue());
    needs.setMap(&map, milliseconds(1000));
    QCOMPARE(needs.nextDue(), std::optional(milliseconds(1000)));
    QCOMPARE(needs.takeDue(milliseconds(999)), QList<qsizetype>());
    QCOMPARE(needs.takeDue(milliseconds(1000)), QList<qsizetype> {value});
    needs.setMap(nullptr, milliseconds(1000));
    QVERIFY(!needs.contains(value));
    needs.setMap(&map, milliseconds(2000));
    QVERIFY(needs.contains(value));
}

void tst_CyclicNeeds::waitsForWhatIsOnItsWay()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    CyclicNeeds needs(milliseconds(100));
    needs.setMap(&map, milliseconds(0));
    needs.add(address("A01"), milliseconds(0));
    QCOMPARE(needs.takeDue(milliseconds(0)).size(), 1);
    // Asked for again meanwhile.
    needs.add(address("A01"), milliseconds(0));
    QVERIFY(!needs.nextDue());
    QVERIFY(needs.takeDue(milliseconds(1000000)).isEmpty());
}

void tst_CyclicNeeds::keepsTheIntervals_data()
{
    QTest::addColumn<ParameterAddress>("at");
    QTest::addColumn<int>("cycle");
    QTest::addColumn<int>("due");

    QTest::newRow("the cycle's where the value has none") << address("A01") << 100 << 1100;
    QTest::newRow("the value's where it is longer") << address("1.B02") << 100 << 1250;
    QTest::newRow("the cycle's where that is longer") << address("1.B02") << 300 << 1300;
}

void tst_CyclicNeeds::keepsTheIntervals()
{
    QFETCH(ParameterAddress, at);
    QFETCH(int, cycle);
    QFETCH(int, due);

    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    CyclicNeeds needs {milliseconds(cycle)};
    needs.setMap(&map, milliseconds(0));
    needs.add(at, milliseconds(0));
    const QList<qsizetype> values = needs.takeDue(milliseconds(0));
    needs.done(values.constFirst(), milliseconds(1000));
    QCOMPARE(needs.nextDue(), std::optional(milliseconds(due)));
}

void tst_CyclicNeeds::forgetsWhatIsNotNeeded()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    CyclicNeeds needs(milliseconds(100));
    needs.setMap(&map, milliseconds(0));
    needs.add(address("A01"), milliseconds(0));
    const qsizetype value = needs.takeDue(milliseconds(0)).constFirst();
    needs.remove(address("A01"));
    needs.done(value, milliseconds(0));
    QVERIFY(!needs.nextDue());
    needs.remove(address("Z99"));
}

void tst_CyclicNeeds::namesWhatTheMapLacks()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    CyclicNeeds needs(milliseconds(100));
    needs.add(address("Z99"), milliseconds(0));
    needs.add(address("A01"), milliseconds(0));
    needs.add(address("Y01"), milliseconds(0));
    QVERIFY(needs.unmapped().isEmpty());
    needs.setMap(&map, milliseconds(0));
    QCOMPARE(needs.unmapped(), (QList<ParameterAddress> {address("Y01"), address("Z99")}));
}

QTEST_GUILESS_MAIN(tst_CyclicNeeds)
#include "tst_CyclicNeeds.moc"
