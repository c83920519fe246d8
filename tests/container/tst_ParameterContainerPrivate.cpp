#include "TestContainer.h"

#include "tests/support/ContainerInternals.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/ProgrammedFunctionProvider.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

ParameterContainerPrivate &internals(const TestContainer &container)
{
    return *ContainerInternals::of(*container);
}

std::shared_ptr<ProgrammedFunctions> bind(const TestContainer &container)
{
    auto functions = std::make_shared<ProgrammedFunctions>();
    ContainerInternals::bind(*container, std::make_unique<ProgrammedFunctionProvider>(functions));
    return functions;
}

} // namespace

class tst_ParameterContainerPrivate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void declaredSignalsAndSlots();
    void signalsPassThrough();
    void structuralSignalsComeFromHere();
    void listsAreKeptInStep();
    void pendingNamesGoBeforeAHostHears();
    void locatorTextsOfASet();
    void coordinateChangeMovesTheKey();
    void parameterWithoutElementsMoves();
    void coordinateOfAnotherSetIsRefused();
    void pendingNames();
    void pendingNamesOfWhatIsThere_data();
    void pendingNamesOfWhatIsThere();
    void providerIsReplacedInOrder();
    void providerIsUnboundAtTheEnd();
    void everySetIsToldOfTheProvider();
    void activeAxisIsNeverReadThroughTheProvider();
    void setsAreGoneBeforeTheContainerIs();
    void nothingIsFoundWhileTheContainerGoes();
};

void tst_ParameterContainerPrivate::cleanup()
{
    System::information()->setUserAccessLevel(0);
}

void tst_ParameterContainerPrivate::declaredSignalsAndSlots()
{
    QStringList signalNames;
    QStringList slotNames;
    const QMetaObject &meta = ParameterContainerPrivate::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        (method.methodType() == QMetaMethod::Signal ? signalNames : slotNames)
            .append(QString::fromLatin1(method.methodSignature()));
    }
    QCOMPARE(signalNames,
        (QStringList {u"accessLevelUpdateStarted()"_s, u"accessLevelUpdateFinished()"_s,
            u"onlineSetToChange(bool)"_s, u"parameterAdded(ParameterCoordinate)"_s,
            u"parameterRemoved(ParameterCoordinate)"_s}));
    QVERIFY(slotNames.contains(u"setOnline(bool)"_s));
    QVERIFY(slotNames.contains(u"updateAllParameterVisibility()"_s));
}

void tst_ParameterContainerPrivate::signalsPassThrough()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    ParameterContainerPrivate &d = internals(container);
    Q_EMIT d.parameterAdded(ParameterCoordinate(u"A12"_s));
    Q_EMIT d.parameterRemoved(ParameterCoordinate(u"A13"_s));
    Q_EMIT d.accessLevelUpdateStarted();
    Q_EMIT d.accessLevelUpdateFinished();
    QCOMPARE(log.take(),
        (QStringList {u"c.parameterAdded(A12)"_s, u"c.parameterRemoved(A13)"_s,
            u"c.accessLevelUpdateStarted()"_s, u"c.accessLevelUpdateFinished()"_s}));
    d.updateAllParameterVisibility();
    QCOMPARE(log.take(),
        (QStringList {u"c.accessLevelUpdateStarted()"_s, u"c.accessLevelUpdateFinished()"_s}));
    // The slot keeps its list; the state and its signals are the container's.
    d.setOnline(true);
    QVERIFY(!container->isOnline());
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerPrivate::structuralSignalsComeFromHere()
{
    MessageRecorder messages;
    TestContainer container;
    QStringList heard;
    const auto hear = [&](auto *sender, auto signal, const QString &name) {
        connect(sender, signal, this,
            [&heard, name](const ParameterCoordinate &at) { heard.append(name + at.toText()); });
    };
    ParameterContainerPrivate *d = &internals(container);
    hear(d, &ParameterContainerPrivate::parameterAdded, u"d.added "_s);
    hear(d, &ParameterContainerPrivate::parameterRemoved, u"d.removed "_s);
    hear(container.get(), &ParameterContainer::parameterAdded, u"c.added "_s);
    hear(container.get(), &ParameterContainer::parameterRemoved, u"c.removed "_s);
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container->deleteParameter(u"D.1;a"_s);
    // The way to the container was connected first.
    QCOMPARE(heard,
        (QStringList {u"c.added A12"_s, u"d.added A12"_s, u"c.removed A12"_s, u"d.removed A12"_s}));
}

