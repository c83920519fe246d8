#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Asking the drive for values: the switch of one element, the run over all elements.
class tst_CoordinateInstanceSetConsistence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void needsConsistence_data();
    void needsConsistence();
    void needsConsistenceOverriddenWithoutValue();
    void needsConsistenceOverriddenUnderALackingDefinition();
    void needsConsistenceOfAbsentValues();
    void needsConsistenceOfAGlobalParameter_data();
    void needsConsistenceOfAGlobalParameter();
    void slotsAreInvokable();
    void startOffline();
    void startOfflineKeepsARun();
    void startAsksForEveryElement();
    void startOfARecordAsksAscending();
    void doneWhenAllCameBack();
    void doneOnceWithLateAndDoubledAnswers();
    void answersInsideTheRequests();
    void equalAnswersCount();
    void doneCarriesTheLivingSpaceOfTheLastAnswer();
    void globalRunIsKeptUnderOneKey_data();
    void globalRunIsKeptUnderOneKey();
    void runsOfAxesAreIndependent();
    void withoutInstance();
    void startReplacesARun();
    void cancel();
    void cancelOfAGlobalRun_data();
    void cancelOfAGlobalRun();
    void cancelWithoutRun();
    void cancelInsideARequest();
    void restartInsideARequest();
    void doneComesAfterTheValue();
    void lostElementsAreNotAwaited_data();
    void lostElementsAreNotAwaited();
};

namespace {

QString onceRequest(const QString &address)
{
    return u"container.parameterNeedsOnlineConsistenceOnce("_s + address + u')';
}

} // namespace

void tst_CoordinateInstanceSetConsistence::needsConsistence_data()
{
    QTest::addColumn<QVariant>("automatic");
    QTest::addColumn<bool>("isMapped");
    QTest::addColumn<bool>("isBlockUsed");
    QTest::addColumn<bool>("isDispatched");
    QTest::addColumn<QString>("warning");

    const QString none;
    QTest::newRow("0 is dispatched") << QVariant(0U) << false << false << true << none;
    QTest::newRow("1, neither mapped nor used") << QVariant(1U) << false << false << false << none;
    QTest::newRow("1, mapped") << QVariant(1U) << true << false << true << none;
    QTest::newRow("1, block used") << QVariant(1U) << false << true << true << none;
    QTest::newRow("1, mapped and block used") << QVariant(1U) << true << true << true << none;
    QTest::newRow("-1, neither mapped nor used") << QVariant(-1) << false << false << false << none;
    QTest::newRow("missing is reported and dispatched")
        << QVariant() << false << false << true
        << u"Missing property \"automatic online update\" at parameter A12\""_s;
}

void tst_CoordinateInstanceSetConsistence::needsConsistence()
{
    QFETCH(QVariant, automatic);
    QFETCH(bool, isMapped);
    QFETCH(bool, isBlockUsed);
    QFETCH(bool, isDispatched);
    QFETCH(QString, warning);

    InstanceStand stand;
    DefinitionBuilder builder = DefinitionBuilder().elementCount(2);
    if (automatic.isValid())
        builder.property(AutomaticOnlineUpdate, automatic);
    else
        builder.without(AutomaticOnlineUpdate);
    auto *set = stand.add(builder, u"A12"_s, {1, 2});
    // Axis 1 in two bits, element 1 in fourteen, coordinate 1012 in sixteen.
    const QString number = QString::number(0x400103F4U);
    auto *mapping = stand.add(DefinitionBuilder().kind(11).datatype(u"UINT32"_s), u"M01"_s);
    if (isMapped)
        mapping->setOnlineValueText(Axis1, 0, number);
    if (isBlockUsed)
        stand.container->setBlockUsedParameters({u"2.A12[1]"_s});
    stand.listen(set);
    for (const bool needed : {true, false}) {
        if (!warning.isEmpty())
            stand.expectWarning(warning);
        set->setParameterNeedsConsistence(Axis2, 1, needed);
        const QString request = u"container.parameterNeedsOnlineConsistence(2.A012[00001], "_s
            + (needed ? u"true)"_s : u"false)"_s);
        QCOMPARE(stand.log.take(), isDispatched ? QStringList {request} : QStringList());
        QVERIFY(stand.messages.verify());
    }
}

