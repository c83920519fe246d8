#include "tests/instance/InstanceStand.h"
#include "tests/support/ProcessorTimer.h"

#include <LmUtilities/IniParser.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Property overrides: what is refused, what is emitted, how they are saved and loaded. The changes
/// of state that make an answer differ: access level, online, read-only.
class tst_CoordinateInstanceSetProperties : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refused_data();
    void refused();
    void elementCount_data();
    void elementCount();
    void notSettablePropertyIsOverridden();
    void overrideOfASimpleParameter();
    void overrideOfARecord();
    void emitsWhereTheAnswerChanged_data();
    void emitsWhereTheAnswerChanged();
    void emitsForEachInstanceAndElement();
    void emitsForTheElementOfARecord();
    void hiddenValuesChangeNoVisibility();
    void firmwareLimitsHideAnOverride();
    void stampsTheChangeTag();
    void elementsOfARecordHaveTheirOwn();
    void answersWhatANewerDefinitionLacks();
    void everyElementOfALargeRecord_data();
    void everyElementOfALargeRecord();
    void saved_data();
    void saved();
    void savedAfterTheElementCount();
    void loadedAgain();
    void loadReplacesOverrides();
    void accessLevel_data();
    void accessLevel();
    void accessLevelSignals();
    void accessLevelOfAHiddenValue();
    void online_data();
    void online();
    void readOnly_data();
    void readOnly();
};

namespace {

ParameterProperty of(const QVariant &value)
{
    return ParameterProperty(value);
}

QStringList savedLines(const CoordinateInstanceSet *set)
{
    LmIniParser::IniSection section;
    set->saveToSection(section);
    QStringList lines;
    for (const QByteArray &key : section.keys()) {
        lines.append(
            QString::fromLatin1(key) + u'=' + QString::fromLatin1(section.read(key).toByteArray()));
    }
    return lines;
}

} // namespace

void tst_CoordinateInstanceSetProperties::refused_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<quint16>("element");
    for (const quint32 property : {100U, 101U, 102U, 103U, 105U, 107U})
        QTest::addRow("%u is fixed", property) << property << quint16(0);
    for (const quint32 property : {20U, 47U, 51U, 104U, 108U, 112U, 4294967295U})
        QTest::addRow("%u is unknown to the definition", property) << property << quint16(0);
    QTest::newRow("absent element") << 5U << quint16(2);
}

void tst_CoordinateInstanceSetProperties::refused()
{
    QFETCH(quint32, property);
    QFETCH(quint16, element);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    const QVariant before = set->elementProperty(0, eParameterProperty(property)).asVariant();
    stand.listen(set);
    set->setProperty(element, eParameterProperty(property), of(7U));
    QVERIFY(!set->hasPropertyOverride(element, eParameterProperty(property)));
    QVERIFY(!set->hasPropertyOverride(0, eParameterProperty(property)));
    QCOMPARE(set->elementProperty(0, eParameterProperty(property)).asVariant(), before);
    QCOMPARE(stand.log.entries(), QStringList());
    QVERIFY(savedLines(set).filter(u"P_"_s).isEmpty());
}

void tst_CoordinateInstanceSetProperties::elementCount_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<quint16>("expected");
    QTest::newRow("0") << QVariant(0U) << quint16(2);
    QTest::newRow("1") << QVariant(1U) << quint16(1);
    QTest::newRow("16000") << QVariant(16000U) << quint16(16000);
    QTest::newRow("16001") << QVariant(16001U) << quint16(2);
    QTest::newRow("65537 does not wrap") << QVariant(65537U) << quint16(2);
    QTest::newRow("text") << QVariant(u"3"_s) << quint16(3);
    QTest::newRow("no number") << QVariant(u"drei"_s) << quint16(2);
    QTest::newRow("nothing") << QVariant() << quint16(2);
}

