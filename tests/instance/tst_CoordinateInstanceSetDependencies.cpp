#include "tests/instance/DependencyStand.h"

#include <KrParameterInstance/ParameterData.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// A change travels: who is reached, what follows, in which order.
class tst_CoordinateInstanceSetDependencies : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void orderOfAllKinds();
    void whoDepends_data();
    void whoDepends();
    void whoDependsByUnitLocator_data();
    void whoDependsByUnitLocator();
    void livingSpacesReached_data();
    void livingSpacesReached();
    void elementsReached();
    void sourceWithoutReference_data();
    void sourceWithoutReference();
    void overriddenReferences();
    void limits();
    void scaling();
    void functions_data();
    void functions();
    void hiding();
    void hidingOfAnInvisibleLevel();
    void hidingNeverAskedForIsNotSignalled();
    void measuringUnit();
    void dependenciesOfTheParameterItself();
    void onlineValuesDispatchToo();
    void equalValuesAndDefaultsDispatchNothing();
    void newProviderAsksKnownFlagsAnew();
};

void tst_CoordinateInstanceSetDependencies::orderOfAllKinds()
{
    InstanceStand stand;
    DefinitionBuilder source;
    for (quint32 property = 32; property < 40; ++property)
        source.property(eParameterProperty(property), 5U);
    auto *set = stand.add(source, u"A12"_s);
    DefinitionBuilder receiver = DefinitionBuilder().units(u"<localAxis:A12>"_s);
    for (const quint32 property : {0U, 1U, 2U, 3U, 4U, 7U, 21U})
        receiver.property(eParameterProperty(property), 5U);
    auto *dependent = stand.add(receiver, u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    bool isHidden = false;
    firmware->isHidden = [&](const ParameterData &data, quint16) {
        return isHidden && data.hidingFunctionIndex(0) == 5;
    };
    firmware->upperLimit = [&](const ParameterData &data, quint16) {
        return data.limitFunctionIndex(0) == 5 ? set->nativeValueText(Axis1, 0, false) : QString();
    };
    firmware->runFunction = [&](eFunctionKind kind, const ParameterData &, quint16) {
        stand.log.note(u"function %1"_s.arg(quint32(kind)));
    };
    QVERIFY(dependent->isVisible(Axis1, 0));
    isHidden = true;
    stand.listen(set);
    stand.log.attach(dependent, u"dependent"_s);
    set->setOnlineValueText(Axis1, 0, u"9"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(1.A012[00000])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s,
            u"container.parameterValueChanged(1.A012[00000])"_s,
            u"container.parameterNativeValueChanged(1.A012[00000])"_s,
            // Limits, scaling, post-write, pre-read, post-read, pre-write, hiding, unit.
            u"dependent.limitsChanged(1.B007[00000])"_s, u"dependent.valueChanged(1.B007[00000])"_s,
            u"container.parameterValueChanged(1.B007[00000])"_s, u"function 2"_s, u"function 0"_s,
            u"function 3"_s, u"function 1"_s, u"dependent.visibilityChanged(1.B007[00000])"_s,
            u"container.parameterVisibilityChanged(1.B007[00000])"_s,
            u"dependent.measuringUnitChanged(1.B007[00000])"_s,
            u"container.parameterMeasuringUnitChanged(1.B007[00000])"_s}));
}

