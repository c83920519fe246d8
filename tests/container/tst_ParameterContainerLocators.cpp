#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

/// When a locator text leads to its parameter: after everyone has heard that this was added.
class tst_ParameterContainerLocators : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entered();
    void enteredBeforeANewerDefinition();
    void createdAgainByAListener_data();
    void createdAgainByAListener();
    void givenToAnotherByAListener();
    void givenToAnotherThatWentAgain();
    void allTextsGoWithTheSet();
    void removedByAListener_data();
    void removedByAListener();
    void multiInstanceCreatedAgainByEveryListener();
    void firmwareReplacedByAListener();
};

namespace {

const QString Text = u"D.1;a"_s;

} // namespace

void tst_ParameterContainerLocators::entered()
{
    MessageRecorder messages;
    TestContainer container;
    QStringList known;
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        QVERIFY(container.setup(u"A12"_s));
        QVERIFY(!container->queryParameter(u"S;a"_s));
        QVERIFY(!container->queryParameterInstance(u"S;a"_s));
        known = container->queryParameterAnchors(u"S"_s, true);
        disconnect(container.get(), nullptr, this, nullptr);
    });
    // In its second living space the parameter has the text already.
    QVERIFY(container.create(at(u"A12"_s), u"S;a"_s));
    QCOMPARE(known, QStringList());
    QCOMPARE(container->queryParameterInstance(u"S;a"_s), container.setup(u"A12"_s));
}

void tst_ParameterContainerLocators::enteredBeforeANewerDefinition()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).version(1), Text));
    bool isKnown = false;
    connect(container.setup(u"A12"_s), &ParameterInformation::definitionChanged, this,
        [&] { isKnown = container->queryParameterInstance(u"D.2;a"_s); });
    QVERIFY(container.create(at(u"A12"_s).version(2), u"D.2;a"_s));
    QVERIFY(isKnown);
}

void tst_ParameterContainerLocators::createdAgainByAListener_data()
{
    QTest::addColumn<QString>("locatorText");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("one living space") << Text << QStringList {u"c.parameterAdded(A12)"_s};
    // The inner creation adds what is still missing.
    QTest::newRow("all living spaces of a system parameter")
        << u"S;a"_s << QStringList(4, u"c.parameterAdded(A12)"_s);
}

void tst_ParameterContainerLocators::createdAgainByAListener()
{
    QFETCH(QString, locatorText);
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&] { QVERIFY(container->createOrUpdateParameter(definition, locatorText)); });
    QVERIFY(container->createOrUpdateParameter(definition, locatorText));
    QTEST(log.take(), "expected");
    QCOMPARE(container->queryParameterInstance(locatorText), container.setup(u"A12"_s));

    container->deleteParameter(locatorText);
    QCOMPARE(container.coordinates(), QStringList());
    QVERIFY(!container->queryParameterInstance(locatorText));
}

void tst_ParameterContainerLocators::givenToAnotherByAListener()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *other = container.define(at(u"B07"_s));
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        if (std::exchange(isFirst, false))
            QVERIFY(container->createOrUpdateParameter(other, Text));
    });
    QVERIFY(container.create(at(u"A12"_s), Text));
    QCOMPARE(container->queryParameter(Text), other);
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B07"_s}));

    // The other one's text goes with the other one alone.
    container->deleteParameter(Text);
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
    QVERIFY(!container->queryParameterInstance(Text));
    container->clear();
    QVERIFY(container.create(at(u"A12"_s), Text));
    QCOMPARE(container->queryParameterInstance(Text), container.setup(u"A12"_s));
}

void tst_ParameterContainerLocators::givenToAnotherThatWentAgain()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *other = container.define(at(u"B07"_s));
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        if (!std::exchange(isFirst, false))
            return;
        QVERIFY(container->createOrUpdateParameter(other, Text));
        container->deleteParameter(Text);
    });
    QVERIFY(container.create(at(u"A12"_s), Text));
    QCOMPARE(container->queryParameterInstance(Text), container.setup(u"A12"_s));
}

void tst_ParameterContainerLocators::allTextsGoWithTheSet()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, Text));
    // Deleted by its first text while its second one is on the way.
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&] { container->deleteParameter(Text); });
    QVERIFY(!container->createOrUpdateParameter(definition, u"D.2;a"_s));
    QVERIFY(!container->queryParameterInstance(Text));
    QVERIFY(!container->queryParameterInstance(u"D.2;a"_s));
    QCOMPARE(container->queryParameterAnchors(u"D"_s, false), QStringList());
}

void tst_ParameterContainerLocators::removedByAListener_data()
{
    QTest::addColumn<bool>("isCreatedAgain");
    QTest::newRow("for good") << false;
    QTest::newRow("and created again under the same text") << true;
}

void tst_ParameterContainerLocators::removedByAListener()
{
    QFETCH(bool, isCreatedAgain);
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        if (!std::exchange(isFirst, false))
            return;
        container->clear();
        if (isCreatedAgain)
            QVERIFY(container->createOrUpdateParameter(definition, Text));
    });
    QVERIFY(!container->createOrUpdateParameter(definition, Text));
    QCOMPARE(container->queryParameterInstance(Text), container.setup(u"A12"_s));
    QCOMPARE(bool(container.setup(u"A12"_s)), isCreatedAgain);
}

/// Each inner creation takes the next free coordinate, until there is none.
void tst_ParameterContainerLocators::multiInstanceCreatedAgainByEveryListener()
{
    MessageRecorder messages;
    messages.expect(SystemMessage::eSeverity::Critical, u"ParameterContainer"_s,
        u"Unable to find a free coordinate for multi-instance-parameter"_s);
    TestContainer container;
    ParameterDefinition *multi = container.define(DefinitionBuilder().multiInstance());
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&] { container->createOrUpdateParameter(multi, Text); });
    QVERIFY(container->createOrUpdateParameter(multi, Text));
    QCOMPARE(container.coordinates().size(), 1000);
    // The innermost one had it first.
    QCOMPARE(container->queryParameterInstance(Text), container.setup(u"Q999"_s));
    container->deleteParameter(Text);
    QVERIFY(!container->queryParameterInstance(Text));
    QCOMPARE(container.coordinates().size(), 999);
}

void tst_ParameterContainerLocators::firmwareReplacedByAListener()
{
    MessageRecorder messages;
    const auto firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily,
        "\"systemParameters\": [" + TestFirmware::parameter(1, "S01") + "]");
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&] { container->setFirmware(nullptr); });
    container->setFirmware(firmware.get());
    QCOMPARE(container.coordinates(), QStringList());
    QVERIFY(!container->queryParameterInstance(u"S;{P1}"_s));
    QCOMPARE(log.take(), (QStringList {u"c.parameterAdded(S01)"_s, u"c.parameterRemoved(S01)"_s}));
}

QTEST_GUILESS_MAIN(tst_ParameterContainerLocators)

#include "tst_ParameterContainerLocators.moc"
