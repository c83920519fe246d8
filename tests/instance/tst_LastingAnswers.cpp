#include "tests/instance/InstanceStand.h"

#include <KrParameterInstance/ParameterData.h>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// What listeners were told of limits, units and visibility, and what makes it outdated.
class tst_LastingAnswers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limitsAfter_data();
    void limitsAfter();
    void unitAfterAnOverride();
    void hiddenFlagBeyondTheCount();
    void receiverByOverride();
    void receiverByNewDefinition();
    void overrideWhileBeingRemoved();
    void missingUnitIsNotAskedFor();
    void limitFunctionThatWrites();
    void nestedAccessLevels();
    void invalidOverrideIsNoDependency();
};

namespace {

ParameterProperty propertyOf(const QVariant &value)
{
    return ParameterProperty(value);
}

} // namespace

void tst_LastingAnswers::limitsAfter_data()
{
    QTest::addColumn<QString>("event");
    QTest::newRow("nothing else") << QString();
    QTest::newRow("override of a limit") << u"override"_s;
    QTest::newRow("another provider") << u"provider"_s;
    QTest::newRow("load") << u"load"_s;
    QTest::newRow("another definition") << u"definition"_s;
}

void tst_LastingAnswers::limitsAfter()
{
    QFETCH(QString, event);
    InstanceStand stand;
    const DefinitionBuilder receiving =
        DefinitionBuilder().limits(u"0"_s, u"9"_s).property(LimitFunctionIndex, 5U);
    auto *source = stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    auto *receiver = stand.add(receiving, u"B07"_s);
    QString limit = u"100"_s;
    const auto bind = [&] {
        stand.programFirmware()->upperLimit = [&](const ParameterData &, quint16) { return limit; };
    };
    bind();
    source->setOnlineValueText(Axis1, 0, u"1"_s);

    limit = u"50"_s;
    QMap<QString, QByteArray> blocks;
    if (event == u"override"_s)
        receiver->setProperty(0, UpperLimitValue, propertyOf(u"20"_s));
    else if (event == u"provider"_s) {
        bind();
        receiver->askKnownFlagsAnew();
    } else if (event == u"load"_s)
        QVERIFY(stand.container->saveTo(blocks) && stand.container->loadFrom(blocks));
    else if (event == u"definition"_s)
        receiver->takeDefinition(
            stand.define(DefinitionBuilder(receiving).version(2), u"B07"_s, u"B07"_s));
    stand.log.attach(receiver, u"receiver"_s);

    // Whoever asked since the event was told 50; without an event 100 is what was told last.
    limit = event.isEmpty() ? u"100"_s : u"50"_s;
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(), QStringList());
    limit = u"70"_s;
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.limitsChanged(1.B007[00000])"_s});
}

void tst_LastingAnswers::unitAfterAnOverride()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(MeasuringUnitDependency, 1), u"A12"_s);
    auto *receiver = stand.add(
        DefinitionBuilder().property(ScaledMeasuringUnit, u"<localAxis:A12>"_s), u"B07"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    stand.log.attach(receiver, u"receiver"_s);
    receiver->setProperty(0, ScaledMeasuringUnit, propertyOf(u"mm"_s));
    QCOMPARE(stand.log.take(), QStringList {u"receiver.measuringUnitChanged(1.B007[00000])"_s});
    // Its unit follows nothing any more.
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(), QStringList());
    receiver->setProperty(0, ScaledMeasuringUnit, propertyOf(u"<localAxis:A12>"_s));
    stand.log.take();
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.measuringUnitChanged(1.B007[00000])"_s});
}

void tst_LastingAnswers::hiddenFlagBeyondTheCount()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16) { return true; };
    QVERIFY(set->isHidden(Axis1, 2));
    set->setElementCount(1);
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16) { return false; };
    set->setElementCount(3);
    QVERIFY(!set->isHidden(Axis1, 2));
}

void tst_LastingAnswers::receiverByOverride()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder(), u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(), QStringList());
    receiver->setProperty(0, ScalingFunctionIndex, propertyOf(5U));
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.valueChanged(1.B007[00000])"_s});

    // Saved with the project, it holds after a load too.
    QMap<QString, QByteArray> blocks;
    QVERIFY(stand.container->saveTo(blocks));
    receiver->setProperty(0, ScalingFunctionIndex, propertyOf(6U));
    QVERIFY(stand.container->loadFrom(blocks));
    stand.log.take();
    source->setOnlineValueText(Axis1, 0, u"3"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.valueChanged(1.B007[00000])"_s});
}