void tst_ParameterContainerPrivate::pendingNamesGoBeforeAHostHears()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterContainerPrivate &d = internals(container);
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    qsizetype heard = -1;
    connect(container.get(), &ParameterContainer::onlineChanged, this,
        [&] { heard = d.pendingNames.size(); });
    d.callbackDelegate.readValue(1, 1012, 0, false);
    QCOMPARE(d.pendingNames, QSet<QString> {u"1;1012;0"_s});
    container->setOnline(true);
    QCOMPARE(heard, 0);
}

void tst_ParameterContainerPrivate::listsAreKeptInStep()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterContainerPrivate &d = internals(container);
    QVERIFY(container.create(at(u"A12"_s).kind(11), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    QCOMPARE(d.coordinateSets.size(), size_t(2));
    QCOMPARE(d.mappingSets().size(), 1);
    QCOMPARE(d.locatorSets.size(), 2);
    container->parameterAddressList(u"x"_s);
    QCOMPARE(d.addressLists.keys(), QList<QString> {u"x"_s});
    container->clear();
    QCOMPARE(d.coordinateSets.size(), size_t(0));
    QCOMPARE(d.mappingSets().size(), 0);
    QCOMPARE(d.locatorSets.size(), 0);
    QCOMPARE(d.addressLists.size(), 0);
}

void tst_ParameterContainerPrivate::locatorTextsOfASet()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.2;a"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.2;a"_s));
    ParameterContainerPrivate &d = internals(container);
    const auto &texts = d.coordinateSets.find(ParameterCoordinate(u"A12"_s))->locatorTexts;
    QCOMPARE(QStringList(texts.begin(), texts.end()), (QStringList {u"D.1;a"_s, u"D.2;a"_s}));
    // A locator that failed leads nowhere.
    QVERIFY(!container->createOrUpdateParameter(definition, u"D.0;a"_s));
    QCOMPARE(d.locatorSets.size(), 2);
}

