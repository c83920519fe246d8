#include "tests/instance/DependencyStand.h"

#include <KrParameterInstance/ParameterData.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// How updates of what is hidden are throttled.
class tst_CoordinateInstanceSetHiding : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void throttle_data();
    void throttle();
    void throttleAtMidnight();
    void reentered_data();
    void reentered();
    void deferredUpdate();
    void deferredUpdateOfABurst();
    void suppressedInsideTheDeferredDispatch();
    void timeoutWithoutTimer();
    void timeoutInsideATimeout();
    void cyclicHidingIsReported_data();
    void cyclicHidingIsReported();
    void cyclicHidingIsReportedAgainAfterADispatch();
    void eleventhAfterTheTimeout();
    void otherKindsAreNotThrottled();
    void throttlesAreIndependent();
    void clockBelongsToTheContainer();
};

namespace {

QTimer *suppressionTimer(const CoordinateInstanceSet *set)
{
    return set->findChild<QTimer *>();
}

} // namespace

void tst_CoordinateInstanceSetHiding::throttle_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("isDispatched");
    QTest::newRow("0 ms after the first") << 0 << true;
    QTest::newRow("1 ms after the first") << 1 << false;
    QTest::newRow("4999 ms after the first") << 4999 << false;
    QTest::newRow("5000 ms after the first") << 5000 << true;
    QTest::newRow("5001 ms after the first") << 5001 << true;
}

void tst_CoordinateInstanceSetHiding::throttle()
{
    QFETCH(int, after);
    QFETCH(bool, isDispatched);
    InstanceStand stand;
    TestClock clock(stand);
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QVERIFY(!receiver->isHidden(Axis1, 0));
    firmware->takeCalls();
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(
        firmware->takeCalls().filter(u"isHidden"_s), QStringList {u"isHidden 1.B007[00000]"_s});
    QVERIFY(!suppressionTimer(source));
    clock.now = clock.now.addMSecs(after);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(firmware->callsOf(u"isHidden"_s).size(), isDispatched ? 1 : 0);
    QCOMPARE(suppressionTimer(source) == nullptr, isDispatched);
}

void tst_CoordinateInstanceSetHiding::throttleAtMidnight()
{
    InstanceStand stand;
    TestClock clock(stand);
    clock.now = QTime(23, 59, 59);
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    QVERIFY(!receiver->isHidden(Axis1, 0));
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    const qsizetype before = firmware->callsOf(u"isHidden"_s).size();
    clock.now = QTime(0, 0, 30);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(firmware->callsOf(u"isHidden"_s).size(), before);
    QVERIFY(suppressionTimer(source));
}

void tst_CoordinateInstanceSetHiding::deferredUpdate()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *source = stand.add(
        DefinitionBuilder().elementCount(3).property(HidingDependency, 5U), u"A12"_s, {1, 2});
    auto *receiver =
        stand.add(DefinitionBuilder().property(HidingFunctionIndex, 5U), u"B07"_s, {1, 2});
    ProgrammedFunctions *firmware = stand.programFirmware();
    for (const eLivingSpace livingSpace : {Axis1, Axis2})
        QVERIFY(!receiver->isHidden(livingSpace, 0));
    source->setOnlineValueText(Axis2, 1, u"1"_s);
    clock.now = clock.now.addMSecs(10);
    source->setOnlineValueText(Axis2, 1, u"2"_s);

    const QTimer *timer = suppressionTimer(source);
    QVERIFY(timer);
    QVERIFY(timer->isSingleShot());
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 5100);

    firmware->takeCalls();
    source->onSuppressedHidingTimerTimedout();
    // Living space 0: every instance of the receiver, not axis 2 alone.
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s),
        (QStringList {u"isHidden 1.B007[00000]"_s, u"isHidden 2.B007[00000]"_s}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!suppressionTimer(source));

    // Neither time nor count was renewed.
    clock.now = clock.now.addMSecs(10);
    source->setOnlineValueText(Axis2, 1, u"3"_s);
    QCOMPARE(firmware->callsOf(u"isHidden"_s).size(), 0);
    QVERIFY(suppressionTimer(source));
}

void tst_CoordinateInstanceSetHiding::deferredUpdateOfABurst()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *source = stand.add(DefinitionBuilder()
                                 .element(0, u"a"_s)
                                 .property(HidingDependency, 5U)
                                 .element(1, u"b"_s)
                                 .property(HidingDependency, 6U)
                                 .element(2, u"c"_s)
                                 .property(HidingDependency, 7U),
        u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(HidingFunctionIndex, 6U), u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QVERIFY(!receiver->isHidden(Axis1, 0));
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    clock.now = clock.now.addMSecs(1);
    source->setOnlineValueText(Axis1, 1, u"1"_s);
    const QTimer *timer = suppressionTimer(source);
    clock.now = clock.now.addMSecs(1);
    source->setOnlineValueText(Axis1, 2, u"1"_s);
    QCOMPARE(source->findChildren<QTimer *>().size(), 1);
    QCOMPARE(suppressionTimer(source), timer);
    firmware->takeCalls();
    // The element of the first suppressed update: its reference is the receiver's.
    source->onSuppressedHidingTimerTimedout();
    QCOMPARE(firmware->callsOf(u"isHidden"_s), QStringList {u"isHidden 1.B007[00000]"_s});
}

