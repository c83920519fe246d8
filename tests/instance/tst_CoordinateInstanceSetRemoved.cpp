#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

#include <functional>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// A set between parameterRemoved and its end: it answers and stores, but nobody hears of it.
class tst_CoordinateInstanceSetRemoved : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsNothing_data();
    void tellsNothing();
    void leadsToNothing_data();
    void leadsToNothing();
    void answersAndStores();
};

namespace {

using Operation = std::function<void(CoordinateInstanceSet *)>;

const QMap<const char *, Operation> &operations()
{
    static const QMap<const char *, Operation> list {
        {"setValueText", [](auto *set) { set->setValueText(Axis1, 0, u"7"_s); }},
        {"setNativeValue", [](auto *set) { set->setNativeValue(Axis1, 0, u"7"_s); }},
        {"setNativeText", [](auto *set) { set->setNativeText(Axis1, 0, u"7"_s); }},
        {"setOnlineValueText", [](auto *set) { set->setOnlineValueText(Axis1, 0, u"7"_s); }},
        {"setDefaultValueText", [](auto *set) { set->setDefaultValueText(Axis1, 0, u"7"_s); }},
        {"setElementCount", [](auto *set) { set->setElementCount(5); }},
        {"setCoordinate", [](auto *set) { set->setCoordinate(ParameterCoordinate(u"Q06"_s)); }},
        {"setProperty of the read level",
            [](auto *set) { set->setProperty(0, ReadLevel, ParameterProperty(QVariant(5U))); }},
        {"setProperty of the write level",
            [](auto *set) { set->setProperty(0, WriteLevel, ParameterProperty(QVariant(5U))); }},
        {"setProperty of a limit",
            [](auto *set) {
                set->setProperty(0, UpperLimitValue, ParameterProperty(QVariant(u"3"_s)));
            }},
        {"setProperty of a unit",
            [](auto *set) {
                set->setProperty(0, ScaledMeasuringUnit, ParameterProperty(QVariant(u"A"_s)));
            }},
        {"setParameterNeedsConsistence",
            [](auto *set) { set->setParameterNeedsConsistence(Axis1, 0, true); }},
        {"startAllElementsConsistenceOnce",
            [](auto *set) { set->startAllElementsConsistenceOnce(Axis1); }},
        {"startAllElementsConsistenceOnce online",
            [](auto *set) {
                set->parameterContainer()->setOnline(true);
                set->startAllElementsConsistenceOnce(Axis1);
                set->setOnlineValueText(Axis1, 0, u"7"_s);
                set->setOnlineValueText(Axis1, 1, u"7"_s);
            }},
        {"cancelAllElementsConsistenceOnce",
            [](auto *set) { set->cancelAllElementsConsistenceOnce(Axis1); }},
        {"takeDefinition", [](auto *set) { set->takeDefinition(set->definition()); }},
        {"askKnownFlagsAnew", [](auto *set) { set->askKnownFlagsAnew(); }},
    };
    return list;
}

DefinitionBuilder twoElements()
{
    return DefinitionBuilder()
        .elementCount(2)
        .limits(u"0"_s, u"9"_s)
        .units(u"V"_s)
        .property(AutomaticOnlineUpdate, 0U);
}

/// Q05 alone with a listener that does something to it when it is removed.
void removeAnd(InstanceStand &stand, const std::function<void(CoordinateInstanceSet *)> &act)
{
    CoordinateInstanceSet *set = stand.set(u"Q05"_s);
    QObject::connect(stand.container.get(), &ParameterContainer::parameterRemoved, set,
        [&stand, &act, set] { act(set); });
    stand.container->deleteParameter(u"D.1;Q05"_s);
}

} // namespace

void tst_CoordinateInstanceSetRemoved::tellsNothing_data()
{
    QTest::addColumn<QByteArray>("operation");
    for (auto it = operations().cbegin(); it != operations().cend(); ++it)
        QTest::newRow(it.key()) << QByteArray(it.key());
}

void tst_CoordinateInstanceSetRemoved::tellsNothing()
{
    QFETCH(QByteArray, operation);
    InstanceStand stand;
    stand.setUserLevel(2);
    CoordinateInstanceSet *set = stand.add(twoElements().levels(2, 2), u"Q05"_s);
    set->isVisible(Axis1, 0);
    bool isRun = false;
    removeAnd(stand, [&](CoordinateInstanceSet *removed) {
        // Whoever holds it may listen to it anew.
        stand.listen(removed);
        for (auto it = operations().cbegin(); it != operations().cend(); ++it) {
            if (operation == it.key())
                it.value()(removed);
        }
        isRun = true;
    });
    QVERIFY(isRun);
    const QStringList told = stand.log.take();
    for (const QString &entry : told)
        QVERIFY2(entry.startsWith(u"container.online"_s), qPrintable(entry));
}

void tst_CoordinateInstanceSetRemoved::leadsToNothing_data()
{
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("where it stood is nothing") << false;
    QTest::newRow("where it stood is another parameter") << true;
}

void tst_CoordinateInstanceSetRemoved::leadsToNothing()
{
    QFETCH(bool, isReplaced);
    InstanceStand stand;
    const DefinitionBuilder source = DefinitionBuilder()
                                         .property(PostwriteDependency, 5)
                                         .property(LimitDependency, 5)
                                         .property(HidingDependency, 5);
    CoordinateInstanceSet *set = stand.add(source, u"Q05"_s);
    stand.add(DefinitionBuilder()
                  .property(PostwriteFunctionIndex, 5U)
                  .property(LimitFunctionIndex, 5U)
                  .property(HidingFunctionIndex, 5U),
        u"B07"_s);
    ParameterDefinition *replacement = stand.define(source, u"Q05"_s, u"Other"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    // More hiding than a throttle lets through: one update waits for its timer.
    for (int i = 0; i < 30; ++i)
        set->setNativeText(Axis1, 0, QString::number(i + 1));
    int calls = 0;
    firmware->runFunction = [&](eFunctionKind, const ParameterData &, quint16) { ++calls; };
    firmware->upperLimit = [&](const ParameterData &, quint16) { return QString::number(++calls); };
    firmware->isHidden = [&](const ParameterData &, quint16) { return ++calls % 2 == 1; };
    removeAnd(stand, [&](CoordinateInstanceSet *removed) {
        if (isReplaced)
            QVERIFY(stand.container->createOrUpdateParameter(replacement, u"D.1;new"_s));
        removed->setNativeText(Axis1, 0, u"77"_s);
        removed->onSuppressedHidingTimerTimedout();
        calls += removed->nativeValueText(Axis1, 0, false) == u"77"_s ? 0 : 1000;
    });
    QCOMPARE(calls, 0);
    QCOMPARE(bool(stand.set(u"Q05"_s)), isReplaced);
}

void tst_CoordinateInstanceSetRemoved::answersAndStores()
{
    InstanceStand stand;
    stand.add(twoElements(), u"Q05"_s);
    QStringList texts;
    removeAnd(stand, [&](CoordinateInstanceSet *removed) {
        texts.append(removed->displayValueText(Axis1, 1, true));
        removed->setValueText(Axis1, 1, u"7"_s);
        texts.append(removed->displayValueText(Axis1, 1, true));
        removed->setProperty(0, UpperLimitValue, ParameterProperty(QVariant(u"3"_s)));
        texts.append(removed->upperLimitText(Axis1, 1));
    });
    QCOMPARE(texts, (QStringList {u"0 V"_s, u"7 V"_s, u"3"_s}));
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetRemoved)

#include "tst_CoordinateInstanceSetRemoved.moc"