// The definition knows the property, so nothing is missing: it counts as 0.
void tst_CoordinateInstanceSetConsistence::needsConsistenceOverriddenWithoutValue()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().property(AutomaticOnlineUpdate, 1U), u"A12"_s);
    set->setProperty(0, AutomaticOnlineUpdate, ParameterProperty());
    stand.listen(set);
    set->setParameterNeedsConsistence(Axis1, 0, true);
    QCOMPARE(stand.log.take(),
        QStringList {u"container.parameterNeedsOnlineConsistence(1.A012[00000], true)"_s});
}

void tst_CoordinateInstanceSetConsistence::needsConsistenceOverriddenUnderALackingDefinition()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().property(AutomaticOnlineUpdate, 1U), u"A12"_s);
    set->setProperty(0, AutomaticOnlineUpdate, ParameterProperty(QVariant(0U)));
    stand.container->createOrUpdateParameter(
        stand.define(DefinitionBuilder().version(2).without(AutomaticOnlineUpdate), u"A12"_s),
        u"D.1;A12"_s);
    stand.listen(set);
    set->setParameterNeedsConsistence(Axis1, 0, true);
    QCOMPARE(stand.log.take(),
        QStringList {u"container.parameterNeedsOnlineConsistence(1.A012[00000], true)"_s});
}

void tst_CoordinateInstanceSetConsistence::needsConsistenceOfAbsentValues()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().without(AutomaticOnlineUpdate), u"A12"_s);
    stand.listen(set);
    set->setParameterNeedsConsistence(Axis1, 1, true);
    for (const int livingSpace : {-1, 0, 2, 5})
        set->setParameterNeedsConsistence(eLivingSpace(livingSpace), 0, true);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetConsistence::needsConsistenceOfAGlobalParameter_data()
{
    QTest::addColumn<int>("livingSpace");
    for (const int livingSpace : {-1, 0, 1, 4, 5})
        QTest::addRow("living space %d", livingSpace) << livingSpace;
}

void tst_CoordinateInstanceSetConsistence::needsConsistenceOfAGlobalParameter()
{
    QFETCH(int, livingSpace);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global(), u"A12"_s, {0});
    stand.listen(set);
    set->setParameterNeedsConsistence(eLivingSpace(livingSpace), 0, true);
    QCOMPARE(stand.log.take(),
        QStringList {u"container.parameterNeedsOnlineConsistence(1.A012[00000], true)"_s});
}

void tst_CoordinateInstanceSetConsistence::slotsAreInvokable()
{
    const QMetaObject &meta = CoordinateInstanceSet::staticMetaObject;
    for (const char *name : {"setParameterNeedsConsistence(eLivingSpace,quint16,bool)",
             "startAllElementsConsistenceOnce(eLivingSpace)",
             "cancelAllElementsConsistenceOnce(eLivingSpace)",
             "onSuppressedHidingTimerTimedout()"}) {
        const int index = meta.indexOfMethod(QMetaObject::normalizedSignature(name));
        QVERIFY2(index >= 0, name);
        QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
    }
}

void tst_CoordinateInstanceSetConsistence::startOffline()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {2});
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis2);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceCanceled(A12, 2)"_s});
    stand.container->setOnline(true);
    stand.log.take();
    set->setOnlineValueText(Axis2, 0, u"1"_s);
    set->setOnlineValueText(Axis2, 1, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 0);
}

void tst_CoordinateInstanceSetConsistence::startOfflineKeepsARun()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    set->setOnlineValueText(Axis1, 0, u"0"_s);
    stand.container->setOnline(false);
    stand.log.attach(set, u"set"_s);
    set->startAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceCanceled(A12, 1)"_s});
    set->setOnlineValueText(Axis1, 1, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 1)"_s});
}

void tst_CoordinateInstanceSetConsistence::startAsksForEveryElement()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s, {1, 2});
    stand.container->setOnline(true);
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis2);
    QCOMPARE(stand.log.take(),
        (QStringList {onceRequest(u"2.A012[00000]"_s), onceRequest(u"2.A012[00001]"_s),
            onceRequest(u"2.A012[00002]"_s)}));
}