void tst_CoordinateInstanceSetHiding::timeoutWithoutTimer()
{
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    source->onSuppressedHidingTimerTimedout();
    QCOMPARE(firmware->calls, QStringList());
    QVERIFY(receiver->hasInstance(Axis1));
}

void tst_CoordinateInstanceSetHiding::timeoutInsideATimeout()
{
    InstanceStand stand;
    TestClock clock(stand);
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QVERIFY(receiver->isVisible(Axis1, 0));
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    clock.now = clock.now.addMSecs(1);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(suppressionTimer(source));
    firmware->isHidden = [](const ParameterData &, quint16) { return true; };
    const CoordinateInstanceSet *changed = receiver;
    int heard = 0;
    connect(changed, &ParameterInformation::visibilityChanged, source, [&heard, set = source] {
        ++heard;
        set->onSuppressedHidingTimerTimedout();
    });
    source->onSuppressedHidingTimerTimedout();
    QCOMPARE(heard, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!suppressionTimer(source));
}

void tst_CoordinateInstanceSetHiding::cyclicHidingIsReported_data()
{
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("isReported");
    for (const quint32 level : {0U, 4U, 5U, 6U, 7U})
        QTest::addRow("user of level %u", level) << level << (level == 5);
}

void tst_CoordinateInstanceSetHiding::cyclicHidingIsReported()
{
    QFETCH(quint32, userLevel);
    QFETCH(bool, isReported);
    InstanceStand stand;
    TestClock clock(stand);
    auto *source = stand.add(DefinitionBuilder().property(HidingDependency, 5U), u"A12"_s);
    stand.setUserLevel(userLevel);
    auto write = [&, value = 0](int times) mutable {
        for (int i = 0; i < times; ++i) {
            source->setOnlineValueText(Axis1, 0, QString::number(++value));
            clock.now = clock.now.addMSecs(1);
        }
    };
    // One that goes through, ten that are suppressed.
    write(11);
    QVERIFY(stand.messages.verify());
    if (isReported) {
        stand.expectCritical(
            u"A12 verursacht zyklisch Aktualisierungen der Parametersichtbarkeit. Mehr als zehn "
            u"davon wurden in den letzten 5 Sekunden unterdrückt!"_s);
    }
    write(1);
    QVERIFY(stand.messages.verify());
    write(50);
}

void tst_CoordinateInstanceSetHiding::cyclicHidingIsReportedAgainAfterADispatch()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *source = stand.add(DefinitionBuilder().property(HidingDependency, 5U), u"A12"_s);
    stand.setUserLevel(5);
    int value = 0;
    for (int burst = 0; burst < 2; ++burst) {
        stand.expectCritical(
            u"A12 verursacht zyklisch Aktualisierungen der Parametersichtbarkeit. Mehr als zehn "
            u"davon wurden in den letzten 5 Sekunden unterdrückt!"_s);
        for (int i = 0; i < 13; ++i) {
            source->setOnlineValueText(Axis1, 0, QString::number(++value));
            clock.now = clock.now.addMSecs(1);
        }
        QVERIFY(stand.messages.verify());
        clock.now = clock.now.addMSecs(5000);
    }
}

void tst_CoordinateInstanceSetHiding::otherKindsAreNotThrottled()
{
    InstanceStand stand;
    TestClock clock(stand);
    const auto [source, receiver] =
        addPair(stand, PostwriteDependency, 5U, PostwriteFunctionIndex, 5U);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    for (int i = 1; i <= 20; ++i) {
        source->setOnlineValueText(Axis1, 0, QString::number(i));
        clock.now = clock.now.addMSecs(1);
    }
    QCOMPARE(firmware->callsOf(u"runFunction"_s).size(), 20);
    QVERIFY(receiver->hasInstance(Axis1));
}

void tst_CoordinateInstanceSetHiding::throttlesAreIndependent()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *first = stand.add(DefinitionBuilder().property(HidingDependency, 5U), u"A12"_s);
    auto *second = stand.add(DefinitionBuilder().property(HidingDependency, 5U), u"A13"_s);
    first->setOnlineValueText(Axis1, 0, u"1"_s);
    clock.now = clock.now.addMSecs(1);
    second->setOnlineValueText(Axis1, 0, u"1"_s);
    QVERIFY(!suppressionTimer(second));
    first->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(suppressionTimer(first));
}

void tst_CoordinateInstanceSetHiding::clockBelongsToTheContainer()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *set = stand.add(DefinitionBuilder().property(HidingDependency, 5U), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    clock.now = clock.now.addMSecs(1);
    set->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(suppressionTimer(set));
    // A pending update goes with the set.
    stand.container->clear();
}