void tst_ParameterContainerPrivate::coordinateChangeMovesTheKey()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(
        container.create(at(u"A12"_s).coordinates({u"A12"_s, u"A13"_s}).elementCount(2), u"S;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    const ParameterCoordinate before(u"A12"_s);
    const ParameterCoordinate after(u"A13"_s);
    SignalLog log;
    log.attach(setup, u"s"_s);
    container->parameterAddressList(u"x"_s);
    QStringList seen;
    connect(setup, &ParameterInformation::coordinateChanged, this, [&] {
        QVERIFY(!container->parameterSetup(before));
        QCOMPARE(container->parameterSetup(after).data(), setup);
        QCOMPARE(container->parameterAddressList(u"x"_s).first().coordinate(), after);
    });

    setup->setCoordinate(after);

    QCOMPARE(log.count(u"coordinateChanged"_s), 8);
    QCOMPARE(log.entries().first(), u"s.coordinateChanged(1.A012[00000], 1.A013[00000])"_s);
    QCOMPARE(container.coordinates(), QStringList {u"A13"_s});
    QCOMPARE(container->queryParameterInstance(u"S;a"_s), setup);
    container->deleteParameter(u"S;a"_s);
    QVERIFY(container.coordinates().isEmpty());
    // A change of a coordinate that no set has is nobody's.
    internals(container).onCoordinateChanged(
        ParameterAddress(0, before, 0), ParameterAddress(0, after, 0));
    QVERIFY(container.coordinates().isEmpty());
}

void tst_ParameterContainerPrivate::parameterWithoutElementsMoves()
{
    MessageRecorder messages;
    TestContainer container;
    const DefinitionBuilder builder = at(u"A12"_s).coordinates({u"A12"_s, u"A13"_s});
    QVERIFY(container.create(builder, u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    QVERIFY(container.create(DefinitionBuilder(builder).version(2).elementCount(0), u"D.1;a"_s));
    QCOMPARE(setup->elementList(), QList<quint16>());
    SignalLog log;
    log.attach(setup, u"s"_s);
    setup->setCoordinate(ParameterCoordinate(u"A13"_s));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(setup->coordinate().toText(), u"A13"_s);
    QVERIFY(!container.setup(u"A12"_s));
    QCOMPARE(container.setup(u"A13"_s), setup);
    container->deleteParameter(u"D.1;a"_s);
    QCOMPARE(container.coordinates(), QStringList());
}

void tst_ParameterContainerPrivate::coordinateOfAnotherSetIsRefused()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).coordinates({u"A12"_s, u"A13"_s}), u"D.1;a"_s));
    QVERIFY(container.create(at(u"A13"_s), u"D.1;b"_s));
    SignalLog log;
    log.attach(container.setup(u"A12"_s), u"s"_s);
    container.setup(u"A12"_s)->setCoordinate(ParameterCoordinate(u"A13"_s));
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"A13"_s}));
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerPrivate::pendingNames()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(4), u"D.2;a"_s));
    ParameterContainerPrivate &d = internals(container);
    CallbackProvider &callbacks = d.callbackDelegate;
    callbacks.readValue(2, 1012, 3, false);
    callbacks.readValueNative(2, 1012, 3, true);
    callbacks.readUndecoratedValue(2, 1012, 0, false);
    const QSet<QString> noted {u"2;1012;3"_s, u"2;1012;0"_s};
    QCOMPARE(d.pendingNames, noted);
    callbacks.writeValueNative(2, 1012, 1, u"5"_s);
    container->readValue(Axis2, ParameterCoordinate(u"A12"_s), 1, false);
    QCOMPARE(d.pendingNames, noted);
    container->setOnline(false);
    QCOMPARE(d.pendingNames, noted);
    container->setOnline(true);
    QCOMPARE(d.pendingNames, QSet<QString>());
    callbacks.readValue(2, 1012, 3, false);
    QCOMPARE(d.pendingNames, QSet<QString>());
    container->setOnline(false);
    callbacks.readValue(2, 1012, 3, false);
    QCOMPARE(d.pendingNames, QSet<QString> {u"2;1012;3"_s});
}

void tst_ParameterContainerPrivate::pendingNamesOfWhatIsThere_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("coordinate");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<QSet<QString>>("noted");
    const auto row = [](const char *name, int livingSpace, quint16 coordinate, quint16 element,
                         const QSet<QString> &noted) {
        QTest::newRow(name) << livingSpace << coordinate << element << noted;
    };
    row("the last element", 2, 1012, 3, {u"2;1012;3"_s});
    row("no element behind the last", 2, 1012, 4, {});
    row("no instance in another axis", 1, 1012, 0, {});
    row("no instance in space 0", 0, 1012, 0, {});
    row("no such living space", 2147483647, 1012, 0, {});
    row("no such parameter", 2, 1013, 0, {});
    row("no such coordinate", 2, 65535, 65535, {});
    row("a global value in its space", 0, 2001, 0, {u"0;2001;0"_s});
    row("a global value by any space", 7, 2001, 0, {u"0;2001;0"_s});
    row("the active axis", -1, 1012, 0, {u"2;1012;0"_s});
    row("the active axis of the lowest number", -2147483647 - 1, 1012, 0, {u"2;1012;0"_s});
}

void tst_ParameterContainerPrivate::pendingNamesOfWhatIsThere()
{
    QFETCH(int, livingSpace);
    QFETCH(quint16, coordinate);
    QFETCH(quint16, element);
    QFETCH(QSet<QString>, noted);
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(4), u"D.2;a"_s));
    QVERIFY(container.create(at(u"B01"_s).global(), u"S;b"_s));
    QVERIFY(container.create(at(u"E84"_s).global().defaultValue(u"1"_s), u"S;e"_s));
    // Its own record says which axis is active: a value that nobody asked for yet says none.
    container->readValueNative(Global, ParameterCoordinate(u"E84"_s), 0, false);
    ParameterContainerPrivate &d = internals(container);
    for (int i = 0; i < 2; ++i) {
        d.callbackDelegate.readValueNative(livingSpace, coordinate, element, false);
        QCOMPARE(d.pendingNames, noted);
    }
}

