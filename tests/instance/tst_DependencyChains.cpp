#include "tests/instance/InstanceStand.h"

#include <KrFirmware/CallbackProvider.h>
#include <KrParameterDefinition/ParameterException.h>
#include <KrParameterInstance/ParameterData.h>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Dependencies that lead to others, to themselves and to nothing that is still there.
class tst_DependencyChains : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limitsOfTheFirstChange_data();
    void limitsOfTheFirstChange();
    void hiddenFlagOfTheFirstChange_data();
    void hiddenFlagOfTheFirstChange();
    void unitOfTheFirstChange();
    void receiversByCoordinate();
    void noDependencyProperty_data();
    void noDependencyProperty();
    void selfLoop();
    void selfLoopWithinTheDepth();
    void loopThroughAListener();
    void manyChangesOfOne();
    void everyOutermostChangeIsReported();
    void functionThatThrows();
    void functionRemovesItsParameter();
    void functionDestroysTheContainer();
};

namespace {

const QString CutText =
    u" löst zu viele aufeinander folgende Änderungen aus. Die weiteren Abhängigkeiten wurden nicht "
    "mehr ausgeführt!"_s;

QString sourceText(const InstanceStand &stand)
{
    return stand.container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, false);
}

/// A12 runs its own post-write function whenever it changes.
CoordinateInstanceSet *addLoop(InstanceStand &stand)
{
    return stand.add(
        DefinitionBuilder().property(PostwriteDependency, 5).property(PostwriteFunctionIndex, 5U),
        u"A12"_s);
}

} // namespace

void tst_DependencyChains::limitsOfTheFirstChange_data()
{
    QTest::addColumn<bool>("follows");
    QTest::newRow("another limit") << true;
    QTest::newRow("the same limit") << false;
}

void tst_DependencyChains::limitsOfTheFirstChange()
{
    QFETCH(bool, follows);
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(LimitFunctionIndex, 5U), u"B07"_s);
    stand.programFirmware()->upperLimit = [&](const ParameterData &, quint16) {
        return follows ? sourceText(stand) : u"100"_s;
    };
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(stand.log.take(),
        follows ? QStringList {u"receiver.limitsChanged(1.B007[00000])"_s} : QStringList());
}

void tst_DependencyChains::hiddenFlagOfTheFirstChange_data()
{
    QTest::addColumn<QString>("hidingText");
    QTest::addColumn<bool>("isSignalled");
    QTest::newRow("becomes hidden") << u"7"_s << true;
    QTest::newRow("stays visible") << u"8"_s << false;
}

void tst_DependencyChains::hiddenFlagOfTheFirstChange()
{
    QFETCH(QString, hidingText);
    QFETCH(bool, isSignalled);
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(HidingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(HidingFunctionIndex, 5U), u"B07"_s);
    stand.programFirmware()->isHidden = [&](const ParameterData &, quint16) {
        return sourceText(stand) == hidingText;
    };
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(stand.log.take(),
        isSignalled ? QStringList {u"receiver.visibilityChanged(1.B007[00000])"_s} : QStringList());
}

void tst_DependencyChains::unitOfTheFirstChange()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(MeasuringUnitDependency, 1), u"A12"_s);
    auto *receiver = stand.add(
        DefinitionBuilder().property(ScaledMeasuringUnit, u"<localAxis:A12>"_s), u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.measuringUnitChanged(1.B007[00000])"_s});
}

void tst_DependencyChains::receiversByCoordinate()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    const DefinitionBuilder receiver = DefinitionBuilder().property(ScalingFunctionIndex, 5U);
    for (const QString &coordinate : {u"Q30"_s, u"B07"_s, u"Q10"_s})
        stand.log.attach(stand.add(receiver, coordinate), coordinate);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"B07.valueChanged(1.B007[00000])"_s, u"Q10.valueChanged(1.Q010[00000])"_s,
            u"Q30.valueChanged(1.Q030[00000])"_s}));

    stand.set(u"Q10"_s)->setCoordinate(ParameterCoordinate(u"Q40"_s));
    stand.container->deleteParameter(InstanceStand::locator(u"B07"_s, 1));
    stand.log.attach(stand.add(receiver, u"A01"_s), u"A01"_s);
    stand.log.take();
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"A01.valueChanged(1.A001[00000])"_s, u"Q30.valueChanged(1.Q030[00000])"_s,
            u"Q10.valueChanged(1.Q040[00000])"_s}));
}

void tst_DependencyChains::noDependencyProperty_data()
{
    QTest::addColumn<int>("property");
    QTest::newRow("one below the first") << 31;
    QTest::newRow("one behind the last") << 40;
    QTest::newRow("read level") << 5;
    QTest::newRow("unknown") << 4096;
}

