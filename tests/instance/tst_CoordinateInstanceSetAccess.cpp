#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Who sees and writes a value, and in which order that is decided.
class tst_CoordinateInstanceSetAccess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isHidden();
    void isVisible_data();
    void isVisible();
    void isVisibleWithoutReadLevelWarnsOnce();
    void isVisibleWithoutInstance();
    void isWritable_data();
    void isWritable();
    void isWritableAbsent_data();
    void isWritableAbsent();
    void unusableWriteLevel_data();
    void unusableWriteLevel();
    void isHiddenOfAGlobalParameter();
    void stepsBehindTheDecisionAreSilent_data();
    void stepsBehindTheDecisionAreSilent();
};

void tst_CoordinateInstanceSetAccess::isHidden()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->isHidden = [](const ParameterData &data, quint16 element) {
        return data.axis() == element;
    };
    const auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
    QVERIFY(set->isHidden(Axis1, 0));
    QVERIFY(!set->isHidden(Axis1, 1));
    QVERIFY(!set->isHidden(Axis2, 0));
    QVERIFY(set->isHidden(Axis2, 1));
    QVERIFY(!set->isHidden(Axis3, 0));
    // Asked once each.
    QVERIFY(set->isHidden(Axis1, 0));
    QCOMPARE(firmware->callsOf(u"isHidden"_s).size(), 4);
}

void tst_CoordinateInstanceSetAccess::isVisible_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<quint32>("readLevel");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("expected");
    QTest::newRow("level below the user's") << false << 1U << 2U << true;
    QTest::newRow("level equal to the user's") << false << 2U << 2U << true;
    QTest::newRow("level above the user's") << false << 3U << 2U << false;
    QTest::newRow("hidden") << true << 0U << 6U << false;
}

void tst_CoordinateInstanceSetAccess::isVisible()
{
    QFETCH(bool, hidden);
    QFETCH(quint32, readLevel);
    QFETCH(quint32, userLevel);
    QFETCH(bool, expected);
    InstanceStand stand;
    stand.programFirmware()->isHidden = [hidden](const ParameterData &, quint16) { return hidden; };
    const auto *set = stand.add(DefinitionBuilder().levels(readLevel, 0), u"A12"_s);
    stand.setUserLevel(userLevel);
    QCOMPARE(set->isVisible(Axis1, 0), expected);
}

void tst_CoordinateInstanceSetAccess::isVisibleWithoutReadLevelWarnsOnce()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().without(ReadLevel), u"A12"_s);
    stand.expectWarning(u"missing property \"readLevel\" at parameter A12\""_s);
    QVERIFY(!set->isVisible(Axis1, 0));
}

void tst_CoordinateInstanceSetAccess::isVisibleWithoutInstance()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QVERIFY(set->isVisible(Axis2, 0));
}

void tst_CoordinateInstanceSetAccess::isWritable_data()
{
    QTest::addColumn<quint32>("kind");
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<quint32>("noWrite");
    QTest::addColumn<bool>("expected");

    QTest::newRow("plain") << 0U << 0U << 0U << false << false << 0U << true;
    QTest::newRow("read-only") << 0U << 0U << 6U << false << true << 0U << false;
    QTest::newRow("never written") << 0U << 0U << 6U << true << false << 1U << false;
    QTest::newRow("level equal") << 0U << 4U << 4U << false << false << 0U << true;
    QTest::newRow("level above") << 0U << 5U << 4U << false << false << 0U << false;
    QTest::newRow("kind 2 offline") << 2U << 0U << 6U << false << false << 0U << false;
    QTest::newRow("kind 2 online") << 2U << 0U << 0U << true << false << 0U << true;
    QTest::newRow("kind 2 online, level above") << 2U << 1U << 0U << true << false << 0U << false;
    QTest::newRow("kind 2 online and read-only") << 2U << 0U << 0U << true << true << 0U << false;
    QTest::newRow("kind 1 offline") << 1U << 0U << 0U << false << false << 0U << true;
}

void tst_CoordinateInstanceSetAccess::isWritable()
{
    QFETCH(quint32, kind);
    QFETCH(quint32, writeLevel);
    QFETCH(quint32, userLevel);
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    QFETCH(quint32, noWrite);
    QFETCH(bool, expected);
    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().kind(kind).levels(0, writeLevel).property(NoWrite, noWrite), u"A12"_s);
    stand.setUserLevel(userLevel);
    stand.container->setOnline(isOnline);
    stand.container->setReadOnly(isReadOnly);
    QCOMPARE(set->isWritable(Axis1, 0), expected);
}

