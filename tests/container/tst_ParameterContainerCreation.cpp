#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"
#include "tests/support/TestHostInformation.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using eSeverity = MessageRecorder::eSeverity;

namespace {

const QString Title = u"ParameterContainer"_s;
const QString NoCoordinate =
    u"Unable to specify a coordinate for single-instance-parameter without "
    "default coordinate"_s;
const QString NoFreeCoordinate = u"Unable to find a free coordinate for multi-instance-parameter"_s;
const QString Invalid = u"no instance for invalid definition of parameter created"_s;
const QString SystemMulti = u"no instance for system defined multi instance parameter"_s;
const QString Relative = u"relative Locator used for createParameter"_s;

QList<int> livingSpaces(const ParameterInformation *information)
{
    QList<int> numbers;
    for (const eLivingSpace livingSpace :
        information ? information->livingSpaces() : QList<eLivingSpace>())
        numbers.append(int(livingSpace));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

class tst_ParameterContainerCreation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void startsEmpty();
    void instancesInOrderOfConstruction();
    void copyOfInstancesMayBeKept();

    void create_data();
    void create();
    void refusedLocators_data();
    void refusedLocators();
    void nullDefinition();
    void nullDefinitionForKnownLocator();
    void invalidDefinition();
    void knownTextTakesAnyDefinition();
    void movedWhileBeingAdded();
    void movedWhileBeingUpdated();
    void systemMultiInstance();
    void relativeLocator();
    void singleInstanceWithoutCoordinate();
    void singleInstanceTakesTheFirstCoordinate();
    void failedCreationCanBeRepeated();

    void multiInstanceTakesTheFirstFreeCoordinate();
    void multiInstanceSharesACoordinateAcrossLivingSpaces();
    void multiInstanceNeverJoinsAStranger();
    void singleInstanceJoinsWhateverStandsAtItsPlace_data();
    void singleInstanceJoinsWhateverStandsAtItsPlace();
    void multiInstanceJoinsAnotherVersion();
    void multiInstanceSkipsADefaultInTheMoveableGroup();
    void moveableLinesAreExhausted();

    void newerDefinitionIsTaken_data();
    void newerDefinitionIsTaken();
    void sameLocatorUpdates_data();
    void sameLocatorUpdates();
    void sameLocatorAndDefinitionChangesNothing();
    void updateResetsTheElementCountAndKeepsTexts();

    void deleteParameter();
    void deleteParameterUnknown();
    void allLocatorTextsOfASetGo();
    void removedWhileTheSetStillLives();
    void deletedParameterCanBeCreatedAgain();
    void clear();
    void clearTwice();

private:
    ServoDriveFirmware *firmware(const QString &family) const;

    std::unique_ptr<ServoDriveFirmware> m_physical;
    std::unique_ptr<ServoDriveFirmware> m_plain;
};

void tst_ParameterContainerCreation::initTestCase()
{
    m_physical = TestFirmware::load(TestFirmware::PhysicalAxesFamily);
    m_plain = TestFirmware::load(TestFirmware::PlainAxesFamily);
    QVERIFY(m_physical && m_plain);
}

ServoDriveFirmware *tst_ParameterContainerCreation::firmware(const QString &family) const
{
    if (family == "physical"_L1)
        return m_physical.get();
    return family == "plain"_L1 ? m_plain.get() : nullptr;
}

void tst_ParameterContainerCreation::startsEmpty()
{
    MessageRecorder messages;
    const ParameterContainer container;
    QVERIFY(!container.isOnline());
    QVERIFY(!container.isReadOnly());
    QCOMPARE(container.domain(), QString());
    QVERIFY(!container.firmware());
    QVERIFY(!container.functionProvider());
    QVERIFY(!container.hostInformation());
    QCOMPARE(container.parameterChangeTag(), QString());
    QVERIFY(const_cast<ParameterContainer &>(container).parameterList().isEmpty());
    QVERIFY(!container.parent());
}

void tst_ParameterContainerCreation::instancesInOrderOfConstruction()
{
    MessageRecorder messages;
    QObject parent;
    QCOMPARE(ParameterContainer::instances(), QList<ParameterContainer *>());
    auto *a = new ParameterContainer(&parent);
    auto *b = new ParameterContainer;
    auto *c = new ParameterContainer(&parent);
    QCOMPARE(a->parent(), &parent);
    QCOMPARE(ParameterContainer::instances(), (QList<ParameterContainer *> {a, b, c}));
    delete b;
    QCOMPARE(ParameterContainer::instances(), (QList<ParameterContainer *> {a, c}));
    delete a;
    delete c;
    QCOMPARE(ParameterContainer::instances(), QList<ParameterContainer *>());
}

void tst_ParameterContainerCreation::copyOfInstancesMayBeKept()
{
    MessageRecorder messages;
    auto container = std::make_unique<ParameterContainer>();
    const QList<ParameterContainer *> kept = ParameterContainer::instances();
    ParameterContainer *address = container.get();
    container.reset();
    QCOMPARE(kept, QList<ParameterContainer *> {address});
}

void tst_ParameterContainerCreation::create_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("locator");
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<bool>("isPhysicalAxis");
    QTest::addColumn<QList<int>>("expected");