void tst_CoordinateInstanceSetHiding::reentered_data()
{
    QTest::addColumn<int>("later");
    QTest::addColumn<int>("questions");
    QTest::addColumn<int>("isDispatchedAfter");
    // The update inside meets time and count of the outer one, which go before its dispatch.
    QTest::newRow("at the same time goes through") << 0 << 2 << 5000;
    QTest::newRow("1 ms later is held back") << 1 << 1 << 5000;
    QTest::newRow("4999 ms later is held back") << 4999 << 1 << 5000;
    QTest::newRow("5000 ms later goes through and counts") << 5000 << 2 << 10000;
}

void tst_CoordinateInstanceSetHiding::reentered()
{
    QFETCH(int, later);
    QFETCH(int, questions);
    QFETCH(int, isDispatchedAfter);
    InstanceStand stand;
    TestClock clock(stand);
    const QTime start = clock.now;
    const DependencyPair pair = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    CoordinateInstanceSet *const source = pair.source;
    ProgrammedFunctions *firmware = stand.programFirmware();
    bool isHidden = false;
    firmware->isHidden = [&isHidden](const ParameterData &, quint16) { return isHidden; };
    QVERIFY(pair.receiver->isVisible(Axis1, 0));
    int heard = 0;
    connect(pair.receiver, &ParameterInformation::visibilityChanged, this, [&] {
        ++heard;
        clock.now = start.addMSecs(later);
        source->setOnlineValueText(Axis1, 0, u"2"_s);
    });
    isHidden = true;
    firmware->takeCalls();
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(heard, 1);
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s).size(), questions);
    QCOMPARE(suppressionTimer(source) == nullptr, questions == 2);
    // The last that went through is the one inside where that did.
    clock.now = start.addMSecs(isDispatchedAfter - 1);
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s).size(), 0);
    clock.now = start.addMSecs(isDispatchedAfter);
    source->setOnlineValueText(Axis1, 0, u"4"_s);
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s).size(), 1);
}

void tst_CoordinateInstanceSetHiding::eleventhAfterTheTimeout()
{
    InstanceStand stand;
    TestClock clock(stand);
    auto *source =
        stand.add(DefinitionBuilder().elementCount(2).property(HidingDependency, 5U), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(HidingFunctionIndex, 5U), u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QVERIFY(!receiver->isHidden(Axis1, 0));
    stand.setUserLevel(5);
    for (int i = 1; i <= 11; ++i) {
        source->setOnlineValueText(Axis1, 0, QString::number(i));
        clock.now = clock.now.addMSecs(1);
    }
    source->onSuppressedHidingTimerTimedout();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!suppressionTimer(source));
    QVERIFY(stand.messages.verify());
    // The count went on; the update itself is the first that is held back again.
    stand.expectCritical(
        u"A12 verursacht zyklisch Aktualisierungen der Parametersichtbarkeit. Mehr als zehn "
        u"davon wurden in den letzten 5 Sekunden unterdrückt!"_s);
    firmware->takeCalls();
    source->setOnlineValueText(Axis1, 1, u"12"_s);
    QVERIFY(stand.messages.verify());
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s), QStringList());
    QVERIFY(suppressionTimer(source));
    source->onSuppressedHidingTimerTimedout();
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s).size(), 1);
}

void tst_CoordinateInstanceSetHiding::suppressedInsideTheDeferredDispatch()
{
    InstanceStand stand;
    TestClock clock(stand);
    const DependencyPair pair = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    CoordinateInstanceSet *const source = pair.source;
    ProgrammedFunctions *firmware = stand.programFirmware();
    bool isHidden = false;
    firmware->isHidden = [&isHidden](const ParameterData &, quint16) { return isHidden; };
    QVERIFY(pair.receiver->isVisible(Axis1, 0));
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    clock.now = clock.now.addMSecs(1);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    const QPointer<QTimer> timer = suppressionTimer(source);
    QVERIFY(timer);
    int heard = 0;
    connect(pair.receiver, &ParameterInformation::visibilityChanged, this, [&] {
        ++heard;
        source->setOnlineValueText(Axis1, 0, u"3"_s);
        // The timer whose time is out is still the pending one.
        QCOMPARE(source->findChildren<QTimer *>(), QList<QTimer *> {timer});
    });
    isHidden = true;
    firmware->takeCalls();
    source->onSuppressedHidingTimerTimedout();
    QCOMPARE(heard, 1);
    QCOMPARE(firmware->takeCalls().filter(u"isHidden"_s).size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!timer);
    QVERIFY(!suppressionTimer(source));
    // The next one begins again.
    source->setOnlineValueText(Axis1, 0, u"4"_s);
    QVERIFY(suppressionTimer(source));
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetHiding)

#include "tst_CoordinateInstanceSetHiding.moc"