void tst_CoordinateInstanceSetDependencies::whoDepends_data()
{
    QTest::addColumn<quint32>("dependency");
    QTest::addColumn<quint32>("index");
    QTest::addColumn<qint32>("reference");
    QTest::addColumn<quint32>("receiverIndex");
    QTest::addColumn<bool>("isReached");

    const QList<std::pair<quint32, quint32>> pairs {
        {32U, 7U}, {33U, 21U}, {34U, 2U}, {35U, 0U}, {36U, 3U}, {37U, 1U}, {38U, 4U}};
    for (const auto &[dependency, index] : pairs) {
        QTest::addRow("%u: equal", dependency) << dependency << index << 5 << 5U << true;
        QTest::addRow("%u: greatest index", dependency)
            << dependency << index << 65535 << 65535U << true;
        QTest::addRow("%u: another index", dependency) << dependency << index << 5 << 6U << false;
        QTest::addRow("%u: index 0", dependency) << dependency << index << 5 << 0U << false;
        QTest::addRow("%u: no reference", dependency) << dependency << index << 0 << 0U << false;
        QTest::addRow("%u: negative reference", dependency)
            << dependency << index << -5 << 5U << false;
        QTest::addRow("%u: reference beyond 16 bits", dependency)
            << dependency << index << 65541 << 5U << false;
    }
    // The index of another kind does not count.
    QTest::newRow("limit dependency, scaling index") << 32U << 21U << 5 << 5U << false;
    QTest::newRow("post-write dependency, post-read index") << 34U << 3U << 5 << 5U << false;
    QTest::newRow("post-read dependency, post-write index") << 36U << 2U << 5 << 5U << false;
}

void tst_CoordinateInstanceSetDependencies::whoDepends()
{
    QFETCH(quint32, dependency);
    QFETCH(quint32, index);
    QFETCH(qint32, reference);
    QFETCH(quint32, receiverIndex);
    QFETCH(bool, isReached);
    InstanceStand stand;
    const auto [source, receiver] = addPair(
        stand, eParameterProperty(dependency), reference, eParameterProperty(index), receiverIndex);
    ProgrammedFunctions *firmware = stand.programFirmware();
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"9"_s);
    // Each kind shows by a function that it asks of the receiver, scaling by a signal.
    const bool isSeen =
        !firmware->calls.filter(u"1.B007[00000]"_s).isEmpty() || !stand.log.entries().isEmpty();
    QCOMPARE(isSeen, isReached);
}

void tst_CoordinateInstanceSetDependencies::whoDependsByUnitLocator_data()
{
    QTest::addColumn<QString>("scaled");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("fieldbus");
    QTest::addColumn<int>("reference");
    QTest::addColumn<bool>("isReached");
    const QString locator = u"<localAxis:A12>"_s;
    const QString active = u"<activeAxis:A12>"_s;
    QTest::newRow("scaled") << locator << QString() << QString() << -3 << true;
    QTest::newRow("native") << QString() << locator << QString() << -3 << true;
    QTest::newRow("fieldbus") << QString() << QString() << locator << -3 << true;
    QTest::newRow("active axis") << active << QString() << QString() << -3 << true;
    QTest::newRow("another parameter")
        << u"<localAxis:E84>"_s << QString() << QString() << -3 << false;
    QTest::newRow("plain unit") << u"A12"_s << QString() << QString() << -3 << false;
    QTest::newRow("a reference of 0 leads to nobody")
        << locator << locator << locator << 0 << false;
}

void tst_CoordinateInstanceSetDependencies::whoDependsByUnitLocator()
{
    QFETCH(QString, scaled);
    QFETCH(QString, native);
    QFETCH(QString, fieldbus);
    QFETCH(int, reference);
    QFETCH(bool, isReached);
    InstanceStand stand;
    stand.add(DefinitionBuilder().global(), u"E84"_s, {0});
    auto *source =
        stand.add(DefinitionBuilder().property(MeasuringUnitDependency, reference), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().units(scaled, native, fieldbus), u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"9"_s);
    QCOMPARE(stand.log.take(),
        isReached ? QStringList {u"receiver.measuringUnitChanged(1.B007[00000])"_s}
                  : QStringList());
}

void tst_CoordinateInstanceSetDependencies::livingSpacesReached_data()
{
    QTest::addColumn<bool>("isSourceGlobal");
    QTest::addColumn<bool>("isReceiverGlobal");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("axis 1 reaches axis 1")
        << false << false << 1 << QStringList {u"receiver.valueChanged(1.B007[00000])"_s};
    QTest::newRow("axis 2 reaches axis 2")
        << false << false << 2 << QStringList {u"receiver.valueChanged(2.B007[00000])"_s};
    QTest::newRow("axis 3, which the receiver lacks") << false << false << 3 << QStringList();
    QTest::newRow("axis 2 reaches a global receiver")
        << false << true << 2 << QStringList {u"receiver.valueChanged(1.B007[00000])"_s};
    QTest::newRow("a global source reaches every axis")
        << true << false << 0
        << QStringList {u"receiver.valueChanged(1.B007[00000])"_s,
               u"receiver.valueChanged(2.B007[00000])"_s};
    QTest::newRow("a global source written for axis 2 reaches every axis")
        << true << false << 2
        << QStringList {u"receiver.valueChanged(1.B007[00000])"_s,
               u"receiver.valueChanged(2.B007[00000])"_s};
    QTest::newRow("a global source reaches a global receiver")
        << true << true << 0 << QStringList {u"receiver.valueChanged(1.B007[00000])"_s};
}