    const auto row = [](const char *rule, const QString &family, const QString &locator,
                         bool isGlobal, bool isPhysicalAxis, const QList<int> &expected) {
        QTest::newRow(rule) << family << locator << isGlobal << isPhysicalAxis << expected;
    };
    const QString physical = u"physical"_s;
    const QString plain = u"plain"_s;
    const QString none;
    row("system, physical axes", physical, u"S;{P1}"_s, false, false, {1, 2});
    row("system, plain family", plain, u"S;{P1}"_s, false, false, {1, 2, 3, 4});
    row("system, no firmware counts as plain", none, u"S;{P1}"_s, false, false, {1, 2, 3, 4});
    row("system global", physical, u"S;{P1}"_s, true, false, {0});
    row("system global physical axis, physical axes", physical, u"S;{P1}"_s, true, true, {1, 2});
    row("system global physical axis, plain family", plain, u"S;{P1}"_s, true, true, {0});
    row("system global physical axis, no firmware", none, u"S;{P1}"_s, true, true, {0});
    row("living space 1", physical, u"D.1;{P1}"_s, false, false, {1});
    row("living space 4", plain, u"D.4;{P1}"_s, false, false, {4});
    row("global in any living space", plain, u"D.3;{P1}"_s, true, false, {0});
    row("global in living space 0", plain, u"D.0;{P1}"_s, true, false, {0});
    row("global physical axis in living space 2", physical, u"D.2;{P1}"_s, true, true, {2});
    row("global physical axis in living space 2, plain", plain, u"D.2;{P1}"_s, true, true, {0});
    row("empty path", plain, u"D.2;"_s, false, false, {2});
}

void tst_ParameterContainerCreation::create()
{
    MessageRecorder messages;
    QFETCH(QString, family);
    QFETCH(QString, locator);
    QFETCH(bool, isGlobal);
    QFETCH(bool, isPhysicalAxis);
    QFETCH(QList<int>, expected);
    TestContainer container;
    container->setFirmware(firmware(family));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    QVERIFY(container.create(at(u"A12"_s).global(isGlobal).physicalAxis(isPhysicalAxis), locator));

    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), expected);
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(log.take(), QStringList(expected.size(), u"c.parameterAdded(A12)"_s));
    QCOMPARE(container->queryParameterInstance(locator), container.setup(u"A12"_s));
    QVERIFY(container->queryParameter(locator));
}

void tst_ParameterContainerCreation::refusedLocators_data()
{
    QTest::addColumn<QString>("locator");

    QTest::newRow("empty text") << QString();
    QTest::newRow("without semicolon") << u"D.1"_s;
    QTest::newRow("S without semicolon") << u"S"_s;
    QTest::newRow("living space 0 of a parameter of the axes") << u"D.0;{P1}"_s;
}