void tst_CoordinateInstanceSetProperties::elementCount()
{
    QFETCH(QVariant, value);
    QFETCH(quint16, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    set->setProperty(0, ElementCount, of(value));
    QCOMPARE(set->elementCount(), expected);
    QVERIFY(!set->hasPropertyOverride(0, ElementCount));
}

void tst_CoordinateInstanceSetProperties::notSettablePropertyIsOverridden()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QVERIFY(!set->isPropertySettable(0, OnlineOrder));
    set->setProperty(0, OnlineOrder, of(9U));
    QVERIFY(set->hasPropertyOverride(0, OnlineOrder));
    QCOMPARE(set->elementProperty(0, OnlineOrder).asUint32(), 9U);
}

void tst_CoordinateInstanceSetProperties::overrideOfASimpleParameter()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    set->setProperty(2, OnlineOrder, of(9U));
    for (const quint16 element : {0, 1, 2}) {
        QVERIFY(set->hasPropertyOverride(element, OnlineOrder));
        QCOMPARE(set->elementProperty(element, OnlineOrder).asUint32(), 9U);
    }
    QVERIFY(!set->hasPropertyOverride(3, OnlineOrder));
}

void tst_CoordinateInstanceSetProperties::overrideOfARecord()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().element(3, u"a"_s).element(5, u"b"_s), u"A12"_s);
    set->setProperty(5, OnlineOrder, of(9U));
    QVERIFY(set->hasPropertyOverride(5, OnlineOrder));
    QVERIFY(!set->hasPropertyOverride(3, OnlineOrder));
    QCOMPARE(set->elementProperty(5, OnlineOrder).asUint32(), 9U);
    QCOMPARE(set->elementProperty(3, OnlineOrder).asUint32(), 0U);
}

void tst_CoordinateInstanceSetProperties::emitsWhereTheAnswerChanged_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("expected");

    const QString at = u"(1.A012[00000])"_s;
    const QStringList visibility {
        u"set.visibilityChanged"_s + at, u"container.parameterVisibilityChanged"_s + at};
    const QStringList unit {
        u"set.measuringUnitChanged"_s + at, u"container.parameterMeasuringUnitChanged"_s + at};
    // The user has level 2.
    QTest::newRow("read level above the user's") << 5U << QVariant(3U) << visibility;
    QTest::newRow("read level still below the user's") << 5U << QVariant(2U) << QStringList();
    QTest::newRow("write level above the user's")
        << 6U << QVariant(3U) << QStringList {u"set.writabilityChanged"_s + at};
    QTest::newRow("write level still below the user's") << 6U << QVariant(2U) << QStringList();
    QTest::newRow("lower limit") << 8U << QVariant(u"-2"_s)
                                 << QStringList {u"set.limitsChanged"_s + at};
    QTest::newRow("same lower limit") << 8U << QVariant(u"-1"_s) << QStringList();
    QTest::newRow("same lower limit as a number") << 8U << QVariant(-1) << QStringList();
    QTest::newRow("upper limit") << 9U << QVariant(u"10"_s)
                                 << QStringList {u"set.limitsChanged"_s + at};
    QTest::newRow("scaled unit") << 18U << QVariant(u"V"_s) << unit;
    QTest::newRow("same scaled unit") << 18U << QVariant(u"A"_s) << QStringList();
    QTest::newRow("native unit") << 19U << QVariant(u"V"_s) << unit;
    QTest::newRow("fieldbus unit") << 26U << QVariant(u"V"_s) << unit;
    QTest::newRow("any other property") << 45U << QVariant(5U) << QStringList();
}

void tst_CoordinateInstanceSetProperties::emitsWhereTheAnswerChanged()
{
    QFETCH(quint32, property);
    QFETCH(QVariant, value);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().levels(1, 1).limits(u"-1"_s, u"9"_s).units(u"A"_s, u"inc"_s, u"bit"_s),
        u"A12"_s);
    stand.setUserLevel(2);
    stand.listen(set);
    set->setProperty(0, eParameterProperty(property), of(value));
    QCOMPARE(stand.log.take(), expected);
    QVERIFY(set->hasPropertyOverride(0, eParameterProperty(property)));
    set->setProperty(0, eParameterProperty(property), of(value));
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetProperties::emitsForEachInstanceAndElement()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
    stand.log.attach(set, u"set"_s);
    set->setProperty(0, WriteLevel, of(1U));
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.writabilityChanged(1.A012[00000])"_s,
            u"set.writabilityChanged(1.A012[00001])"_s, u"set.writabilityChanged(2.A012[00000])"_s,
            u"set.writabilityChanged(2.A012[00001])"_s}));
}