void tst_CoordinateInstanceSetDependencies::livingSpacesReached()
{
    QFETCH(bool, isSourceGlobal);
    QFETCH(bool, isReceiverGlobal);
    QFETCH(int, livingSpace);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    auto *source =
        stand.add(DefinitionBuilder().global(isSourceGlobal).property(ScalingDependency, 5U),
            u"A12"_s, {1, 2, 3});
    auto *receiver =
        stand.add(DefinitionBuilder().global(isReceiverGlobal).property(ScalingFunctionIndex, 5U),
            u"B07"_s, {1, 2});
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(eLivingSpace(livingSpace), 0, u"9"_s);
    QCOMPARE(stand.log.take(), expected);
}

void tst_CoordinateInstanceSetDependencies::elementsReached()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder()
                                 .element(0, u"a"_s)
                                 .property(ScalingDependency, 5U)
                                 .element(1, u"b"_s)
                                 .property(ScalingDependency, 6U)
                                 .element(2, u"c"_s)
                                 .property(ScalingDependency, 0U),
        u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder()
                                   .element(7, u"a"_s)
                                   .property(ScalingFunctionIndex, 6U)
                                   .element(3, u"b"_s)
                                   .property(ScalingFunctionIndex, 5U)
                                   .element(4, u"c"_s)
                                   .property(ScalingFunctionIndex, 6U),
        u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"9"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.valueChanged(1.B007[00003])"_s});
    source->setOnlineValueText(Axis1, 1, u"9"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {
            u"receiver.valueChanged(1.B007[00007])"_s, u"receiver.valueChanged(1.B007[00004])"_s}));
    source->setOnlineValueText(Axis1, 2, u"9"_s);
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetDependencies::sourceWithoutReference_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<quint16>("element");
    QTest::newRow("no such parameter") << u"Z99"_s << quint16(0);
    QTest::newRow("no coordinate") << QString() << quint16(0);
    QTest::newRow("no such element") << u"A12"_s << quint16(1);
}

void tst_CoordinateInstanceSetDependencies::sourceWithoutReference()
{
    QFETCH(QString, coordinate);
    QFETCH(quint16, element);
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, ScalingDependency, 5U, ScalingFunctionIndex, 5U);
    stand.listen(receiver);
    stand.container->dispatchDependencyChange(
        ScalingDependency, Axis1, ParameterCoordinate(coordinate), element);
    QCOMPARE(stand.log.entries(), QStringList());
    stand.container->dispatchDependencyChange(
        ScalingDependency, Axis1, ParameterCoordinate(u"A12"_s), 0);
    QCOMPARE(stand.log.count(u"valueChanged"_s), 1);
}

void tst_CoordinateInstanceSetDependencies::overriddenReferences()
{
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, ScalingDependency, 0U, ScalingFunctionIndex, 5U);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(), QStringList());
    source->setProperty(0, ScalingDependency, ParameterProperty(QVariant(5U)));
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take().size(), 1);
    receiver->setProperty(0, ScalingFunctionIndex, ParameterProperty(QVariant(6U)));
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetDependencies::limits()
{
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, LimitDependency, 5U, LimitFunctionIndex, 5U);
    ProgrammedFunctions *firmware = stand.programFirmware();
    QString limit = u"10"_s;
    firmware->upperLimit = [&](const ParameterData &, quint16) { return limit; };
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    stand.listen(receiver);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.count(u"limitsChanged"_s), 0);
    limit = u"20"_s;
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(stand.log.entriesOf(u"limitsChanged"_s),
        QStringList {u"set.limitsChanged(1.B007[00000])"_s});
    QCOMPARE(receiver->upperLimitText(Axis1, 0), u"20"_s);
    // The value stays, even outside.
    QCOMPARE(stand.log.count(u"nativeValueChanged"_s), 0);
}