void tst_ParameterContainerCreation::refusedLocators()
{
    MessageRecorder messages;
    QFETCH(QString, locator);
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    QVERIFY(!container.create(at(u"A12"_s), locator));
    QVERIFY(container.coordinates().isEmpty());
    QVERIFY(!container->queryParameterInstance(locator));
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerCreation::nullDefinition()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(!container->createOrUpdateParameter(nullptr, u"D.1;a"_s));
    QVERIFY(!container->createOrUpdateParameter(nullptr, QString()));
    QVERIFY(!container->createOrUpdateParameter(nullptr, u"D;a"_s));
    QVERIFY(container.coordinates().isEmpty());
}

void tst_ParameterContainerCreation::nullDefinitionForKnownLocator()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterDefinition *definition = container->queryParameter(u"D.1;a"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"s"_s);
    QVERIFY(!container->createOrUpdateParameter(nullptr, u"D.1;a"_s));
    QCOMPARE(container->queryParameter(u"D.1;a"_s), definition);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerCreation::invalidDefinition()
{
    MessageRecorder messages;
    TestContainer container;
    messages.expect(eSeverity::Warning, Title, Invalid);
    QVERIFY(!container.create(at(u"A12"_s).identifier(QString()), u"D.1;a"_s));
    QVERIFY(messages.verify());
    messages.expect(eSeverity::Warning, Title, Invalid);
    QVERIFY(!container.create(at(u"A12"_s).identifier(QString()), u"S;a"_s));
    QVERIFY(messages.verify());
    // The definition is asked before the locator's kind, an invalid locator before both.
    messages.expect(eSeverity::Warning, Title, Invalid);
    QVERIFY(!container.create(at(u"A12"_s).identifier(QString()), u"D;a"_s));
    QVERIFY(messages.verify());
    QVERIFY(!container.create(at(u"A12"_s).identifier(QString()), u"D"_s));
    QVERIFY(container.coordinates().isEmpty());
}

void tst_ParameterContainerCreation::knownTextTakesAnyDefinition()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    ParameterDefinition *invalid = container.define(at(u"A12"_s).identifier(QString()));
    QVERIFY(container->createOrUpdateParameter(invalid, u"D.1;a"_s));
    QCOMPARE(container->queryParameter(u"D.1;a"_s), invalid);
}

void tst_ParameterContainerCreation::movedWhileBeingAdded()
{
    MessageRecorder messages;
    TestContainer container;
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&](ParameterCoordinate coordinate) {
            container->parameterSetup(coordinate)->setCoordinate(ParameterCoordinate(u"A13"_s));
        });
    QVERIFY(container.create(
        DefinitionBuilder().identifier(u"A12"_s).coordinates({u"A12"_s, u"A13"_s}), u"D.1;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A13"_s});
}

void tst_ParameterContainerCreation::movedWhileBeingUpdated()
{
    MessageRecorder messages;
    TestContainer container;
    const DefinitionBuilder builder =
        DefinitionBuilder().identifier(u"A12"_s).coordinates({u"A12"_s, u"A13"_s});
    QVERIFY(container.create(builder, u"D.1;a"_s));
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&](ParameterCoordinate coordinate) {
            container->parameterSetup(coordinate)->setCoordinate(ParameterCoordinate(u"A13"_s));
        });
    QVERIFY(container.create(DefinitionBuilder(builder).version(2), u"D.2;a"_s));
    QCOMPARE(container.setup(u"A13"_s)->version(), 2U);
}

void tst_ParameterContainerCreation::systemMultiInstance()
{
    MessageRecorder messages;
    TestContainer container;
    messages.expect(eSeverity::Warning, Title, SystemMulti);
    QVERIFY(!container.create(at(u"A12"_s).multiInstance(), u"S;{P1}"_s));
    QVERIFY(container.coordinates().isEmpty());
}