void tst_DependencyChains::noDependencyProperty()
{
    QFETCH(int, property);
    InstanceStand stand;
    stand.add(DefinitionBuilder().property(ReadLevel, 5U), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(HidingFunctionIndex, 5U), u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    stand.listen(receiver);
    stand.container->dispatchDependencyChange(
        eParameterProperty(property), Axis1, ParameterCoordinate(u"A12"_s), 0);
    QCOMPARE(stand.log.take(), QStringList());
    QCOMPARE(firmware->takeCalls(), QStringList());
}

void tst_DependencyChains::selfLoop()
{
    InstanceStand stand;
    CoordinateInstanceSet *set = addLoop(stand);
    stand.programFirmware()->runFunction = [&](eFunctionKind, const ParameterData &, quint16) {
        set->setOnlineValueText(Axis1, 0, QString::number(sourceText(stand).toInt() + 1));
    };
    stand.listen(set);
    stand.expectCritical(u"A12"_s + CutText);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    // The write from outside and one by each of the 64 functions; the last one leads to none.
    QCOMPARE(sourceText(stand), u"65"_s);
    QCOMPARE(stand.log.count(u"valueChanged"_s), 65);
    QCOMPARE(stand.log.count(u"parameterNativeValueChanged"_s), 65);
}

void tst_DependencyChains::selfLoopWithinTheDepth()
{
    InstanceStand stand;
    CoordinateInstanceSet *set = addLoop(stand);
    stand.programFirmware()->runFunction = [&](eFunctionKind, const ParameterData &, quint16) {
        const int next = sourceText(stand).toInt() + 1;
        if (next <= 64)
            set->setOnlineValueText(Axis1, 0, QString::number(next));
    };
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(sourceText(stand), u"64"_s);
}

void tst_DependencyChains::loopThroughAListener()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(ScalingFunctionIndex, 5U), u"B07"_s);
    int heard = 0;
    connect(receiver, &ParameterInformation::valueChanged, this, [&] {
        ++heard;
        source->setOnlineValueText(Axis1, 0, QString::number(sourceText(stand).toInt() + 1));
    });
    stand.expectCritical(u"A12"_s + CutText);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(heard, 64);
    QCOMPARE(sourceText(stand), u"65"_s);
}

void tst_DependencyChains::manyChangesOfOne()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(PostwriteDependency, 5), u"A12"_s);
    stand.add(DefinitionBuilder().property(PostwriteFunctionIndex, 5U), u"B07"_s);
    auto *inner = stand.add(DefinitionBuilder().property(PrereadDependency, 6), u"C01"_s);
    stand.add(DefinitionBuilder().property(PrereadFunctionIndex, 6U), u"D01"_s);
    int innerCalls = 0;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->runFunction = [&](eFunctionKind kind, const ParameterData &, quint16) {
        if (kind == eFunctionKind::Preread) {
            ++innerCalls;
            return;
        }
        for (int i = 1; i <= 100010; ++i)
            inner->setOnlineValueText(Axis1, 0, QString::number(i));
    };
    stand.expectCritical(u"C01"_s + CutText);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    // One of the 100,000 dispatches is the outermost one.
    QCOMPARE(innerCalls, 99999);
    QCOMPARE(inner->nativeValueText(Axis1, 0, false), u"100010"_s);
}

void tst_DependencyChains::everyOutermostChangeIsReported()
{
    InstanceStand stand;
    CoordinateInstanceSet *set = addLoop(stand);
    stand.programFirmware()->runFunction = [&](eFunctionKind, const ParameterData &, quint16) {
        set->setOnlineValueText(Axis1, 0, QString::number(sourceText(stand).toInt() + 1));
    };
    stand.expectCritical(u"A12"_s + CutText);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    stand.expectCritical(u"A12"_s + CutText);
    set->setOnlineValueText(Axis1, 0, u"100"_s);
    QCOMPARE(sourceText(stand), u"164"_s);
}

void tst_DependencyChains::functionThatThrows()
{
    InstanceStand stand;
    CoordinateInstanceSet *set = addLoop(stand);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->runFunction = [](eFunctionKind, const ParameterData &, quint16) { throw 1; };
    for (int i = 1; i <= 70; ++i)
        QVERIFY_EXCEPTION_THROWN(set->setOnlineValueText(Axis1, 0, QString::number(i)), int);
    // The dispatches that ended that way do not count as running.
    int calls = 0;
    firmware->runFunction = [&](eFunctionKind, const ParameterData &, quint16) { ++calls; };
    set->setOnlineValueText(Axis1, 0, u"71"_s);
    QCOMPARE(calls, 1);
}

void tst_DependencyChains::functionRemovesItsParameter()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(PostwriteDependency, 5), u"A12"_s);
    stand.add(DefinitionBuilder().kind(3).property(PostwriteFunctionIndex, 5U), u"B07"_s);
    int answers = 0;
    stand.programFirmware()->runFunction = [&](eFunctionKind, const ParameterData &data, quint16) {
        QCOMPARE(data.kind(0), 3);
        stand.container->deleteParameter(InstanceStand::locator(u"B07"_s, 1));
        QCOMPARE(data.kind(0), 0);
        QVERIFY(!data.simpleType(0));
        QVERIFY(!data.isGlobalParameter());
        QVERIFY(!data.hasProperty(0, PostwriteFunctionIndex));
        QVERIFY(!data.property(0, PostwriteFunctionIndex).isValid());
        QCOMPARE(data.choiceMapKeys(0), QList<qint32>());
        QVERIFY_EXCEPTION_THROWN(data.addressNumber(0), ParameterException);
        ++answers;
    };
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(answers, 1);
    QVERIFY(!stand.set(u"B07"_s));
}

void tst_DependencyChains::functionDestroysTheContainer()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(PostwriteDependency, 5), u"A12"_s);
    stand.add(DefinitionBuilder().kind(3).property(PostwriteFunctionIndex, 5U), u"B07"_s);
    int answers = 0;
    stand.programFirmware()->runFunction = [&](eFunctionKind, const ParameterData &data, quint16) {
        stand.container.reset();
        QCOMPARE(data.kind(0), 0);
        ++answers;
    };
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(answers, 1);
}

QTEST_GUILESS_MAIN(tst_DependencyChains)

#include "tst_DependencyChains.moc"