void tst_CoordinateInstanceSetProperties::emitsForTheElementOfARecord()
{
    InstanceStand stand;
    auto *set =
        stand.add(DefinitionBuilder().element(3, u"a"_s).element(5, u"b"_s), u"A12"_s, {1, 2});
    stand.log.attach(set, u"set"_s);
    set->setProperty(5, ReadLevel, of(1U));
    QCOMPARE(stand.log.take(),
        (QStringList {
            u"set.visibilityChanged(1.A012[00005])"_s, u"set.visibilityChanged(2.A012[00005])"_s}));
}

void tst_CoordinateInstanceSetProperties::hiddenValuesChangeNoVisibility()
{
    InstanceStand stand;
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16) { return true; };
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.listen(set);
    set->setProperty(0, ReadLevel, of(1U));
    QCOMPARE(stand.log.take(), QStringList());
}

void tst_CoordinateInstanceSetProperties::firmwareLimitsHideAnOverride()
{
    InstanceStand stand;
    stand.programFirmware()->lowerLimit = [](const ParameterData &, quint16) { return u"0"_s; };
    auto *set = stand.add(DefinitionBuilder().limits(u"-1"_s, u"9"_s), u"A12"_s);
    stand.listen(set);
    set->setProperty(0, LowerLimitValue, of(u"-5"_s));
    QCOMPARE(stand.log.take(), QStringList());
    set->setProperty(0, UpperLimitValue, of(u"10"_s));
    QCOMPARE(stand.log.take(), QStringList {u"set.limitsChanged(1.A012[00000])"_s});
}

void tst_CoordinateInstanceSetProperties::stampsTheChangeTag()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setParameterChangeTag(u"eins"_s);
    set->setProperty(0, ReadLevel, of(1U));
    set->setProperty(0, WriteLevel, of(1U));
    stand.container->setParameterChangeTag(u"zwei"_s);
    set->setProperty(0, WriteLevel, of(1U));
    QCOMPARE(set->attribute(Axis1, 0, u"ReadLevelChangeTag"_s), u"eins"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"WriteLevelChangeTag"_s), u"zwei"_s);
    stand.container->setParameterChangeTag(QString());
    set->setProperty(0, ReadLevel, of(1U));
    QCOMPARE(set->attribute(Axis1, 0, u"ReadLevelChangeTag"_s), QString());
}

void tst_CoordinateInstanceSetProperties::elementsOfARecordHaveTheirOwn()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder()
                              .element(2, u"a"_s)
                              .property(ChoiceMap, u"x"_s)
                              .settable(ReadLevel)
                              .element(7, u"b"_s)
                              .without(ReadLevel),
        u"A12"_s);
    QVERIFY(set->hasElementProperty(2, ChoiceMap));
    QVERIFY(!set->hasElementProperty(7, ChoiceMap));
    QVERIFY(set->hasElementProperty(2, ReadLevel));
    QVERIFY(!set->hasElementProperty(7, ReadLevel));
    QVERIFY(set->isPropertySettable(2, ReadLevel));
    QVERIFY(!set->isPropertySettable(7, ReadLevel));
    stand.container->setParameterChangeTag(u"eins"_s);
    set->setProperty(2, ReadLevel, of(1U));
    // The element's information lacks the property: nothing is stored.
    set->setProperty(7, ReadLevel, of(1U));
    QVERIFY(set->hasPropertyOverride(2, ReadLevel));
    QVERIFY(!set->hasPropertyOverride(7, ReadLevel));
    QCOMPARE(set->attribute(Axis1, 2, u"ReadLevelChangeTag"_s), u"eins"_s);
    QCOMPARE(set->attribute(Axis1, 7, u"ReadLevelChangeTag"_s), QString());
}

