#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"

#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

class tst_ParameterContainerState : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void setOnline_data();
    void setOnline();
    void flagDuringTheSignals();
    void setReadOnly_data();
    void setReadOnly();
    void onlineTellsTheSetsInBetween();
    void readOnlyTellsTheSetsInBetween();
    void onlineAndReadOnlyAreSeparate();

    void accessLevelBracket();
    void accessLevelBracketOfAnEmptyContainer();
    void accessLevelWithoutEffect();
    void equalAccessLevelIsNoChange();
    void everyContainerHasItsOwnBracket();
    void levelBeforeCreationPlaysNoPart();

    void parameterChangeTag();
    void tagOfTheMoment();
    void updateParameterChangeTagsIfEmpty();
    void updateChangeTagsOfUnreadValues();
    void updateParameterChangeTagsOfNothing();
};

void tst_ParameterContainerState::cleanup()
{
    System::information()->setUserAccessLevel(0);
}

void tst_ParameterContainerState::setOnline_data()
{
    QTest::addColumn<QList<bool>>("states");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("on") << QList<bool> {true}
                        << QStringList {u"c.onlineSetToChange(true)"_s, u"c.onlineChanged(true)"_s};
    QTest::newRow("on twice") << QList<bool> {true, true}
                              << QStringList {u"c.onlineSetToChange(true)"_s,
                                     u"c.onlineChanged(true)"_s, u"c.onlineSetToChange(true)"_s,
                                     u"c.onlineChanged(true)"_s};
    QTest::newRow("off while off") << QList<bool> {
        false} << QStringList {u"c.onlineSetToChange(false)"_s, u"c.onlineChanged(false)"_s};
    QTest::newRow("on and off") << QList<bool> {true, false}
                                << QStringList {u"c.onlineSetToChange(true)"_s,
                                       u"c.onlineChanged(true)"_s, u"c.onlineSetToChange(false)"_s,
                                       u"c.onlineChanged(false)"_s};
}

void tst_ParameterContainerState::setOnline()
{
    MessageRecorder messages;
    QFETCH(QList<bool>, states);
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const bool state : states) {
        container->setOnline(state);
        QCOMPARE(container->isOnline(), state);
    }
    QTEST(log.take(), "expected");
}

void tst_ParameterContainerState::flagDuringTheSignals()
{
    MessageRecorder messages;
    TestContainer container;
    QStringList seen;
    const auto see = [&](const QString &name) {
        seen.append(name + (container->isOnline() ? u" online"_s : u" offline"_s)
            + (container->isReadOnly() ? u" readOnly"_s : u" writable"_s));
    };
    ParameterContainer *source = container.get();
    connect(source, &ParameterContainer::onlineSetToChange, this, [&] { see(u"setTo"_s); });
    connect(source, &ParameterContainer::onlineChanged, this, [&] { see(u"changed"_s); });
    connect(source, &ParameterContainer::readOnlySetToChange, this, [&] { see(u"setTo"_s); });
    connect(source, &ParameterContainer::readOnlyChanged, this, [&] { see(u"changed"_s); });
    container->setOnline(true);
    QCOMPARE(std::exchange(seen, {}),
        (QStringList {u"setTo offline writable"_s, u"changed online writable"_s}));
    container->setReadOnly(true);
    QCOMPARE(seen, (QStringList {u"setTo online writable"_s, u"changed online readOnly"_s}));
}

void tst_ParameterContainerState::setReadOnly_data()
{
    QTest::addColumn<QList<bool>>("states");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("on") << QList<bool> {
        true} << QStringList {u"c.readOnlySetToChange(true)"_s, u"c.readOnlyChanged(true)"_s};
    QTest::newRow("on twice") << QList<bool> {true, true}
                              << QStringList {u"c.readOnlySetToChange(true)"_s,
                                     u"c.readOnlyChanged(true)"_s, u"c.readOnlySetToChange(true)"_s,
                                     u"c.readOnlyChanged(true)"_s};
    QTest::newRow("off while off") << QList<bool> {
        false} << QStringList {u"c.readOnlySetToChange(false)"_s, u"c.readOnlyChanged(false)"_s};
}

void tst_ParameterContainerState::setReadOnly()
{
    MessageRecorder messages;
    QFETCH(QList<bool>, states);
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const bool state : states) {
        container->setReadOnly(state);
        QCOMPARE(container->isReadOnly(), state);
    }
    QTEST(log.take(), "expected");
}

void tst_ParameterContainerState::onlineTellsTheSetsInBetween()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).kind(2), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"a"_s);
    log.attach(container.setup(u"B01"_s), u"b"_s);
    container->setOnline(true);
    QCOMPARE(log.take(),
        (QStringList {u"c.onlineSetToChange(true)"_s, u"a.writabilityChanged(1.A012[00000])"_s,
            u"c.onlineChanged(true)"_s}));
    container->setOnline(true);
    QCOMPARE(
        log.take(), (QStringList {u"c.onlineSetToChange(true)"_s, u"c.onlineChanged(true)"_s}));
    container->setOnline(false);
    QCOMPARE(log.take(),
        (QStringList {u"c.onlineSetToChange(false)"_s, u"a.writabilityChanged(1.A012[00000])"_s,
            u"c.onlineChanged(false)"_s}));
}