void tst_CoordinateInstanceSetConsistence::startOfARecordAsksAscending()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().element(9, u"a"_s).element(2, u"b"_s).element(5, u"c"_s), u"A12"_s);
    stand.container->setOnline(true);
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.take(),
        (QStringList {onceRequest(u"1.A012[00002]"_s), onceRequest(u"1.A012[00005]"_s),
            onceRequest(u"1.A012[00009]"_s)}));
}

void tst_CoordinateInstanceSetConsistence::doneWhenAllCameBack()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis1, 2, u"1"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 0);
    set->setOnlineValueText(Axis1, 1, u"1"_s);
    QCOMPARE(stand.log.entriesOf(u"allElementsConsistenceOnceDone"_s),
        QStringList {u"set.allElementsConsistenceOnceDone(A12, 1)"_s});
}

void tst_CoordinateInstanceSetConsistence::doneOnceWithLateAndDoubledAnswers()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    set->setOnlineValueText(Axis1, 0, u"2"_s);
    set->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 0);
    set->setOnlineValueText(Axis1, 1, u"1"_s);
    set->setOnlineValueText(Axis1, 1, u"3"_s);
    set->setOnlineValueText(Axis1, 0, u"4"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 1);
    // A different text is still stored and signalled.
    QCOMPARE(stand.log.count(u"valueChanged"_s), 5);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"4"_s);
}

void tst_CoordinateInstanceSetConsistence::answersInsideTheRequests()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    stand.container->setOnline(true);
    connect(stand.container.get(), &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this,
        [set](const ParameterAddress &address) {
            set->setOnlineValueText(Axis1, address.element(), u"8"_s);
        });
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.count(u"parameterNeedsOnlineConsistenceOnce"_s), 3);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 1);
}

void tst_CoordinateInstanceSetConsistence::equalAnswersCount()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis1, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 1)"_s});
}

void tst_CoordinateInstanceSetConsistence::doneCarriesTheLivingSpaceOfTheLastAnswer()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global(), u"A12"_s, {0});
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis3);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis2, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 2)"_s});
}

void tst_CoordinateInstanceSetConsistence::globalRunIsKeptUnderOneKey_data()
{
    QTest::addColumn<int>("started");
    QTest::addColumn<int>("answered");
    QTest::newRow("axis 2, answered globally") << 2 << 0;
    QTest::newRow("global, answered by axis 4") << 0 << 4;
    QTest::newRow("axis 1, answered by axis 3") << 1 << 3;
    QTest::newRow("no living space at all") << -5 << 77;
}

void tst_CoordinateInstanceSetConsistence::globalRunIsKeptUnderOneKey()
{
    QFETCH(int, started);
    QFETCH(int, answered);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global(), u"A12"_s, {0});
    stand.container->setOnline(true);
    stand.listen(set);
    set->startAllElementsConsistenceOnce(eLivingSpace(started));
    QCOMPARE(stand.log.take(), QStringList {onceRequest(u"1.A012[00000]"_s)});
    set->setOnlineValueText(eLivingSpace(answered), 0, u"0"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 1);
}

void tst_CoordinateInstanceSetConsistence::runsOfAxesAreIndependent()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s, {1, 2});
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    set->startAllElementsConsistenceOnce(Axis2);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis2, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 2)"_s});
    set->cancelAllElementsConsistenceOnce(Axis2);
    stand.log.take();
    set->setOnlineValueText(Axis1, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 1)"_s});
}

// Nothing is stored, but what came back counts.
void tst_CoordinateInstanceSetConsistence::withoutInstance()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setOnline(true);
    stand.log.attach(set, u"set"_s);
    set->startAllElementsConsistenceOnce(Axis3);
    set->setOnlineValueText(Axis3, 0, u"5"_s);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceDone(A12, 3)"_s});
    QVERIFY(!set->hasInstance(Axis3));
}

void tst_CoordinateInstanceSetConsistence::startReplacesARun()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis1, 1, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 0);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 1);
}