void tst_CoordinateInstanceSetProperties::answersWhatANewerDefinitionLacks()
{
    InstanceStand stand;
    stand.setUserLevel(4);
    auto *set = stand.add(DefinitionBuilder().limits(u"0"_s, u"9"_s), u"A12"_s);
    set->setProperty(0, ReadLevel, of(3U));
    set->setProperty(0, UpperLimitValue, ParameterProperty(u"5"_s));
    ParameterDefinition *newer = stand.define(
        DefinitionBuilder().version(2).without(ReadLevel).without(UpperLimitValue), u"A12"_s);
    stand.container->createOrUpdateParameter(newer, u"D.1;A12"_s);
    QVERIFY(!set->hasElementProperty(0, ReadLevel));
    QVERIFY(set->hasPropertyOverride(0, ReadLevel));
    QCOMPARE(set->elementProperty(0, ReadLevel).asUint32(), 3U);
    // The accessors find it: nothing is reported as missing.
    QCOMPARE(set->readLevel(0), 3U);
    QVERIFY(set->isVisible(Axis1, 0));
    QCOMPARE(set->upperLimitText(Axis1, 0), u"5"_s);
    QCOMPARE(savedLines(set).filter(u"P_"_s), (QStringList {u"P_0_5=3"_s, u"P_0_9=5"_s}));
    // A new override needs a definition that knows the property.
    set->setProperty(0, ReadLevel, of(1U));
    QCOMPARE(set->elementProperty(0, ReadLevel).asUint32(), 3U);
}

void tst_CoordinateInstanceSetProperties::everyElementOfALargeRecord_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<bool>("isDescending");
    for (const quint32 property : {4U, 11U, 18U, 38U}) {
        QTest::addRow("%u, ascending", property) << property << false;
        QTest::addRow("%u, descending", property) << property << true;
    }
}

// An override costs the same in a large record as in a small one: no change looks at all elements, in
// whatever order they come.
void tst_CoordinateInstanceSetProperties::everyElementOfALargeRecord()
{
    QFETCH(quint32, property);
    QFETCH(bool, isDescending);
    constexpr quint16 Count = 16000;
    // Takes about a tenth of a second; looking at all elements each time takes half a minute.
    constexpr double MostMilliseconds = 5000;
    InstanceStand stand;
    DefinitionBuilder builder;
    for (quint16 element = 0; element < Count; ++element)
        builder.element(element, u"a"_s);
    auto *set = stand.add(builder, u"A12"_s);
    const ProcessorTimer timer;
    const ParameterProperty value = of(QVariant(u"11"_s));
    for (quint16 i = 0; i < Count; ++i) {
        const quint16 element = isDescending ? quint16(Count - 1 - i) : i;
        set->setProperty(element, eParameterProperty(property), value);
    }
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
    for (const quint16 element : {quint16(0), quint16(8000), quint16(Count - 1)}) {
        const QString text = set->elementProperty(element, eParameterProperty(property)).asString();
        QCOMPARE(text, u"11"_s);
    }
}

void tst_CoordinateInstanceSetProperties::saved_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("with tag") << u"t"_s << QStringList {u"P_0_6=4"_s, u"PC_0_6=t"_s};
    QTest::newRow("without tag") << QString() << QStringList {u"P_0_6=4"_s};
}

void tst_CoordinateInstanceSetProperties::saved()
{
    QFETCH(QString, tag);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(savedLines(set), (QStringList {u"V_1_0=0"_s, u"DV_1_0=0"_s}));
    stand.container->setParameterChangeTag(tag);
    set->setProperty(0, WriteLevel, of(4U));
    QCOMPARE(savedLines(set), (QStringList {u"V_1_0=0"_s, u"DV_1_0=0"_s} + expected));
}