void tst_ParameterContainerCreation::relativeLocator()
{
    MessageRecorder messages;
    TestContainer container;
    messages.expect(eSeverity::Critical, Title, Relative);
    QVERIFY(!container.create(at(u"A12"_s), u"D;{P1}"_s));
    QVERIFY(messages.verify());
    messages.expect(eSeverity::Critical, Title, Relative);
    QVERIFY(!container.create(at(u"A12"_s).global().multiInstance(), u"D.5;{P1}"_s));
    QVERIFY(container.coordinates().isEmpty());
}

void tst_ParameterContainerCreation::singleInstanceWithoutCoordinate()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    messages.expect(eSeverity::Critical, Title, NoCoordinate);
    QVERIFY(!container.create(DefinitionBuilder(), u"D.1;a"_s));
    QVERIFY(messages.verify());
    // Once for each living space.
    container->setFirmware(m_physical.get());
    messages.expect(eSeverity::Critical, Title, NoCoordinate);
    messages.expect(eSeverity::Critical, Title, NoCoordinate);
    QVERIFY(!container.create(DefinitionBuilder(), u"S;a"_s));
    QVERIFY(container.coordinates().isEmpty());
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerCreation::singleInstanceTakesTheFirstCoordinate()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(DefinitionBuilder().coordinates({u"B07"_s, u"A12"_s}), u"D.1;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"B07"_s});
}

void tst_ParameterContainerCreation::failedCreationCanBeRepeated()
{
    MessageRecorder messages;
    TestContainer container;
    messages.expect(eSeverity::Critical, Title, NoCoordinate);
    QVERIFY(!container.create(DefinitionBuilder(), u"D.1;a"_s));
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
}

void tst_ParameterContainerCreation::multiInstanceTakesTheFirstFreeCoordinate()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *multi =
        container.define(DefinitionBuilder().multiInstance().coordinates({u"B07"_s, u"A12"_s}));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"B07"_s});
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;b"_s));
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B07"_s}));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;c"_s));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;d"_s));
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B07"_s, u"Q00"_s, u"Q01"_s}));
    QCOMPARE(container->queryParameterInstance(u"D.1;c"_s), container.setup(u"Q00"_s));
    QCOMPARE(container->queryParameterInstance(u"D.1;d"_s), container.setup(u"Q01"_s));
    // A line that became free again is the first one again.
    container->deleteParameter(u"D.1;c"_s);
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;e"_s));
    QCOMPARE(container->queryParameterInstance(u"D.1;e"_s), container.setup(u"Q00"_s));
}

void tst_ParameterContainerCreation::multiInstanceSharesACoordinateAcrossLivingSpaces()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *multi =
        container.define(DefinitionBuilder().multiInstance().coordinates({u"A12"_s}));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;a"_s));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.2;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), (QList<int> {1, 2}));
    QVERIFY(container->createOrUpdateParameter(multi, u"D.2;b"_s));
    QCOMPARE(livingSpaces(container.setup(u"Q00"_s)), QList<int> {2});
    QVERIFY(container->createOrUpdateParameter(multi, u"D.1;b"_s));
    QCOMPARE(livingSpaces(container.setup(u"Q00"_s)), (QList<int> {1, 2}));
}

void tst_ParameterContainerCreation::multiInstanceNeverJoinsAStranger()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).identifier(u"Stranger"_s), u"D.1;s"_s));
    QVERIFY(container.create(at(u"Q00"_s).identifier(u"Other stranger"_s), u"D.1;t"_s));
    QVERIFY(container.create(at(u"A12"_s).identifier(u"Multi"_s).multiInstance(), u"D.2;m"_s));
    QCOMPARE(container->queryParameterInstance(u"D.2;m"_s), container.setup(u"Q01"_s));
    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), QList<int> {1});
}

void tst_ParameterContainerCreation::singleInstanceJoinsWhateverStandsAtItsPlace_data()
{
    QTest::addColumn<quint32>("standing");
    QTest::addColumn<quint32>("coming");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("higher version") << 1U << 2U << true;
    QTest::newRow("equal version") << 2U << 2U << false;
    QTest::newRow("lower version") << 2U << 1U << false;
}

