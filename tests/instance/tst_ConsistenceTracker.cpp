#include "instance/ConsistenceTracker.h"

#include <QtTest/QTest>

using enum eLivingSpace;

class tst_ConsistenceTracker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingRunsAtFirst();
    void lastAwaitedElementCompletes();
    void arrivalsInAnyOrder();
    void lateAndDoubledArrivals();
    void elementsThatAreNotAwaited();
    void keysAreIndependent();
    void startReplacesTheRun();
    void cancelEndsTheRun();
    void emptyRun();
    void completeRunIsCurrent();
    void sparseElements();
};

void tst_ConsistenceTracker::nothingRunsAtFirst()
{
    ConsistenceTracker tracker;
    QVERIFY(!tracker.isRunning(Global));
    QVERIFY(!tracker.isCurrent(Global, 0));
    QVERIFY(!tracker.isCurrent(Global, 1));
    QVERIFY(!tracker.arrived(Global, 0));
    tracker.cancel(Global);
    QVERIFY(!tracker.isRunning(Global));
}

void tst_ConsistenceTracker::lastAwaitedElementCompletes()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {0, 1, 2});
    QVERIFY(tracker.isRunning(Axis1));
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(!tracker.arrived(Axis1, 1));
    QVERIFY(tracker.isRunning(Axis1));
    QVERIFY(tracker.arrived(Axis1, 2));
    QVERIFY(!tracker.isRunning(Axis1));
}

void tst_ConsistenceTracker::arrivalsInAnyOrder()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {0, 1, 2});
    QVERIFY(!tracker.arrived(Axis1, 2));
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(tracker.arrived(Axis1, 1));
}

void tst_ConsistenceTracker::lateAndDoubledArrivals()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {0, 1});
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(tracker.arrived(Axis1, 1));
    QVERIFY(!tracker.arrived(Axis1, 1));
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(!tracker.isRunning(Axis1));
}

void tst_ConsistenceTracker::elementsThatAreNotAwaited()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {3});
    QVERIFY(!tracker.arrived(Axis1, 0));
    QVERIFY(!tracker.arrived(Axis1, 4));
    QVERIFY(!tracker.arrived(Axis1, 65535));
    QVERIFY(tracker.arrived(Axis1, 3));
}

void tst_ConsistenceTracker::keysAreIndependent()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {0});
    tracker.start(Axis2, {0});
    QVERIFY(!tracker.arrived(Global, 0));
    QVERIFY(tracker.arrived(Axis2, 0));
    QVERIFY(tracker.isRunning(Axis1));
    tracker.cancel(Axis2);
    QVERIFY(tracker.isRunning(Axis1));
    QVERIFY(tracker.arrived(Axis1, 0));
}

void tst_ConsistenceTracker::startReplacesTheRun()
{
    ConsistenceTracker tracker;
    const quint32 first = tracker.start(Axis1, {0, 1});
    tracker.arrived(Axis1, 0);
    const quint32 second = tracker.start(Axis1, {0, 1});
    QVERIFY(first != second);
    QVERIFY(!tracker.isCurrent(Axis1, first));
    QVERIFY(tracker.isCurrent(Axis1, second));
    QVERIFY(!tracker.isCurrent(Axis2, second));
    QVERIFY(!tracker.arrived(Axis1, 1));
    QVERIFY(tracker.arrived(Axis1, 0));
}

void tst_ConsistenceTracker::cancelEndsTheRun()
{
    ConsistenceTracker tracker;
    const quint32 run = tracker.start(Axis1, {0});
    tracker.cancel(Axis1);
    QVERIFY(!tracker.isRunning(Axis1));
    QVERIFY(!tracker.isCurrent(Axis1, run));
    QVERIFY(!tracker.arrived(Axis1, 0));
}

void tst_ConsistenceTracker::emptyRun()
{
    ConsistenceTracker tracker;
    const quint32 run = tracker.start(Axis1, {});
    QVERIFY(!tracker.isRunning(Axis1));
    QVERIFY(tracker.isCurrent(Axis1, run));
    QVERIFY(!tracker.arrived(Axis1, 0));
}

void tst_ConsistenceTracker::completeRunIsCurrent()
{
    ConsistenceTracker tracker;
    const quint32 run = tracker.start(Axis1, {0});
    QVERIFY(tracker.arrived(Axis1, 0));
    QVERIFY(tracker.isCurrent(Axis1, run));
}

void tst_ConsistenceTracker::sparseElements()
{
    ConsistenceTracker tracker;
    tracker.start(Axis1, {7, 65535});
    QVERIFY(!tracker.arrived(Axis1, 8));
    QVERIFY(!tracker.arrived(Axis1, 65535));
    QVERIFY(tracker.arrived(Axis1, 7));
}

QTEST_GUILESS_MAIN(tst_ConsistenceTracker)

#include "tst_ConsistenceTracker.moc"
