#include "tests/instance/InstanceStand.h"

#include <KrParameterInstance/ParameterData.h>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Who is asked by a dependency, and what is told of the answers.
class tst_DependencyFollowers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limitsNobodyAskedFor();
    void limitsSomebodyAskedFor();
    void unitsNobodyAskedFor();
    void maskedLimits_data();
    void maskedLimits();
    void eachLimitIsAskedForOnce();
    void recordElementsAreFoundByKey();
    void elementFollowsByOverride();
    void accessLevelAsksWhereItMatters();
    void hiddenElementsInTheLevelChange();
    void suppressionTimerIsConnected();
    void endedByTheCyclicHidingMessage_data();
    void endedByTheCyclicHidingMessage();

private:
    static constexpr quint32 NoStorage = 1;
};

void tst_DependencyFollowers::limitsNobodyAskedFor()
{
    InstanceStand stand;
    stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(LimitFunctionIndex, 5U), u"B07"_s);
    QString limit = u"10"_s;
    stand.programFirmware()->upperLimit = [&](const ParameterData &, quint16) { return limit; };
    stand.log.attach(receiver, u"receiver"_s);
    const auto dispatch = [&] {
        stand.container->dispatchDependencyChange(
            LimitDependency, Axis1, ParameterCoordinate(u"A12"_s), 0);
        return stand.log.take();
    };
    QCOMPARE(dispatch(), QStringList());
    limit = u"20"_s;
    QCOMPARE(dispatch(), QStringList {u"receiver.limitsChanged(1.B007[00000])"_s});
    QCOMPARE(dispatch(), QStringList());
}

void tst_DependencyFollowers::limitsSomebodyAskedFor()
{
    InstanceStand stand;
    stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(LimitFunctionIndex, 5U), u"B07"_s);
    QString limit = u"10"_s;
    stand.programFirmware()->upperLimit = [&](const ParameterData &, quint16) { return limit; };
    stand.log.attach(receiver, u"receiver"_s);
    QCOMPARE(receiver->upperLimitText(Axis1, 0), u"10"_s);
    limit = u"20"_s;
    // Whoever asks now does not take the change from those who asked before.
    QCOMPARE(receiver->upperLimitText(Axis1, 0), u"20"_s);
    stand.container->dispatchDependencyChange(
        LimitDependency, Axis1, ParameterCoordinate(u"A12"_s), 0);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.limitsChanged(1.B007[00000])"_s});
}

void tst_DependencyFollowers::unitsNobodyAskedFor()
{
    InstanceStand stand;
    stand.add(DefinitionBuilder().property(MeasuringUnitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().units(u"<localAxis:A12>"_s), u"B07"_s);
    stand.listen(receiver);
    stand.container->dispatchDependencyChange(
        MeasuringUnitDependency, Axis1, ParameterCoordinate(u"A12"_s), 0);
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_DependencyFollowers::maskedLimits_data()
{
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<quint32>("memoryAllocation");
    QTest::addColumn<bool>("isMasked");
    QTest::newRow("write level 6 without storage") << 6U << NoStorage << true;
    QTest::newRow("write level 7 without storage") << 7U << NoStorage << true;
    QTest::newRow("write level 5 without storage") << 5U << NoStorage << false;
    QTest::newRow("write level 6 with storage") << 6U << 0U << false;
}

void tst_DependencyFollowers::maskedLimits()
{
    QFETCH(quint32, writeLevel);
    QFETCH(quint32, memoryAllocation);
    QFETCH(bool, isMasked);
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder()
                                   .levels(0, writeLevel)
                                   .property(MemoryAllocation, memoryAllocation)
                                   .property(LimitFunctionIndex, 5U),
        u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QString limit = u"10"_s;
    firmware->upperLimit = [&](const ParameterData &, quint16) { return limit; };
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    limit = u"20"_s;
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take().isEmpty(), isMasked);
    QCOMPARE(firmware->callsOf(u"upperLimit"_s).isEmpty(), isMasked);
    QCOMPARE(receiver->upperLimitText(Axis1, 0), isMasked ? QString() : u"20"_s);
}

void tst_DependencyFollowers::eachLimitIsAskedForOnce()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    stand.add(DefinitionBuilder().property(LimitFunctionIndex, 5U), u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    const QStringList both {u"lowerLimit 1.B007[00000]"_s, u"upperLimit 1.B007[00000]"_s};
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    // Before the first change and after it.
    QCOMPARE(firmware->callsOf(u"lowerLimit"_s).size(), 2);
    QCOMPARE(firmware->callsOf(u"upperLimit"_s).size(), 2);
    firmware->calls.clear();
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(firmware->calls, both);
}

void tst_DependencyFollowers::recordElementsAreFoundByKey()
{
    InstanceStand stand;
    DefinitionBuilder builder;
    for (quint16 element = 0; element < 2000; ++element) {
        builder.element(element, u"x"_s)
            .property(PostwriteDependency, int(element) + 1)
            .property(PostwriteFunctionIndex, quint32(element) + 1);
    }
    auto *set = stand.add(builder, u"A12"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->runFunction = [](eFunctionKind, const ParameterData &, quint16) {};
    set->setOnlineValueText(Axis1, 1234, u"7"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s).size(), 1);

    const DependencyKey key {PostwriteDependency, 1235};
    QCOMPARE(set->followedKeys().value(key), QList<quint16> {1234});
    const QList<DependencyReceiver> receivers =
        ContainerInternals::of(*stand.container)->receivers(key);
    QCOMPARE(receivers.size(), 1);
    QCOMPARE(receivers.at(0).set.data(), set);
    QCOMPARE(receivers.at(0).elements, QList<quint16> {1234});
}

void tst_DependencyFollowers::elementFollowsByOverride()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(
        DefinitionBuilder().element(3, u"a"_s).element(1, u"b"_s).element(2, u"c"_s), u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(), QStringList());
    receiver->setProperty(2, ScalingFunctionIndex, ParameterProperty(5U));
    receiver->setProperty(3, ScalingFunctionIndex, ParameterProperty(5U));
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {
            u"receiver.valueChanged(1.B007[00003])"_s, u"receiver.valueChanged(1.B007[00002])"_s}));
}