void tst_CoordinateInstanceSetProperties::savedAfterTheElementCount()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setProperty(0, WriteLevel, of(4U));
    set->setProperty(0, ReadLevel, of(3U));
    set->setElementCount(2);
    QCOMPARE(savedLines(set),
        (QStringList {u"V_1_0=0"_s, u"DV_1_0=0"_s, u"V_1_1=0"_s, u"DV_1_1=0"_s, u"CE=2"_s,
            u"P_0_5=3"_s, u"P_0_6=4"_s}));
}

void tst_CoordinateInstanceSetProperties::loadedAgain()
{
    InstanceStand stand;
    ParameterText unit;
    unit.setText(u"de"_s, u"µm"_s, u"Mikrometer €"_s);
    unit.setText(u"en"_s, u"um"_s, u"micrometre"_s);
    const DefinitionBuilder builder =
        DefinitionBuilder().units(u"A"_s).limits(u"0"_s, u"9"_s).scaling(1.0F);
    auto *from = stand.add(builder, u"A12"_s);
    auto *to = stand.add(builder, u"A13"_s);
    stand.container->setParameterChangeTag(u"t"_s);
    from->setProperty(0, WriteLevel, of(4U));
    from->setProperty(0, LowerLimitValue, of(u"-18446744073709551615"_s));
    from->setProperty(0, ScalingFactor, of(0.1F));
    from->setProperty(0, ScaledMeasuringUnit, of(QVariant::fromValue(unit)));
    LmIniParser::IniSection section;
    from->saveToSection(section);
    to->loadFromSection(section, false);
    for (const eParameterProperty property :
        {WriteLevel, LowerLimitValue, ScalingFactor, ScaledMeasuringUnit}) {
        QVERIFY(to->hasPropertyOverride(0, property));
        QCOMPARE(to->elementProperty(0, property), from->elementProperty(0, property));
    }
    QCOMPARE(to->scaledMeasuringUnit(0).longText(), u"Mikrometer €"_s);
    QCOMPARE(to->attribute(Axis1, 0, u"WriteLevelChangeTag"_s), u"t"_s);
    QCOMPARE(savedLines(to), savedLines(from));
}

void tst_CoordinateInstanceSetProperties::loadReplacesOverrides()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setProperty(0, ReadLevel, of(4U));
    LmIniParser::IniSection section;
    section.write("V_1_0", "0");
    section.write("DV_1_0", "0");
    section.write("P_0_6", "2");
    set->loadFromSection(section, false);
    QVERIFY(!set->hasPropertyOverride(0, ReadLevel));
    QCOMPARE(set->writeLevel(0), 2);
}

void tst_CoordinateInstanceSetProperties::accessLevel_data()
{
    QTest::addColumn<quint32>("from");
    QTest::addColumn<quint32>("to");
    QTest::addColumn<bool>("isVisibility");
    QTest::addColumn<bool>("isWritability");
    // Read level 2, write level 4.
    QTest::newRow("below both") << 0U << 1U << false << false;
    QTest::newRow("to the read level") << 1U << 2U << true << false;
    QTest::newRow("to the write level") << 2U << 4U << false << true;
    QTest::newRow("over both") << 0U << 6U << true << true;
    QTest::newRow("back under both") << 6U << 0U << true << true;
    QTest::newRow("above both") << 5U << 6U << false << false;
}

void tst_CoordinateInstanceSetProperties::accessLevel()
{
    QFETCH(quint32, from);
    QFETCH(quint32, to);
    QFETCH(bool, isVisibility);
    QFETCH(bool, isWritability);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().levels(2, 4), u"A12"_s);
    stand.setUserLevel(from);
    stand.listen(set);
    stand.setUserLevel(to);
    QStringList expected {u"container.accessLevelUpdateStarted()"_s};
    if (isVisibility) {
        expected << u"set.visibilityChanged(1.A012[00000])"_s
                 << u"container.parameterVisibilityChanged(1.A012[00000])"_s;
    }
    if (isWritability)
        expected << u"set.writabilityChanged(1.A012[00000])"_s;
    expected << u"container.accessLevelUpdateFinished()"_s;
    QCOMPARE(stand.log.take(), expected);
}