void tst_ParameterContainerState::readOnlyTellsTheSetsInBetween()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s).levels(0, 3), u"D.1;b"_s));
    QVERIFY(container.create(at(u"C01"_s).property(eParameterProperty::NoWrite, 1U), u"D.1;c"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const QString &text : {u"A12"_s, u"B01"_s, u"C01"_s})
        log.attach(container.setup(text), text);
    container->setReadOnly(true);
    QCOMPARE(log.take(),
        (QStringList {u"c.readOnlySetToChange(true)"_s, u"A12.writabilityChanged(1.A012[00000])"_s,
            u"c.readOnlyChanged(true)"_s}));
    container->setReadOnly(false);
    QCOMPARE(log.take(),
        (QStringList {u"c.readOnlySetToChange(false)"_s, u"A12.writabilityChanged(1.A012[00000])"_s,
            u"c.readOnlyChanged(false)"_s}));
}

void tst_ParameterContainerState::onlineAndReadOnlyAreSeparate()
{
    MessageRecorder messages;
    TestContainer container;
    container->setOnline(true);
    QVERIFY(!container->isReadOnly());
    container->setReadOnly(true);
    QVERIFY(container->isOnline());
    container->setOnline(false);
    QVERIFY(container->isReadOnly());
}

void tst_ParameterContainerState::accessLevelBracket()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(2, 4).elementCount(2), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s).levels(0, 3), u"D.2;b"_s));
    QVERIFY(container.create(at(u"C01"_s).levels(4, 4), u"D.2;c"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const QString &text : {u"A12"_s, u"B01"_s, u"C01"_s})
        log.attach(container.setup(text), text);

    System::information()->setUserAccessLevel(3);

    QStringList entries = log.take();
    QCOMPARE(entries.takeFirst(), u"c.accessLevelUpdateStarted()"_s);
    QCOMPARE(entries.takeLast(), u"c.accessLevelUpdateFinished()"_s);
    QCOMPARE(entries,
        (QStringList {u"A12.visibilityChanged(1.A012[00000])"_s,
            u"c.parameterVisibilityChanged(1.A012[00000])"_s,
            u"A12.visibilityChanged(1.A012[00001])"_s,
            u"c.parameterVisibilityChanged(1.A012[00001])"_s,
            u"B01.writabilityChanged(2.B001[00000])"_s}));

    System::information()->setUserAccessLevel(0);
    entries = log.take();
    QCOMPARE(entries.takeFirst(), u"c.accessLevelUpdateStarted()"_s);
    QCOMPARE(entries.takeLast(), u"c.accessLevelUpdateFinished()"_s);
    QCOMPARE(entries.size(), 5);
}

void tst_ParameterContainerState::accessLevelBracketOfAnEmptyContainer()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    System::information()->setUserAccessLevel(1);
    QCOMPARE(log.take(),
        (QStringList {u"c.accessLevelUpdateStarted()"_s, u"c.accessLevelUpdateFinished()"_s}));
}

void tst_ParameterContainerState::accessLevelWithoutEffect()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(2, 2), u"D.1;a"_s));
    System::information()->setUserAccessLevel(2);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"a"_s);
    System::information()->setUserAccessLevel(6);
    QCOMPARE(log.take(),
        (QStringList {u"c.accessLevelUpdateStarted()"_s, u"c.accessLevelUpdateFinished()"_s}));
}

void tst_ParameterContainerState::equalAccessLevelIsNoChange()
{
    MessageRecorder messages;
    TestContainer container;
    System::information()->setUserAccessLevel(2);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    System::information()->setUserAccessLevel(2);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerState::everyContainerHasItsOwnBracket()
{
    MessageRecorder messages;
    TestContainer a;
    TestContainer b;
    QVERIFY(a.create(at(u"A12"_s).levels(1, 0), u"D.1;a"_s));
    QVERIFY(b.create(at(u"A12"_s).levels(1, 0), u"D.1;a"_s));
    SignalLog log;
    log.attach(a.get(), u"a"_s);
    log.attach(b.get(), u"b"_s);
    System::information()->setUserAccessLevel(1);
    QCOMPARE(log.take(),
        (QStringList {u"a.accessLevelUpdateStarted()"_s,
            u"a.parameterVisibilityChanged(1.A012[00000])"_s, u"a.accessLevelUpdateFinished()"_s,
            u"b.accessLevelUpdateStarted()"_s, u"b.parameterVisibilityChanged(1.A012[00000])"_s,
            u"b.accessLevelUpdateFinished()"_s}));
}

void tst_ParameterContainerState::levelBeforeCreationPlaysNoPart()
{
    MessageRecorder messages;
    System::information()->setUserAccessLevel(3);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(2, 0), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    System::information()->setUserAccessLevel(4);
    QCOMPARE(log.count(u"parameterVisibilityChanged"_s), 0);
    System::information()->setUserAccessLevel(1);
    QCOMPARE(log.count(u"parameterVisibilityChanged"_s), 1);
}

void tst_ParameterContainerState::parameterChangeTag()
{
    MessageRecorder messages;
    TestContainer container;
    QCOMPARE(container->setParameterChangeTag(u"a"_s), QString());
    QCOMPARE(container->setParameterChangeTag(u"b"_s), u"a"_s);
    QCOMPARE(container->parameterChangeTag(), u"b"_s);
    QCOMPARE(container->setParameterChangeTag(QString()), u"b"_s);
    QCOMPARE(container->parameterChangeTag(), QString());
}

void tst_ParameterContainerState::tagOfTheMoment()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    container->setParameterChangeTag(u"now"_s);
    setup->setNativeValue(Axis1, 0, u"5"_s);
    container->setParameterChangeTag(u"then"_s);
    setup->setDefaultNativeValueText(Axis1, 0, u"6"_s);
    QCOMPARE(setup->attribute(Axis1, 0, u"ValueChangeTag"_s), u"now"_s);
    QCOMPARE(setup->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), u"then"_s);
    container->setParameterChangeTag(QString());
    setup->setNativeValue(Axis1, 0, u"7"_s);
    QCOMPARE(setup->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
}