void tst_LastingAnswers::receiverByNewDefinition()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder(), u"B07"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    receiver->takeDefinition(
        stand.define(DefinitionBuilder().version(2).property(ScalingFunctionIndex, 5U), u"B07"_s));
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.valueChanged(1.B007[00000])"_s});
}

void tst_LastingAnswers::overrideWhileBeingRemoved()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    const QPointer<ParameterSetup> receiver =
        stand.add(DefinitionBuilder().kind(11).property(ScalingFunctionIndex, 5U), u"B07"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    connect(stand.container.get(), &ParameterContainer::parameterRemoved, this,
        [&] { receiver->setProperty(0, ScalingFunctionIndex, propertyOf(5U)); });
    stand.container->deleteParameter(InstanceStand::locator(u"B07"_s, 1));
    QVERIFY(!receiver);
    // Nobody is reached, neither by the dispatch nor by the question for mappings.
    source->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(!stand.container->isParameterMapped(ParameterAddress(u"1.A12"_s, true)));
}

void tst_LastingAnswers::missingUnitIsNotAskedFor()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(MeasuringUnitDependency, 1), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder()
                                   .property(ScaledMeasuringUnit, u"<localAxis:A12>"_s)
                                   .without(FieldbusMeasuringUnit),
        u"B07"_s);
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(stand.log.take(), QStringList {u"receiver.measuringUnitChanged(1.B007[00000])"_s});
}

void tst_LastingAnswers::limitFunctionThatWrites()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(LimitDependency, 5), u"A12"_s);
    stand.add(DefinitionBuilder().property(LimitFunctionIndex, 5U), u"B07"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    int number = 0;
    firmware->upperLimit = [&](const ParameterData &, quint16) {
        firmware->calls.clear();
        source->setOnlineValueText(Axis1, 0, QString::number(++number));
        return QString::number(number);
    };
    source->setOnlineValueText(Axis1, 0, u"-1"_s);
    // It ended; that it was cut is said once.
    const QList<SystemMessage> messages = stand.messages.take();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.constFirst().text.startsWith(u"A12 löst zu viele"_s));
    firmware->upperLimit = nullptr;
    source->setOnlineValueText(Axis1, 0, u"-2"_s);
    QCOMPARE(source->nativeValueText(Axis1, 0, false), u"-2"_s);
}

void tst_LastingAnswers::nestedAccessLevels()
{
    InstanceStand stand;
    stand.setUserLevel(2);
    for (const auto &[coordinate, level] :
        {std::pair(u"A12"_s, 3U), std::pair(u"B07"_s, 4U), std::pair(u"C01"_s, 6U)})
        stand.add(DefinitionBuilder().levels(level, 0), coordinate);
    stand.log.attach(stand.container.get(), u"container"_s);
    bool isNested = false;
    connect(stand.set(u"A12"_s), &ParameterInformation::visibilityChanged, this, [&] {
        if (!std::exchange(isNested, true))
            stand.setUserLevel(6);
    });
    stand.setUserLevel(4);
    QCOMPARE(stand.log.entriesOf(u"parameterVisibilityChanged"_s),
        (QStringList {u"container.parameterVisibilityChanged(1.C001[00000])"_s,
            u"container.parameterVisibilityChanged(1.A012[00000])"_s,
            u"container.parameterVisibilityChanged(1.B007[00000])"_s}));
}

void tst_LastingAnswers::invalidOverrideIsNoDependency()
{
    InstanceStand stand;
    auto *source = stand.add(DefinitionBuilder().property(ScalingDependency, 5), u"A12"_s);
    auto *receiver = stand.add(DefinitionBuilder().property(ScalingFunctionIndex, 5U), u"B07"_s);
    source->setProperty(0, ScalingDependency, ParameterProperty());
    stand.log.attach(receiver, u"receiver"_s);
    source->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(stand.log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_LastingAnswers)

#include "tst_LastingAnswers.moc"