/// There is only one place for it, and only the higher version counts.
void tst_ParameterContainerCreation::singleInstanceJoinsWhateverStandsAtItsPlace()
{
    QFETCH(quint32, standing);
    QFETCH(quint32, coming);
    QFETCH(bool, isTaken);
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *first =
        container.define(at(u"A12"_s).identifier(u"Stranger"_s).version(standing));
    ParameterDefinition *second =
        container.define(at(u"A12"_s).identifier(u"Single"_s).version(coming));
    QVERIFY(container->createOrUpdateParameter(first, u"D.1;s"_s));
    const ParameterSetup *set = container.setup(u"A12"_s);
    QVERIFY(container->createOrUpdateParameter(second, u"D.2;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(container.setup(u"A12"_s), set);
    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), (QList<int> {1, 2}));
    QCOMPARE(container->queryParameterInstance(u"D.2;a"_s), set);
    QCOMPARE(container->queryParameter(u"D.1;s"_s), isTaken ? second : first);
}

void tst_ParameterContainerCreation::multiInstanceJoinsAnotherVersion()
{
    MessageRecorder messages;
    TestContainer container;
    const DefinitionBuilder multi = at(u"A12"_s).multiInstance();
    QVERIFY(container.create(DefinitionBuilder(multi).version(1), u"D.1;a"_s));
    QVERIFY(container.create(DefinitionBuilder(multi).version(2), u"D.2;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), (QList<int> {1, 2}));
    QCOMPARE(container.setup(u"A12"_s)->version(), 2U);
}

void tst_ParameterContainerCreation::multiInstanceSkipsADefaultInTheMoveableGroup()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *multi =
        container.define(DefinitionBuilder().multiInstance().coordinates({u"Q01"_s}));
    for (const QString &locator : {u"D.1;a"_s, u"D.1;b"_s, u"D.1;c"_s})
        QVERIFY(container->createOrUpdateParameter(multi, locator));
    QCOMPARE(container->queryParameterInstance(u"D.1;a"_s), container.setup(u"Q01"_s));
    QCOMPARE(container->queryParameterInstance(u"D.1;b"_s), container.setup(u"Q00"_s));
    QCOMPARE(container->queryParameterInstance(u"D.1;c"_s), container.setup(u"Q02"_s));
}

void tst_ParameterContainerCreation::moveableLinesAreExhausted()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *multi = container.define(DefinitionBuilder().multiInstance());
    for (int i = 0; i < 1000; ++i)
        QVERIFY(container->createOrUpdateParameter(multi, u"D.1;"_s + QString::number(i)));
    QCOMPARE(container->queryParameterInstance(u"D.1;0"_s), container.setup(u"Q00"_s));
    QCOMPARE(container->queryParameterInstance(u"D.1;999"_s), container.setup(u"Q999"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    messages.expect(eSeverity::Critical, Title, NoFreeCoordinate);
    QVERIFY(!container->createOrUpdateParameter(multi, u"D.1;1000"_s));

    QVERIFY(messages.verify());
    QCOMPARE(container->parameterList().size(), 1000);
    QVERIFY(!container->queryParameterInstance(u"D.1;1000"_s));
    QCOMPARE(log.take(), QStringList());
    // Another living space has room on each of them.
    QVERIFY(container->createOrUpdateParameter(multi, u"D.2;0"_s));
    QCOMPARE(container->queryParameterInstance(u"D.2;0"_s), container.setup(u"Q00"_s));
}

void tst_ParameterContainerCreation::newerDefinitionIsTaken_data()
{
    QTest::addColumn<quint32>("storedVersion");
    QTest::addColumn<quint32>("newVersion");
    QTest::addColumn<bool>("isTaken");

    QTest::newRow("stored is lower: the new one") << 1U << 2U << true;
    QTest::newRow("equal: the stored one") << 2U << 2U << false;
    QTest::newRow("stored is higher: the stored one") << 3U << 2U << false;
}

void tst_ParameterContainerCreation::newerDefinitionIsTaken()
{
    MessageRecorder messages;
    QFETCH(quint32, storedVersion);
    QFETCH(quint32, newVersion);
    QFETCH(bool, isTaken);
    TestContainer container;
    ParameterDefinition *stored = container.define(at(u"A12"_s).version(storedVersion));
    ParameterDefinition *other = container.define(at(u"A12"_s).version(newVersion));
    QVERIFY(container->createOrUpdateParameter(stored, u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    QVERIFY(container->createOrUpdateParameter(other, u"D.2;a"_s));

    ParameterDefinition *expected = isTaken ? other : stored;
    QCOMPARE(container->queryParameter(u"D.1;a"_s), expected);
    QCOMPARE(container->queryParameter(u"D.2;a"_s), expected);
    QStringList signalTexts {u"c.parameterAdded(A12)"_s};
    if (isTaken) {
        signalTexts << u"c.parameterDefinitionChanged(1.A012[00000])"_s
                    << u"c.parameterDefinitionChanged(2.A012[00000])"_s;
    }
    QCOMPARE(log.take(), signalTexts);
}

void tst_ParameterContainerCreation::sameLocatorUpdates_data()
{
    QTest::addColumn<quint32>("newVersion");

    QTest::newRow("lower version") << 1U;
    QTest::newRow("equal version") << 2U;
    QTest::newRow("higher version") << 3U;
}

void tst_ParameterContainerCreation::sameLocatorUpdates()
{
    MessageRecorder messages;
    QFETCH(quint32, newVersion);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).version(2), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    ParameterDefinition *other = container.define(at(u"A12"_s).version(newVersion));
    SignalLog log;
    log.attach(setup, u"s"_s);
    log.attach(container.get(), u"c"_s);

    QVERIFY(container->createOrUpdateParameter(other, u"D.1;a"_s));

    QCOMPARE(container->queryParameter(u"D.1;a"_s), other);
    QCOMPARE(container->queryParameterInstance(u"D.1;a"_s), setup);
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(log.take(),
        (QStringList {u"s.definitionChanged(1.A012[00000])"_s,
            u"c.parameterDefinitionChanged(1.A012[00000])"_s}));
}

void tst_ParameterContainerCreation::sameLocatorAndDefinitionChangesNothing()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    const ParameterSetup *setup = container.setup(u"A12"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QCOMPARE(container.setup(u"A12"_s), setup);
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(log.count(u"parameterAdded"_s), 0);
}

void tst_ParameterContainerCreation::updateResetsTheElementCountAndKeepsTexts()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).elementCount(2).settable(eParameterProperty::ReadLevel), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    setup->setElementCount(5);
    setup->setNativeValue(eLivingSpace::Axis1, 1, u"17"_s);
    setup->setProperty(0, eParameterProperty::ReadLevel, ParameterProperty(3U));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    QVERIFY(container.create(at(u"A12"_s).version(2).elementCount(3), u"D.1;a"_s));

    QCOMPARE(setup->elementCount(), quint16(3));
    QCOMPARE(setup->nativeValueText(eLivingSpace::Axis1, 1, false), u"17"_s);
    QVERIFY(setup->hasPropertyOverride(0, eParameterProperty::ReadLevel));
    QCOMPARE(log.take(),
        (QStringList {u"c.parameterDefinitionChanged(1.A012[00000])"_s,
            u"c.parameterDefinitionChanged(1.A012[00001])"_s,
            u"c.parameterDefinitionChanged(1.A012[00002])"_s}));
}

void tst_ParameterContainerCreation::deleteParameter()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B12"_s), u"D.1;b"_s));
    const QPointer<ParameterSetup> setup = container->parameterSetup(ParameterCoordinate(u"A12"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->deleteParameter(u"D.1;a"_s);

    QVERIFY(!setup);
    QCOMPARE(log.take(), QStringList {u"c.parameterRemoved(A12)"_s});
    QCOMPARE(container.coordinates(), QStringList {u"B12"_s});
    QVERIFY(!container->queryParameter(u"D.1;a"_s));
    QVERIFY(!container->queryParameterInstance(u"D.1;a"_s));
    QVERIFY(container->queryParameterAnchors(u"D.1"_s, true) == QList<QString> {u"D.1;b"_s});
    container->deleteParameter(u"D.1;a"_s);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerCreation::deleteParameterUnknown()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const QString &locator : {QString(), u"D.1"_s, u"D.1;A"_s, u"D.1;a "_s, u"D.*"_s})
        container->deleteParameter(locator);
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerCreation::allLocatorTextsOfASetGo()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    for (const QString &locator : {u"D.1;a"_s, u"D.2;a"_s, u"E.2;a"_s})
        QVERIFY(container->createOrUpdateParameter(definition, locator));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->deleteParameter(u"D.2;a"_s);

    QCOMPARE(log.take(), QStringList {u"c.parameterRemoved(A12)"_s});
    QVERIFY(container.coordinates().isEmpty());
    for (const QString &locator : {u"D.1;a"_s, u"D.2;a"_s, u"E.2;a"_s})
        QVERIFY(!container->queryParameterInstance(locator));
    QVERIFY(container->queryParameterAnchors(u"D.1"_s, true).isEmpty());
    QVERIFY(container->queryParameterAnchors(u"E.2"_s, true).isEmpty());
}

void tst_ParameterContainerCreation::removedWhileTheSetStillLives()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).defaultValue(u"7"_s), u"D.1;a"_s));
    const QPointer<ParameterSetup> setup = container->parameterSetup(ParameterCoordinate(u"A12"_s));
    int calls = 0;
    connect(container.get(), &ParameterContainer::parameterRemoved, this,
        [&](const ParameterCoordinate &coordinate) {
            ++calls;
            QCOMPARE(coordinate, ParameterCoordinate(u"A12"_s));
            QVERIFY(setup);
            QCOMPARE(setup->nativeValueText(eLivingSpace::Axis1, 0, false), u"7"_s);
            QVERIFY(!container.setup(u"A12"_s));
            QVERIFY(container->parameterList().isEmpty());
            QVERIFY(!container->queryParameterInstance(u"D.1;a"_s));
            QVERIFY(container->queryParameterAnchors(u"D.1"_s, true).isEmpty());
            QVERIFY(container->parameterAddressList(u"x"_s).isEmpty());
        });
    QCOMPARE(container->parameterAddressList(u"x"_s).size(), 1);
    container->deleteParameter(u"D.1;a"_s);
    QCOMPARE(calls, 1);
    QVERIFY(!setup);
}