void tst_CoordinateInstanceSetDependencies::scaling()
{
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, ScalingDependency, 5U, ScalingFunctionIndex, 5U);
    // A change of the display only: neither a native signal nor a dispatch of its own.
    receiver->setProperty(0, PostwriteDependency, ParameterProperty(QVariant(9U)));
    auto *third = stand.add(DefinitionBuilder().property(PostwriteFunctionIndex, 9U), u"C01"_s);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    stand.listen(receiver);
    stand.log.attach(third, u"third"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"container.parameterValueChanged(1.A012[00000])"_s,
            u"container.parameterNativeValueChanged(1.A012[00000])"_s,
            u"set.valueChanged(1.B007[00000])"_s,
            u"container.parameterValueChanged(1.B007[00000])"_s}));
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList());
}

void tst_CoordinateInstanceSetDependencies::functions_data()
{
    QTest::addColumn<quint32>("dependency");
    QTest::addColumn<quint32>("index");
    QTest::addColumn<QString>("call");
    QTest::newRow("post-write") << 34U << 2U << u"runFunction 1.B007[00000] 2"_s;
    QTest::newRow("pre-read") << 35U << 0U << u"runFunction 1.B007[00000] 0"_s;
    QTest::newRow("post-read") << 36U << 3U << u"runFunction 1.B007[00000] 3"_s;
    QTest::newRow("pre-write") << 37U << 1U << u"runFunction 1.B007[00000] 1"_s;
}

void tst_CoordinateInstanceSetDependencies::functions()
{
    QFETCH(quint32, dependency);
    QFETCH(quint32, index);
    QFETCH(QString, call);
    InstanceStand stand;
    const auto [source, receiver] =
        addPair(stand, eParameterProperty(dependency), 5U, eParameterProperty(index), 5U);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList {call});
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetDependencies::hiding()
{
    InstanceStand stand;
    TestClock clock(stand);
    const DependencyPair pair = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    CoordinateInstanceSet *const source = pair.source;
    CoordinateInstanceSet *const receiver = pair.receiver;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->isHidden = [source](const ParameterData &data, quint16) {
        return data.hidingFunctionIndex(0) == 5
            && source->nativeValueText(Axis1, 0, false) == u"1"_s;
    };
    QVERIFY(receiver->isVisible(Axis1, 0));
    stand.listen(receiver);
    const auto writeLater = [&](const QString &text) {
        clock.now = clock.now.addMSecs(5000);
        source->setOnlineValueText(Axis1, 0, text);
        return stand.log.take().filter(u"isibilityChanged"_s);
    };
    const QStringList changed {u"set.visibilityChanged(1.B007[00000])"_s,
        u"container.parameterVisibilityChanged(1.B007[00000])"_s};
    QCOMPARE(writeLater(u"1"_s), changed);
    QVERIFY(receiver->isHidden(Axis1, 0));
    QVERIFY(!receiver->isVisible(Axis1, 0));
    QCOMPARE(writeLater(u"2"_s), changed);
    QVERIFY(receiver->isVisible(Axis1, 0));
    QCOMPARE(writeLater(u"3"_s), QStringList());
}

void tst_CoordinateInstanceSetDependencies::hidingOfAnInvisibleLevel()
{
    InstanceStand stand;
    TestClock clock(stand);
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    receiver->setProperty(0, ReadLevel, ParameterProperty(QVariant(3U)));
    bool isHidden = false;
    stand.programFirmware()->isHidden = [&](const ParameterData &, quint16) { return isHidden; };
    QVERIFY(!receiver->isHidden(Axis1, 0));
    stand.log.attach(receiver, u"receiver"_s);
    isHidden = true;
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    // The level hides it already; the flag follows all the same.
    QCOMPARE(stand.log.entries(), QStringList());
    QVERIFY(receiver->isHidden(Axis1, 0));
}