void tst_ParameterContainerPrivate::providerIsReplacedInOrder()
{
    MessageRecorder messages;
    const auto firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily,
        "\"systemParameters\": [" + TestFirmware::parameter(7, "A07") + "]");
    QVERIFY(firmware);
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s), u"S;old"_s));
    QVERIFY(container.create(at(u"C01"_s).levels(0, 0), u"D.1;kept"_s));
    const std::shared_ptr<ProgrammedFunctions> functions = bind(container);
    QStringList order;
    const auto note = [&](const QString &text) {
        order.append(text + (functions->providerCount == 1 ? u" before"_s : u" after"_s));
    };
    connect(container.get(), &ParameterContainer::parameterRemoved, this, [&] {
        QVERIFY(!container->firmware());
        note(u"removed"_s);
    });
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        QCOMPARE(container->firmware(), firmware.get());
        QVERIFY(container->functionProvider());
        note(u"added"_s);
    });

    container->setFirmware(firmware.get());

    QCOMPARE(order, (QStringList {u"removed before"_s, u"added after"_s, u"added after"_s}));
    QCOMPARE(functions->providerCount, 0);
    QVERIFY(container->functionProvider());
    QCOMPARE(container->firmware(), firmware.get());
}

void tst_ParameterContainerPrivate::providerIsUnboundAtTheEnd()
{
    MessageRecorder messages;
    TestContainer container;
    const std::shared_ptr<ProgrammedFunctions> functions = bind(container);
    QCOMPARE(functions->callbacks, &internals(container).callbackDelegate);
    QCOMPARE(functions->providerCount, 1);
    container.destroy();
    QVERIFY(!functions->callbacks);
    QCOMPARE(functions->providerCount, 0);
}

void tst_ParameterContainerPrivate::everySetIsToldOfTheProvider()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    QVERIFY(!container.setup(u"A12"_s)->isHidden(Axis1, 0));
    auto functions = std::make_shared<ProgrammedFunctions>();
    functions->isHidden = [](const ParameterData &, quint16) { return true; };
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    // A hidden flag that was asked for is asked for again; others wait for their first question.
    ContainerInternals::bind(*container, std::make_unique<ProgrammedFunctionProvider>(functions));
    QCOMPARE(log.take(), QStringList {u"c.parameterVisibilityChanged(1.A012[00000])"_s});
    container->setFirmware(nullptr);
    QVERIFY(!container->functionProvider());
    QCOMPARE(functions->providerCount, 0);
    QCOMPARE(log.take(), QStringList {u"c.parameterVisibilityChanged(1.A012[00000])"_s});
}

void tst_ParameterContainerPrivate::activeAxisIsNeverReadThroughTheProvider()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"E84"_s).global().defaultValue(u"2"_s), u"S;e"_s));
    const std::shared_ptr<ProgrammedFunctions> functions = bind(container);
    QCOMPARE(container->activeLivingSpace(Axis1), Axis3);
    QCOMPARE(functions->takeCalls(), QStringList());
    container->writeValueNative(Global, ParameterCoordinate(u"E84"_s), 0, u"3"_s);
    functions->takeCalls();
    QCOMPARE(container->activeLivingSpace(Axis1), Axis4);
    QCOMPARE(functions->takeCalls(), QStringList());
}

void tst_ParameterContainerPrivate::setsAreGoneBeforeTheContainerIs()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const QPointer<ParameterSetup> setup = container.setup(u"A12"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container.destroy();
    QVERIFY(!setup);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerPrivate::nothingIsFoundWhileTheContainerGoes()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    ParameterContainer *going = container.get();
    int calls = 0;
    for (const QString &text : {u"A12"_s, u"B01"_s}) {
        connect(container.setup(text), &QObject::destroyed, this, [&, going] {
            ++calls;
            QVERIFY(going->parameterList().isEmpty());
            QVERIFY(!going->queryParameterInstance(u"D.1;a"_s));
            QVERIFY(!going->parameterSetup(ParameterCoordinate(u"B01"_s)));
            QVERIFY(!ParameterContainer::instances().contains(going));
        });
    }
    container.destroy();
    QCOMPARE(calls, 2);
}

QTEST_GUILESS_MAIN(tst_ParameterContainerPrivate)
#include "tst_ParameterContainerPrivate.moc"