void tst_ParameterContainerCreation::deletedParameterCanBeCreatedAgain()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    container->writeValueNative(eLivingSpace::Axis1, ParameterCoordinate(u"A12"_s), 0, u"5"_s);
    container->deleteParameter(u"D.1;a"_s);
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QCOMPARE(
        container->readValueNative(eLivingSpace::Axis1, ParameterCoordinate(u"A12"_s), 0, false),
        u"0"_s);
}

void tst_ParameterContainerCreation::clear()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.2;a"_s));
    QVERIFY(container.create(at(u"B12"_s), u"D.1;b"_s));
    QVERIFY(container.create(at(u"C12"_s).global(), u"S;c"_s));
    QCOMPARE(container->parameterAddressList(u"x"_s).size(), 4);
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->clear();

    QStringList entries = log.take();
    entries.sort();
    QCOMPARE(entries,
        (QStringList {u"c.parameterRemoved(A12)"_s, u"c.parameterRemoved(B12)"_s,
            u"c.parameterRemoved(C12)"_s}));
    QVERIFY(container.coordinates().isEmpty());
    QVERIFY(container->parameterAddressList(u"x"_s).isEmpty());
    QVERIFY(!container->queryParameterInstance(u"S;c"_s));
}

void tst_ParameterContainerCreation::clearTwice()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container->clear();
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->clear();
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_ParameterContainerCreation)
#include "tst_ParameterContainerCreation.moc"