void tst_CoordinateInstanceSetDependencies::hidingNeverAskedForIsNotSignalled()
{
    InstanceStand stand;
    const auto [source, receiver] = addPair(stand, HidingDependency, 5U, HidingFunctionIndex, 5U);
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16) { return true; };
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.entries(), QStringList());
    QVERIFY(receiver->isHidden(Axis1, 0));
}

void tst_CoordinateInstanceSetDependencies::measuringUnit()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder()
                                 .kind(1)
                                 .choices({{0, u"mm"_s}, {1, u"Zoll"_s}, {2, u"Zoll"_s}})
                                 .property(MeasuringUnitDependency, 1U),
        u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().units(u"<localAxis:A12>"_s), u"B07"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(receiver->displayValueText(Axis1, 0, true), u"0 Zoll"_s);
    stand.listen(receiver);
    source->setOnlineValueText(Axis1, 0, u"0"_s);
    QCOMPARE(stand.log.take().filter(u"nitChanged"_s),
        (QStringList {u"set.measuringUnitChanged(1.B007[00000])"_s,
            u"container.parameterMeasuringUnitChanged(1.B007[00000])"_s}));
    QCOMPARE(receiver->displayValueText(Axis1, 0, true), u"0 mm"_s);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take().filter(u"nitChanged"_s).size(), 2);
    // The same unit text.
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take().filter(u"nitChanged"_s), QStringList());
}

void tst_CoordinateInstanceSetDependencies::dependenciesOfTheParameterItself()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().property(ScalingDependency, 5U).property(ScalingFunctionIndex, 5U),
        u"A12"_s);
    stand.log.attach(set, u"set"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(1.A012[00000])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s, u"set.valueChanged(1.A012[00000])"_s}));
}

void tst_CoordinateInstanceSetDependencies::onlineValuesDispatchToo()
{
    InstanceStand stand;
    const auto [source, receiver] =
        addPair(stand, PostwriteDependency, 5U, PostwriteFunctionIndex, 5U);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    source->setNativeValue(Axis1, 0, u"2"_s);
    source->setValueText(Axis1, 0, u"3"_s);
    source->setNativeText(Axis1, 0, u"4"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s).size(), 4);
    QVERIFY(receiver->hasInstance(Axis1));
}

void tst_CoordinateInstanceSetDependencies::equalValuesAndDefaultsDispatchNothing()
{
    InstanceStand stand;
    const auto [source, receiver] =
        addPair(stand, PostwriteDependency, 5U, PostwriteFunctionIndex, 5U);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    source->setNativeValue(Axis1, 0, u"1"_s);
    source->setValueText(Axis1, 0, u"1"_s);
    source->setNativeText(Axis1, 0, u"1"_s);
    source->setDefaultNativeValueText(Axis1, 0, u"9"_s);
    source->setDefaultValueText(Axis1, 0, u"8"_s);
    source->setElementCount(2);
    source->setValueChangeTag(Axis1, 0, u"t"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList());
    QVERIFY(receiver->hasInstance(Axis1));
}

void tst_CoordinateInstanceSetDependencies::newProviderAsksKnownFlagsAnew()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    QVERIFY(set->isVisible(Axis1, 1));
    stand.listen(set);
    auto functions = std::make_shared<ProgrammedFunctions>();
    functions->isHidden = [](const ParameterData &, quint16) { return true; };
    ContainerInternals::bind(
        *stand.container, std::make_unique<ProgrammedFunctionProvider>(functions));
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.visibilityChanged(1.A012[00001])"_s,
            u"container.parameterVisibilityChanged(1.A012[00001])"_s}));
    // The other flag was never asked for.
    QCOMPARE(functions->calls, QStringList {u"isHidden 1.A012[00001]"_s});
    ContainerInternals::bind(*stand.container, nullptr);
    QCOMPARE(stand.log.take().size(), 2);
    QVERIFY(!set->isHidden(Axis1, 1));
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetDependencies)

#include "tst_CoordinateInstanceSetDependencies.moc"