void tst_CoordinateInstanceSetAccess::isWritableAbsent_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QString>("warning");
    QTest::newRow("write level") << 6U << u"missing property \"writeLevel\" at parameter A12\""_s;
    QTest::newRow("kind") << 11U << u"missing property \"kind\" at parameter A12\""_s;
    QTest::newRow("no-write flag") << 15U << QString();
}

void tst_CoordinateInstanceSetAccess::isWritableAbsent()
{
    QFETCH(quint32, property);
    QFETCH(QString, warning);
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().without(eParameterProperty(property)), u"A12"_s);
    if (!warning.isEmpty())
        stand.expectWarning(warning);
    QVERIFY(set->isWritable(Axis1, 0));
}

void tst_CoordinateInstanceSetAccess::unusableWriteLevel_data()
{
    QTest::addColumn<QVariant>("level");
    QTest::newRow("no number") << QVariant(u"hoch"_s);
    QTest::newRow("empty text") << QVariant(u""_s);
    QTest::newRow("negative") << QVariant(-1);
    QTest::newRow("negative text") << QVariant(u"-6"_s);
    QTest::newRow("beyond 32 bits") << QVariant(u"4294967302"_s);
}

// It counts as 0: nothing is masked and everyone may write. Each question reports it once.
void tst_CoordinateInstanceSetAccess::unusableWriteLevel()
{
    QFETCH(QVariant, level);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .property(WriteLevel, level)
                                    .property(MemoryAllocation, 1U)
                                    .limits(u"-3"_s, u"9"_s)
                                    .defaultValue(u"5"_s),
        u"A12"_s);
    const QList<std::function<bool()>> questions {
        [&] { return set->displayValueText(Axis1, 0, false) == u"5"_s; },
        [&] { return set->isWritable(Axis1, 0); },
        [&] { return set->lowerLimitText(Axis1, 0) == u"-3"_s; },
        [&] { return set->upperLimitText(Axis1, 0) == u"9"_s; },
    };
    for (const auto &question : questions) {
        stand.expectWarning(u"invalid definition \"writeLevel\" at parameter A12\""_s);
        QVERIFY(question());
        QVERIFY(stand.messages.verify());
    }
}

void tst_CoordinateInstanceSetAccess::isHiddenOfAGlobalParameter()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->isHidden = [](const ParameterData &, quint16) { return true; };
    const auto *set = stand.add(DefinitionBuilder().global(), u"A12"_s, {0});
    for (const int livingSpace : {-1, 0, 1, 2, 3, 4, 5})
        QVERIFY(set->isHidden(eLivingSpace(livingSpace), 0));
    QCOMPARE(firmware->callsOf(u"isHidden"_s).size(), 1);
}

void tst_CoordinateInstanceSetAccess::stepsBehindTheDecisionAreSilent_data()
{
    QTest::addColumn<quint32>("missing");
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<bool>("isVisibility");
    QTest::newRow("hidden: the read level is not asked for") << 5U << true << false << 0U << true;
    QTest::newRow("read-only: the write level is not asked for")
        << 6U << false << true << 0U << false;
    QTest::newRow("read-only: the kind is not asked for") << 11U << false << true << 0U << false;
    QTest::newRow("level above: the kind is not asked for") << 11U << false << false << 5U << false;
}

void tst_CoordinateInstanceSetAccess::stepsBehindTheDecisionAreSilent()
{
    QFETCH(quint32, missing);
    QFETCH(bool, isHidden);
    QFETCH(bool, isReadOnly);
    QFETCH(quint32, writeLevel);
    QFETCH(bool, isVisibility);
    InstanceStand stand;
    stand.programFirmware()->isHidden = [isHidden](
                                            const ParameterData &, quint16) { return isHidden; };
    const auto *set = stand.add(
        DefinitionBuilder().levels(0, writeLevel).without(eParameterProperty(missing)), u"A12"_s);
    stand.setUserLevel(4);
    stand.container->setReadOnly(isReadOnly);
    stand.messages.take();
    // No message is expected: one would fail the test.
    QVERIFY(!(isVisibility ? set->isVisible(Axis1, 0) : set->isWritable(Axis1, 0)));
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetAccess)

#include "tst_CoordinateInstanceSetAccess.moc"