void tst_CoordinateInstanceSetConsistence::cancel()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.log.attach(set, u"set"_s);
    set->cancelAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceCanceled(A12, 1)"_s});
    set->setOnlineValueText(Axis1, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetConsistence::cancelOfAGlobalRun_data()
{
    QTest::addColumn<int>("started");
    QTest::addColumn<int>("cancelled");
    QTest::newRow("axis 2, cancelled globally") << 2 << 0;
    QTest::newRow("global, cancelled by axis 4") << 0 << 4;
    QTest::newRow("axis 1, cancelled by axis 3") << 1 << 3;
}

void tst_CoordinateInstanceSetConsistence::cancelOfAGlobalRun()
{
    QFETCH(int, started);
    QFETCH(int, cancelled);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global(), u"A12"_s, {0});
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(eLivingSpace(started));
    stand.log.attach(set, u"set"_s);
    set->cancelAllElementsConsistenceOnce(eLivingSpace(cancelled));
    QCOMPARE(stand.log.take(),
        QStringList {u"set.allElementsConsistenceOnceCanceled(A12, %1)"_s.arg(cancelled)});
    set->setOnlineValueText(Global, 0, u"0"_s);
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetConsistence::cancelWithoutRun()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.log.attach(set, u"set"_s);
    set->cancelAllElementsConsistenceOnce(Axis4);
    QCOMPARE(stand.log.take(), QStringList {u"set.allElementsConsistenceOnceCanceled(A12, 4)"_s});
}

void tst_CoordinateInstanceSetConsistence::cancelInsideARequest()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    stand.container->setOnline(true);
    connect(stand.container.get(), &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this,
        [set](const ParameterAddress &address) {
            if (address.element() == 1)
                set->cancelAllElementsConsistenceOnce(Axis1);
        });
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.count(u"parameterNeedsOnlineConsistenceOnce"_s), 2);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceCanceled"_s), 1);
    for (const quint16 element : {0, 1, 2})
        set->setOnlineValueText(Axis1, element, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 0);
}

void tst_CoordinateInstanceSetConsistence::restartInsideARequest()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.container->setOnline(true);
    bool isRestarted = false;
    connect(
        stand.container.get(), &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this, [&] {
            if (!std::exchange(isRestarted, true))
                set->startAllElementsConsistenceOnce(Axis1);
        });
    stand.listen(set);
    set->startAllElementsConsistenceOnce(Axis1);
    QCOMPARE(stand.log.count(u"parameterNeedsOnlineConsistenceOnce"_s), 3);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    set->setOnlineValueText(Axis1, 1, u"1"_s);
    QCOMPARE(stand.log.count(u"allElementsConsistenceOnceDone"_s), 1);
}

void tst_CoordinateInstanceSetConsistence::doneComesAfterTheValue()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    stand.listen(set);
    set->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(1.A012[00000])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s,
            u"container.parameterValueChanged(1.A012[00000])"_s,
            u"container.parameterNativeValueChanged(1.A012[00000])"_s,
            u"set.allElementsConsistenceOnceDone(A12, 1)"_s}));
}

void tst_CoordinateInstanceSetConsistence::lostElementsAreNotAwaited_data()
{
    QTest::addColumn<QList<int>>("answered");
    QTest::addColumn<bool>("isDone");
    QTest::newRow("only lost ones were awaited") << QList<int> {0, 1} << true;
    QTest::newRow("another is awaited still") << QList<int> {0} << false;
}

void tst_CoordinateInstanceSetConsistence::lostElementsAreNotAwaited()
{
    QFETCH(QList<int>, answered);
    QFETCH(bool, isDone);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(4), u"A12"_s);
    stand.container->setOnline(true);
    set->startAllElementsConsistenceOnce(Axis1);
    for (const int element : answered)
        set->setOnlineValueText(Axis1, quint16(element), u"5"_s);
    stand.container->setOnline(false);
    stand.log.attach(set, u"set"_s);
    set->setElementCount(2);
    QStringList expected {
        u"set.definitionChanged(1.A012[00000])"_s, u"set.definitionChanged(1.A012[00001])"_s};
    if (isDone)
        expected.append(u"set.allElementsConsistenceOnceDone(A12, 1)"_s);
    expected.append(u"set.nativeValueChanged(1.A012[00000])"_s);
    QCOMPARE(stand.log.take(), expected);
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetConsistence)

#include "tst_CoordinateInstanceSetConsistence.moc"