void tst_CoordinateInstanceSetProperties::accessLevelSignals()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().element(3, u"a"_s).levels(2, 0).element(5, u"b"_s).levels(0, 2),
        u"A12"_s, {1, 2});
    stand.log.attach(set, u"set"_s);
    stand.setUserLevel(3);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.visibilityChanged(1.A012[00003])"_s,
            u"set.writabilityChanged(1.A012[00005])"_s, u"set.visibilityChanged(2.A012[00003])"_s,
            u"set.writabilityChanged(2.A012[00005])"_s}));
}

void tst_CoordinateInstanceSetProperties::accessLevelOfAHiddenValue()
{
    InstanceStand stand;
    stand.programFirmware()->isHidden = [](const ParameterData &, quint16) { return true; };
    auto *set = stand.add(DefinitionBuilder().levels(2, 4), u"A12"_s);
    stand.log.attach(set, u"set"_s);
    stand.setUserLevel(6);
    QCOMPARE(stand.log.take(), QStringList {u"set.writabilityChanged(1.A012[00000])"_s});
}

void tst_CoordinateInstanceSetProperties::online_data()
{
    QTest::addColumn<quint32>("kind");
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<bool>("from");
    QTest::addColumn<bool>("to");
    QTest::addColumn<bool>("isSignalled");
    QTest::newRow("kind 0") << 0U << 0U << false << true << false;
    QTest::newRow("kind 2 going online") << 2U << 0U << false << true << true;
    QTest::newRow("kind 2 going offline") << 2U << 0U << true << false << true;
    QTest::newRow("kind 2 staying online") << 2U << 0U << true << true << false;
    QTest::newRow("kind 2 staying offline") << 2U << 0U << false << false << false;
    QTest::newRow("kind 2 of a level too high") << 2U << 1U << false << true << false;
}

void tst_CoordinateInstanceSetProperties::online()
{
    QFETCH(quint32, kind);
    QFETCH(quint32, writeLevel);
    QFETCH(bool, from);
    QFETCH(bool, to);
    QFETCH(bool, isSignalled);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().kind(kind).levels(0, writeLevel), u"A12"_s);
    stand.container->setOnline(from);
    stand.listen(set);
    stand.container->setOnline(to);
    const QString state = to ? u"(true)"_s : u"(false)"_s;
    QStringList expected {u"container.onlineSetToChange"_s + state};
    if (isSignalled)
        expected << u"set.writabilityChanged(1.A012[00000])"_s;
    expected << u"container.onlineChanged"_s + state;
    QCOMPARE(stand.log.take(), expected);
}

void tst_CoordinateInstanceSetProperties::readOnly_data()
{
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<bool>("from");
    QTest::addColumn<bool>("to");
    QTest::addColumn<bool>("isSignalled");
    QTest::newRow("becomes read-only") << 0U << false << true << true;
    QTest::newRow("becomes writable") << 0U << true << false << true;
    QTest::newRow("stays read-only") << 0U << true << true << false;
    QTest::newRow("stays writable") << 0U << false << false << false;
    QTest::newRow("was not writable for this user") << 1U << false << true << false;
}

void tst_CoordinateInstanceSetProperties::readOnly()
{
    QFETCH(quint32, writeLevel);
    QFETCH(bool, from);
    QFETCH(bool, to);
    QFETCH(bool, isSignalled);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().levels(0, writeLevel), u"A12"_s);
    stand.container->setReadOnly(from);
    stand.listen(set);
    stand.container->setReadOnly(to);
    const QString state = to ? u"(true)"_s : u"(false)"_s;
    QStringList expected {u"container.readOnlySetToChange"_s + state};
    if (isSignalled)
        expected << u"set.writabilityChanged(1.A012[00000])"_s;
    expected << u"container.readOnlyChanged"_s + state;
    QCOMPARE(stand.log.take(), expected);
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetProperties)

#include "tst_CoordinateInstanceSetProperties.moc"