void tst_ParameterContainerState::updateParameterChangeTagsIfEmpty()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(2), u"S;a"_s));
    QVERIFY(container.create(at(u"B01"_s).global(), u"S;b"_s));
    ParameterSetup *a = container.setup(u"A12"_s);
    ParameterSetup *b = container.setup(u"B01"_s);
    for (const eLivingSpace space : {Axis1, Axis2}) {
        for (const quint16 element : {quint16(0), quint16(1)}) {
            a->setNativeValue(space, element, u"5"_s);
            a->setDefaultNativeValueText(space, element, u"6"_s);
        }
    }
    a->setValueChangeTag(Axis1, 0, u"kept"_s);
    a->setDefaultValueChangeTag(Axis2, 1, u"kept default"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->updateParameterChangeTagsIfEmpty(
        {{u"A12"_s, u"v1"_s}, {u"2.A12[1]"_s, u"v2"_s}, {u"B01"_s, u"v3"_s}},
        {{u"A12[1]"_s, u"d1"_s}, {u"2.A12[1]"_s, u"d2"_s}, {u"B01"_s, u"d3"_s}});

    const auto value = [](const ParameterSetup *setup, eLivingSpace space, quint16 element) {
        return setup->attribute(space, element, u"ValueChangeTag"_s);
    };
    const auto byDefault = [](const ParameterSetup *setup, eLivingSpace space, quint16 element) {
        return setup->attribute(space, element, u"DefaultValueChangeTag"_s);
    };
    QCOMPARE(value(a, Axis1, 0), u"kept"_s);
    QCOMPARE(value(a, Axis1, 1), QString());
    QCOMPARE(value(a, Axis2, 0), QString());
    QCOMPARE(value(a, Axis2, 1), u"v2"_s);
    QCOMPARE(value(b, Global, 0), u"v3"_s);
    QCOMPARE(byDefault(a, Axis1, 0), QString());
    QCOMPARE(byDefault(a, Axis1, 1), u"d1"_s);
    QCOMPARE(byDefault(a, Axis2, 1), u"kept default"_s);
    QCOMPARE(byDefault(b, Global, 0), u"d3"_s);
    QCOMPARE(a->nativeValueText(Axis2, 1, false), u"5"_s);
    QCOMPARE(container->parameterChangeTag(), QString());
    QCOMPARE(log.take(), QStringList());
    // Filled once, it is not empty any more.
    container->updateParameterChangeTagsIfEmpty({{u"2.A12[1]"_s, u"other"_s}}, {});
    QCOMPARE(value(a, Axis2, 1), u"v2"_s);
}

void tst_ParameterContainerState::updateParameterChangeTagsOfNothing()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QMap<QString, QString> tags;
    for (const QString &text :
        {QString(), u"rubbish"_s, u"A13"_s, u"A12[1]"_s, u"2.A12"_s, u"5.A12"_s, u"A12[16384]"_s})
        tags.insert(text, u"tag"_s);
    container->updateParameterChangeTagsIfEmpty(tags, tags);
    QCOMPARE(container.setup(u"A12"_s)->changeTagListOfAllInstances(), QStringList());
}

void tst_ParameterContainerState::updateChangeTagsOfUnreadValues()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container->setParameterChangeTag(u"x"_s);
    container->updateParameterChangeTagsIfEmpty({{u"1.A12"_s, u"v"_s}}, {{u"1.A12"_s, u"d"_s}});
    const ParameterSetup *setup = container.setup(u"A12"_s);
    QCOMPARE(setup->attribute(eLivingSpace::Axis1, 0, u"ValueChangeTag"_s), u"v"_s);
    QCOMPARE(setup->attribute(eLivingSpace::Axis1, 0, u"DefaultValueChangeTag"_s), u"d"_s);
}

QTEST_GUILESS_MAIN(tst_ParameterContainerState)
#include "tst_ParameterContainerState.moc"
