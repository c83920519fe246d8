#include "instance/HidingThrottle.h"

#include <QtTest/QTest>

using eDecision = HidingThrottle::eDecision;
using std::chrono::milliseconds;

class tst_HidingThrottle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void constants();
    void isWithinSpan_data();
    void isWithinSpan();
    void firstUpdateDispatches_data();
    void firstUpdateDispatches();
    void secondUpdate_data();
    void secondUpdate();
    void burstIsMeasuredFromTheLastDispatch();
    void eleventhSuppressedIsReported();
    void countStartsAnewWithADispatch();
    void midnight();
};

namespace {

const QTime Noon(12, 0);

} // namespace

void tst_HidingThrottle::constants()
{
    QCOMPARE(HidingThrottle::Span.count(), 5000);
    QCOMPARE(HidingThrottle::Deferral.count(), 5100);
    QCOMPARE(HidingThrottle::ReportedCount, 11);
}

void tst_HidingThrottle::isWithinSpan_data()
{
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<bool>("expected");

    QTest::newRow("a day back") << -86400000 << true;
    QTest::newRow("1 ms back, as after midnight") << -1 << true;
    QTest::newRow("0 ms: the first update") << 0 << false;
    QTest::newRow("1 ms") << 1 << true;
    QTest::newRow("4999 ms") << 4999 << true;
    QTest::newRow("5000 ms") << 5000 << false;
    QTest::newRow("5001 ms") << 5001 << false;
}

void tst_HidingThrottle::isWithinSpan()
{
    QFETCH(int, elapsed);
    QFETCH(bool, expected);
    QCOMPARE(HidingThrottle::isWithinSpan(milliseconds(elapsed)), expected);
}

void tst_HidingThrottle::firstUpdateDispatches_data()
{
    QTest::addColumn<QTime>("now");

    QTest::newRow("first millisecond of the day") << QTime(0, 0);
    QTest::newRow("noon") << Noon;
    QTest::newRow("last millisecond of the day") << QTime(23, 59, 59, 999);
}

void tst_HidingThrottle::firstUpdateDispatches()
{
    QFETCH(QTime, now);
    HidingThrottle throttle;
    QCOMPARE(throttle.suppressedCount(), 0);
    QCOMPARE(throttle.decide(now), eDecision::Dispatch);
    QCOMPARE(throttle.suppressedCount(), 0);
}

void tst_HidingThrottle::secondUpdate_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("isDispatched");

    QTest::newRow("0 ms after the first is dispatched") << 0 << true;
    QTest::newRow("1 ms after the first is suppressed") << 1 << false;
    QTest::newRow("4999 ms after the first is suppressed") << 4999 << false;
    QTest::newRow("5000 ms after the first is dispatched") << 5000 << true;
    QTest::newRow("5001 ms after the first is dispatched") << 5001 << true;
    QTest::newRow("an hour after the first is dispatched") << 3600000 << true;
}

void tst_HidingThrottle::secondUpdate()
{
    QFETCH(int, after);
    QFETCH(bool, isDispatched);
    HidingThrottle throttle;
    throttle.decide(Noon);
    QCOMPARE(throttle.decide(Noon.addMSecs(after)),
        isDispatched ? eDecision::Dispatch : eDecision::Suppress);
    QCOMPARE(throttle.suppressedCount(), isDispatched ? 0 : 1);
}

void tst_HidingThrottle::burstIsMeasuredFromTheLastDispatch()
{
    HidingThrottle throttle;
    throttle.decide(Noon);
    QCOMPARE(throttle.decide(Noon.addMSecs(3000)), eDecision::Suppress);
    QCOMPARE(throttle.decide(Noon.addMSecs(4999)), eDecision::Suppress);
    QCOMPARE(throttle.decide(Noon.addMSecs(5000)), eDecision::Dispatch);
    QCOMPARE(throttle.decide(Noon.addMSecs(9999)), eDecision::Suppress);
    QCOMPARE(throttle.decide(Noon.addMSecs(10000)), eDecision::Dispatch);
}

void tst_HidingThrottle::eleventhSuppressedIsReported()
{
    HidingThrottle throttle;
    throttle.decide(Noon);
    for (int i = 1; i <= 10; ++i)
        QCOMPARE(throttle.decide(Noon.addMSecs(i)), eDecision::Suppress);
    QCOMPARE(throttle.decide(Noon.addMSecs(11)), eDecision::SuppressAndReport);
    QCOMPARE(throttle.suppressedCount(), 11);
    for (int i = 12; i <= 30; ++i)
        QCOMPARE(throttle.decide(Noon.addMSecs(i)), eDecision::Suppress);
    QCOMPARE(throttle.suppressedCount(), 30);
}

void tst_HidingThrottle::countStartsAnewWithADispatch()
{
    HidingThrottle throttle;
    throttle.decide(Noon);
    for (int i = 1; i <= 12; ++i)
        throttle.decide(Noon.addMSecs(i));
    QCOMPARE(throttle.decide(Noon.addMSecs(5000)), eDecision::Dispatch);
    QCOMPARE(throttle.suppressedCount(), 0);
    for (int i = 1; i <= 10; ++i)
        QCOMPARE(throttle.decide(Noon.addMSecs(5000 + i)), eDecision::Suppress);
    QCOMPARE(throttle.decide(Noon.addMSecs(5011)), eDecision::SuppressAndReport);
}

void tst_HidingThrottle::midnight()
{
    HidingThrottle throttle;
    throttle.decide(QTime(23, 59, 59));
    // The time of day runs backwards: suppressed, even hours later, until it has caught up.
    QCOMPARE(throttle.decide(QTime(0, 0, 9)), eDecision::Suppress);
    QCOMPARE(throttle.decide(QTime(12, 0)), eDecision::Suppress);
    QCOMPARE(throttle.decide(QTime(23, 59, 59)), eDecision::Dispatch);
}

QTEST_GUILESS_MAIN(tst_HidingThrottle)

#include "tst_HidingThrottle.moc"