void tst_DependencyFollowers::accessLevelAsksWhereItMatters()
{
    InstanceStand stand;
    stand.setUserLevel(2);
    stand.add(DefinitionBuilder().levels(0, 0), u"A12"_s);
    stand.add(DefinitionBuilder().levels(3, 0), u"B07"_s);
    stand.add(DefinitionBuilder().levels(5, 0), u"C01"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    stand.setUserLevel(4);
    QCOMPARE(firmware->callsOf(u"isHidden"_s), QStringList {u"isHidden 1.B007[00000]"_s});
}

void tst_DependencyFollowers::hiddenElementsInTheLevelChange()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().levels(3, 3).elementCount(2), u"A12"_s);
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16 element) {
        return element == 1;
    };
    stand.listen(set);
    stand.setUserLevel(4);
    QCOMPARE(stand.log.take(),
        (QStringList {u"container.accessLevelUpdateStarted()"_s,
            u"set.visibilityChanged(1.A012[00000])"_s,
            u"container.parameterVisibilityChanged(1.A012[00000])"_s,
            u"set.writabilityChanged(1.A012[00000])"_s, u"set.writabilityChanged(1.A012[00001])"_s,
            u"container.accessLevelUpdateFinished()"_s}));
}

void tst_DependencyFollowers::suppressionTimerIsConnected()
{
    InstanceStand stand;
    QTime now(12, 0);
    ContainerInternals::of(*stand.container)->clock = [&now] { return now; };
    auto *source = stand.add(DefinitionBuilder().property(HidingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(HidingFunctionIndex, 5U), u"B07"_s);
    bool isHidden = false;
    stand.programFirmware()->isHidden = [&](const ParameterData &, quint16) { return isHidden; };
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    now = now.addMSecs(10);
    isHidden = true;
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(!receiver->isHidden(Axis1, 0));
    auto *timer = source->findChild<QTimer *>();
    QVERIFY(timer);
    timer->start(0);
    QCoreApplication::processEvents();
    QVERIFY(receiver->isHidden(Axis1, 0));
}

void tst_DependencyFollowers::endedByTheCyclicHidingMessage_data()
{
    QTest::addColumn<QString>("ending");
    QTest::newRow("the listener deletes the parameter") << u"delete"_s;
    QTest::newRow("the listener destroys the container") << u"destroy"_s;
}

void tst_DependencyFollowers::endedByTheCyclicHidingMessage()
{
    QFETCH(QString, ending);
    InstanceStand stand;
    stand.setUserLevel(5);
    QTime now(12, 0);
    ContainerInternals::of(*stand.container)->clock = [&now] { return now; };
    QPointer<CoordinateInstanceSet> source = stand.add(
        DefinitionBuilder().property(HidingDependency, 5).property(MeasuringUnitDependency, 5),
        u"A12"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] {
        if (ending == u"delete"_s)
            stand.container->deleteParameter(InstanceStand::locator(u"A12"_s, 1));
        else
            stand.container.reset();
    });
    for (int i = 0; i < 20 && source; ++i) {
        source->setOnlineValueText(Axis1, 0, QString::number(i + 1));
        now = now.addMSecs(1);
    }
    QVERIFY(!source);
    QCOMPARE(stand.messages.take().size(), 1);
}

QTEST_GUILESS_MAIN(tst_DependencyFollowers)

#include "tst_DependencyFollowers.moc"
