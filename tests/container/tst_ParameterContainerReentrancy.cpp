#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

enum class eHostile {
    Delete,
    DeleteAnother,
    Clear,
    Create,
    Write,
    ChangeFirmware,
    Destroy,
    Repeat
};
enum class eTrigger {
    Create,
    Update,
    Delete,
    Clear,
    ClearName,
    Online,
    ReadOnly,
    AccessLevel,
    Firmware,
    Write,
    WriteNative,
    WriteDefault,
    SetElementCount,
    SetCoordinate,
    SetProperty,
    Load,
    Dispatch,
    Consistence,
};

struct Named {
    const char *name;
    int value;
};

constexpr Named Hostiles[] = {
    {"deletes", int(eHostile::Delete)},
    {"deletes another", int(eHostile::DeleteAnother)},
    {"clears", int(eHostile::Clear)},
    {"creates", int(eHostile::Create)},
    {"writes", int(eHostile::Write)},
    {"changes the firmware", int(eHostile::ChangeFirmware)},
    {"destroys the container", int(eHostile::Destroy)},
    {"does it again", int(eHostile::Repeat)},
};

constexpr Named Triggers[] = {
    {"create", int(eTrigger::Create)},
    {"update", int(eTrigger::Update)},
    {"delete", int(eTrigger::Delete)},
    {"clear", int(eTrigger::Clear)},
    {"clear(name)", int(eTrigger::ClearName)},
    {"setOnline", int(eTrigger::Online)},
    {"setReadOnly", int(eTrigger::ReadOnly)},
    {"access level", int(eTrigger::AccessLevel)},
    {"setFirmware", int(eTrigger::Firmware)},
    {"write", int(eTrigger::Write)},
    {"write native", int(eTrigger::WriteNative)},
    {"write default", int(eTrigger::WriteDefault)},
    {"setElementCount", int(eTrigger::SetElementCount)},
    {"setCoordinate", int(eTrigger::SetCoordinate)},
    {"setProperty", int(eTrigger::SetProperty)},
    {"load", int(eTrigger::Load)},
    {"dispatch", int(eTrigger::Dispatch)},
    {"consistence", int(eTrigger::Consistence)},
};

/// Every signal of the provider and of the instance sets.
const QList<QByteArray> ContainerSignals {"accessLevelUpdateStarted", "accessLevelUpdateFinished",
    "readOnlySetToChange", "onlineSetToChange", "onlineChanged", "readOnlyChanged",
    "parameterNativeValueChanged", "parameterValueChanged", "parameterDefaultValueChanged",
    "parameterDefinitionChanged", "parameterVisibilityChanged", "parameterMeasuringUnitChanged",
    "parameterAdded", "parameterRemoved", "parameterNeedsOnlineConsistence",
    "parameterNeedsOnlineConsistenceOnce"};
const QList<QByteArray> SetSignals {"nativeValueChanged", "valueChanged", "defaultValueChanged",
    "definitionChanged", "limitsChanged", "visibilityChanged", "writabilityChanged",
    "measuringUnitChanged", "coordinateChanged", "allElementsConsistenceOnceDone",
    "allElementsConsistenceOnceCanceled"};

/// A container with parameters of every kind of signal, and a listener that misbehaves.
class Stage : public QObject {
    Q_OBJECT

public:
    Stage(ServoDriveFirmware *first, ServoDriveFirmware *second)
        : m_first(first)
        , m_second(second)
    {
        m_container->setFirmware(first);
        m_updated = m_container.define(local(u"A12"_s).version(2).elementCount(3));
        m_created = m_container.define(local(u"D77"_s));
        m_container.create(local(u"A12"_s).elementCount(2), u"S;a"_s);
        m_container.create(local(u"B01"_s)
                               .property(eParameterProperty::LimitDependency, 7)
                               .property(eParameterProperty::ScalingDependency, 7)
                               .property(eParameterProperty::HidingDependency, 7)
                               .property(eParameterProperty::MeasuringUnitDependency, 7),
            u"D.1;b"_s);
        m_container.create(local(u"C01"_s)
                               .property(eParameterProperty::LimitFunctionIndex, 7U)
                               .property(eParameterProperty::ScalingFunctionIndex, 7U)
                               .property(eParameterProperty::HidingFunctionIndex, 7U)
                               .units(u"<localAxis:B01>"_s),
            u"D.1;c"_s);
        m_container.create(local(u"E01"_s).element(0, u"Null"_s).element(5, u"Fünf"_s), u"D.2;e"_s);
        for (const QString &text : {u"A12"_s, u"B01"_s, u"C01"_s, u"E01"_s}) {
            for (const eLivingSpace space : m_container.setup(text)->livingSpaces())
                m_container->readValue(space, ParameterCoordinate(text), 0, true);
        }
    }

    void listen(const QByteArray &signalName, eHostile hostile, eTrigger trigger)
    {
        m_hostile = hostile;
        m_trigger = trigger;
        if (ContainerSignals.contains(signalName)) {
            attach(m_container.get(), signalName);
            return;
        }
        for (const ParameterCoordinate &coordinate : m_container->parameterList())
            attach(m_container->parameterSetup(coordinate), signalName);
    }

    void trigger(eTrigger trigger)
    {
        if (!m_container.get())
            return;
        ParameterSetup *a = m_container.setup(u"A12"_s);
        const ParameterCoordinate b(u"B01"_s);
        switch (trigger) {
        case eTrigger::Create:
            m_container->createOrUpdateParameter(m_created, u"S;d"_s);
            return;
        case eTrigger::Update:
            m_container->createOrUpdateParameter(m_updated, u"S;a"_s);
            return;
        case eTrigger::Delete:
            m_container->deleteParameter(u"S;a"_s);
            return;
        case eTrigger::Clear:
            m_container->clear();
            return;
        case eTrigger::ClearName:
            m_container->setParameterChangeTag(u"fw_"_s);
            m_container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, u"77"_s);
            if (m_container.get())
                m_container->clear(u"fw_"_s);
            return;
        case eTrigger::Online:
            m_container->setOnline(!m_container->isOnline());
            return;
        case eTrigger::ReadOnly:
            m_container->setReadOnly(!m_container->isReadOnly());
            return;
        case eTrigger::AccessLevel:
            System::information()->setUserAccessLevel(
                System::information()->userAccessLevel() == 0 ? 4 : 0);
            return;
        case eTrigger::Firmware:
            m_container->setFirmware(m_container->firmware() == m_first ? m_second : m_first);
            return;
        case eTrigger::Write:
            m_container->writeValue(Axis1, b, 0, QString::number(++m_number));
            return;
        case eTrigger::WriteNative:
            m_container->writeValueNative(Axis1, b, 0, QString::number(++m_number));
            return;
        case eTrigger::WriteDefault:
            if (a)
                a->setDefaultValueText(Axis1, 0, QString::number(++m_number));
            return;
        case eTrigger::SetElementCount:
            if (a)
                a->setElementCount(quint16(4 + ++m_number % 7));
            return;
        case eTrigger::SetCoordinate:
            if (a)
                a->setCoordinate(ParameterCoordinate(u"A13"_s));
            return;
        case eTrigger::SetProperty:
            if (a)
                a->setProperty(0, eParameterProperty::ReadLevel, ParameterProperty(6U));
            if (m_container.get() && (a = m_container.setup(u"A12"_s)))
                a->setProperty(0, eParameterProperty::WriteLevel, ParameterProperty(6U));
            if (m_container.get() && (a = m_container.setup(u"A12"_s)))
                a->setProperty(0, eParameterProperty::UpperLimitValue, ParameterProperty(u"3"_s));
            return;
        case eTrigger::Load: {
            QMap<QString, QByteArray> blocks {{u"Parameter.ini"_s,
                "[A012]\r\nCE=5\r\nV_1_0=61\r\n[B001]\r\nV_1_0=62\r\n[E001]\r\nV_2_5=63\r\n"}};
            m_container->loadFrom(blocks);
            return;
        }
        case eTrigger::Dispatch:
            for (const quint32 property : {32U, 33U, 38U, 39U}) {
                if (m_container.get())
                    m_container->dispatchDependencyChange(
                        eParameterProperty(property), Axis1, b, 0);
            }
            return;
        case eTrigger::Consistence:
            m_container->setOnline(true);
            if (m_container.get() && (a = m_container.setup(u"E01"_s)))
                a->startAllElementsConsistenceOnce(Axis2);
            for (const quint16 element : {quint16(0), quint16(5)}) {
                if (m_container.get() && (a = m_container.setup(u"E01"_s)))
                    a->setOnlineValueText(Axis2, element, QString::number(++m_number));
            }
            if (m_container.get() && (a = m_container.setup(u"E01"_s)))
                a->cancelAllElementsConsistenceOnce(Axis2);
            if (m_container.get() && (a = m_container.setup(u"E01"_s)))
                a->setParameterNeedsConsistence(Axis2, 0, true);
            return;
        }
    }

    int calls() const { return m_calls; }
    TestContainer &container() { return m_container; }

private Q_SLOTS:
    void react()
    {
        if (++m_calls > 3 || !m_container.get())
            return;
        switch (m_hostile) {
        case eHostile::Delete:
            m_container->deleteParameter(u"S;a"_s);
            return;
        case eHostile::DeleteAnother:
            m_container->deleteParameter(u"D.1;b"_s);
            if (m_container.get())
                m_container->deleteParameter(u"D.1;c"_s);
            return;
        case eHostile::Clear:
            m_container->clear();
            return;
        case eHostile::Create:
            m_container->createOrUpdateParameter(m_created, u"D.4;new"_s);
            if (m_container.get())
                m_container->createOrUpdateParameter(m_updated, u"S;a"_s);
            return;
        case eHostile::Write:
            m_container->writeValueNative(
                Axis1, ParameterCoordinate(u"B01"_s), 0, QString::number(++m_number));
            return;
        case eHostile::ChangeFirmware:
            m_container->setFirmware(m_container->firmware() == m_first ? m_second : nullptr);
            return;
        case eHostile::Destroy:
            m_container.destroy();
            return;
        case eHostile::Repeat:
            trigger(m_trigger);
            return;
        }
    }

private:
    static DefinitionBuilder local(const QString &coordinate)
    {
        return at(coordinate)
            .coordinates({coordinate, u"A13"_s})
            .levels(2, 2)
            .limits(u"-1000"_s, u"1000"_s)
            .kind(0);
    }

    void attach(QObject *source, const QByteArray &signalName)
    {
        const QMetaObject *meta = source->metaObject();
        for (int i = 0; i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() == QMetaMethod::Signal && method.name() == signalName) {
                connect(source, method, this,
                    metaObject()->method(metaObject()->indexOfSlot("react()")));
                return;
            }
        }
        QFAIL(signalName.constData());
    }

    ServoDriveFirmware *m_first;
    ServoDriveFirmware *m_second;
    TestContainer m_container;
    ParameterDefinition *m_updated = nullptr;
    ParameterDefinition *m_created = nullptr;
    eHostile m_hostile = eHostile::Delete;
    eTrigger m_trigger = eTrigger::Create;
    int m_calls = 0;
    int m_number = 100;
};

} // namespace

class tst_ParameterContainerReentrancy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void hostileListener_data();
    void hostileListener();
    void everySignalIsReached();

    void nothingIsEmittedForWhatIsGone_data();
    void nothingIsEmittedForWhatIsGone();
    void destroyedWhileGoingOnline();
    void destroyedWhileTheLevelChanges();
    void deletedWhileBeingAdded();
    void updatedWhileBeingAdded();
    void destroyedByAMessage();
    void clearedWhileBeingRemoved();
    void firmwareChangedWhileSystemParametersGo();
    void firmwareChangedWhileSystemParametersCome();
    void createdWhileBeingRemoved();
    void onlineFromWithinOnline();
    void latestCallCounts_data();
    void latestCallCounts();
    void stateFromWithinWritabilityChanged_data();
    void stateFromWithinWritabilityChanged();

private:
    std::unique_ptr<ServoDriveFirmware> m_first;
    std::unique_ptr<ServoDriveFirmware> m_second;
};

void tst_ParameterContainerReentrancy::initTestCase()
{
    const auto system = [](const QByteArrayList &parameters) {
        return "\"systemParameters\": [" + parameters.join(", ") + "]";
    };
    m_first = TestFirmware::load(TestFirmware::PhysicalAxesFamily,
        system({TestFirmware::parameter(1, "S01"), TestFirmware::parameter(2, "S02")}));
    m_second = TestFirmware::load(TestFirmware::PlainAxesFamily,
        system({TestFirmware::parameter(2, "S02"), TestFirmware::parameter(3, "S03")}));
    QVERIFY(m_first && m_second);
}

void tst_ParameterContainerReentrancy::cleanup()
{
    System::information()->setUserAccessLevel(0);
}

void tst_ParameterContainerReentrancy::hostileListener_data()
{
    QTest::addColumn<int>("trigger");
    QTest::addColumn<int>("hostile");

    for (const Named &trigger : Triggers) {
        for (const Named &hostile : Hostiles) {
            QTest::addRow("%s: listener %s", trigger.name, hostile.name)
                << trigger.value << hostile.value;
        }
    }
}

/// Whatever a listener does in whatever signal: no crash, and the container works afterwards.
void tst_ParameterContainerReentrancy::hostileListener()
{
    QFETCH(int, trigger);
    QFETCH(int, hostile);
    for (const QByteArray &signalName : ContainerSignals + SetSignals) {
        MessageRecorder messages;
        System::information()->setUserAccessLevel(0);
        {
            Stage stage(m_first.get(), m_second.get());
            stage.listen(signalName, eHostile(hostile), eTrigger(trigger));
            stage.trigger(eTrigger(trigger));
            if (stage.container().get()) {
                QMap<QString, QByteArray> blocks;
                QVERIFY(stage.container()->saveTo(blocks));
                stage.container()->clear();
            }
        }
        // What a hostile listener makes of the definitions may well be reported.
        messages.take();
    }
    QVERIFY(ParameterContainer::instances().isEmpty());
}

void tst_ParameterContainerReentrancy::everySignalIsReached()
{
    MessageRecorder messages;
    QStringList unreached;
    for (const QByteArray &signalName : ContainerSignals + SetSignals) {
        int calls = 0;
        for (const Named &trigger : Triggers) {
            System::information()->setUserAccessLevel(0);
            Stage stage(m_first.get(), m_second.get());
            stage.listen(signalName, eHostile::Write, eTrigger(trigger.value));
            stage.trigger(eTrigger(trigger.value));
            calls += stage.calls();
        }
        if (calls == 0)
            unreached.append(QString::fromLatin1(signalName));
    }
    messages.take();
    QCOMPARE(unreached.join(u' '), QString());
}

void tst_ParameterContainerReentrancy::nothingIsEmittedForWhatIsGone_data()
{
    QTest::addColumn<QString>("signalName");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("valueChanged") << u"valueChanged"_s
                                  << QStringList {u"s.valueChanged(1.A012[00000])"_s,
                                         u"c.parameterRemoved(A12)"_s};
    QTest::newRow("nativeValueChanged")
        << u"nativeValueChanged"_s
        << QStringList {u"s.valueChanged(1.A012[00000])"_s,
               u"s.nativeValueChanged(1.A012[00000])"_s, u"c.parameterRemoved(A12)"_s};
    QTest::newRow("parameterValueChanged")
        << u"parameterValueChanged"_s
        << QStringList {u"s.valueChanged(1.A012[00000])"_s,
               u"s.nativeValueChanged(1.A012[00000])"_s,
               u"c.parameterValueChanged(1.A012[00000])"_s, u"c.parameterRemoved(A12)"_s};
}

void tst_ParameterContainerReentrancy::nothingIsEmittedForWhatIsGone()
{
    MessageRecorder messages;
    QFETCH(QString, signalName);
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).property(eParameterProperty::ScalingDependency, 7), u"D.1;a"_s));
    QVERIFY(container.create(
        at(u"B01"_s).property(eParameterProperty::ScalingFunctionIndex, 7U), u"D.1;b"_s));
    SignalLog log;
    log.attach(container.setup(u"A12"_s), u"s"_s);
    log.attach(container.get(), u"c"_s);
    const auto remove = [&] { container->deleteParameter(u"D.1;a"_s); };
    if (signalName == "valueChanged"_L1)
        connect(container.setup(u"A12"_s), &ParameterInformation::valueChanged, this, remove);
    else if (signalName == "nativeValueChanged"_L1)
        connect(container.setup(u"A12"_s), &ParameterInformation::nativeValueChanged, this, remove);
    else
        connect(container.get(), &ParameterContainer::parameterValueChanged, this, remove);

    container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, u"5"_s);

    QTEST(log.take(), "expected");
    QCOMPARE(container.coordinates(), QStringList {u"B01"_s});
}

void tst_ParameterContainerReentrancy::destroyedWhileGoingOnline()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).kind(2), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"s"_s);
    connect(container.setup(u"A12"_s), &ParameterInformation::writabilityChanged, this,
        [&] { container.destroy(); });
    container->setOnline(true);
    QCOMPARE(log.take(),
        (QStringList {u"c.onlineSetToChange(true)"_s, u"s.writabilityChanged(1.A012[00000])"_s}));
}

void tst_ParameterContainerReentrancy::destroyedWhileTheLevelChanges()
{
    MessageRecorder messages;
    TestContainer container;
    TestContainer other;
    QVERIFY(container.create(at(u"A12"_s).levels(1, 1), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(other.get(), u"o"_s);
    connect(container.get(), &ParameterContainer::parameterVisibilityChanged, this,
        [&] { container.destroy(); });
    System::information()->setUserAccessLevel(1);
    QCOMPARE(log.take(),
        (QStringList {u"c.accessLevelUpdateStarted()"_s,
            u"c.parameterVisibilityChanged(1.A012[00000])"_s, u"o.accessLevelUpdateStarted()"_s,
            u"o.accessLevelUpdateFinished()"_s}));
}

void tst_ParameterContainerReentrancy::deletedWhileBeingAdded()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    // The text does not lead to it yet.
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        container->deleteParameter(u"D.1;a"_s);
        container->clear();
    });
    QVERIFY(!container.create(at(u"A12"_s), u"D.1;a"_s));
    QCOMPARE(log.take(), (QStringList {u"c.parameterAdded(A12)"_s, u"c.parameterRemoved(A12)"_s}));
    QVERIFY(container.coordinates().isEmpty());
    QVERIFY(!container->queryParameterInstance(u"D.1;a"_s));
}

void tst_ParameterContainerReentrancy::updatedWhileBeingAdded()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).version(1), u"D.1;a"_s));
    ParameterDefinition *newer = container.define(at(u"A12"_s).version(2));
    ParameterDefinition *newest = container.define(at(u"A12"_s).version(3));
    connect(container.get(), &ParameterContainer::parameterAdded, this,
        [&] { container->createOrUpdateParameter(newest, u"D.1;a"_s); });
    QVERIFY(container->createOrUpdateParameter(newer, u"D.2;a"_s));
    QCOMPARE(container->queryParameter(u"D.2;a"_s), newest);
}

void tst_ParameterContainerReentrancy::destroyedByAMessage()
{
    MessageRecorder messages;
    for (const QString &locator :
        {u"D;relative"_s, u"S;multi"_s, u"S;invalid"_s, u"D.1;nowhere"_s}) {
        TestContainer container;
        DefinitionBuilder builder;
        if (locator == "S;multi"_L1)
            builder.multiInstance();
        if (locator == "S;invalid"_L1)
            builder.identifier(QString());
        QObject listener;
        connect(System::instance(), &System::messageAdded, &listener, [&] { container.destroy(); });
        ParameterContainer *going = container.get();
        QVERIFY(!going->createOrUpdateParameter(container.define(builder), locator));
        QVERIFY(!container.get());
        QCOMPARE(messages.take().size(), 1);
    }
}

void tst_ParameterContainerReentrancy::clearedWhileBeingRemoved()
{
    MessageRecorder messages;
    TestContainer container;
    for (const QString &text : {u"A12"_s, u"B01"_s, u"C01"_s})
        QVERIFY(container.create(at(text), u"D.1;"_s + text));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    connect(
        container.get(), &ParameterContainer::parameterRemoved, this, [&] { container->clear(); });
    container->clear();
    QStringList entries = log.take();
    entries.sort();
    QCOMPARE(entries,
        (QStringList {u"c.parameterRemoved(A12)"_s, u"c.parameterRemoved(B01)"_s,
            u"c.parameterRemoved(C01)"_s}));
}

void tst_ParameterContainerReentrancy::firmwareChangedWhileSystemParametersGo()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_first.get());
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::parameterRemoved, this, [&] {
        if (std::exchange(isFirst, false))
            container->setFirmware(m_second.get());
    });
    container->setFirmware(nullptr);
    // The change from within came later.
    QCOMPARE(container->firmware(), m_second.get());
    QCOMPARE(container.coordinates(), (QStringList {u"S02"_s, u"S03"_s}));
}

void tst_ParameterContainerReentrancy::firmwareChangedWhileSystemParametersCome()
{
    MessageRecorder messages;
    TestContainer container;
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::parameterAdded, this, [&] {
        if (std::exchange(isFirst, false))
            container->setFirmware(m_second.get());
    });
    container->setFirmware(m_first.get());
    QCOMPARE(container->firmware(), m_second.get());
    QCOMPARE(container.coordinates(), (QStringList {u"S02"_s, u"S03"_s}));
}

void tst_ParameterContainerReentrancy::createdWhileBeingRemoved()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    const QPointer<ParameterSetup> before = container.setup(u"A12"_s);
    connect(container.get(), &ParameterContainer::parameterRemoved, this, [&] {
        QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
        QVERIFY(before);
        QVERIFY(container.setup(u"A12"_s) != before);
    });
    container->deleteParameter(u"D.1;a"_s);
    QVERIFY(!before);
    QVERIFY(container->queryParameterInstance(u"D.1;a"_s));
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
}

void tst_ParameterContainerReentrancy::onlineFromWithinOnline()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    bool isFirst = true;
    connect(container.get(), &ParameterContainer::onlineChanged, this, [&] {
        if (std::exchange(isFirst, false))
            container->setOnline(false);
    });
    container->setOnline(true);
    QVERIFY(!container->isOnline());
    QCOMPARE(log.take(),
        (QStringList {u"c.onlineSetToChange(true)"_s, u"c.onlineChanged(true)"_s,
            u"c.onlineSetToChange(false)"_s, u"c.onlineChanged(false)"_s}));
}

void tst_ParameterContainerReentrancy::latestCallCounts_data()
{
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<QStringList>("signalsHeard");
    // The announcement of the older call is answered by a newer one: the older one ends there.
    QTest::newRow("setOnline") << true
                               << QStringList {u"c.onlineSetToChange(true)"_s,
                                      u"c.onlineSetToChange(false)"_s, u"c.onlineChanged(false)"_s};
    QTest::newRow("setReadOnly") << false
                                 << QStringList {u"c.readOnlySetToChange(true)"_s,
                                        u"c.readOnlySetToChange(false)"_s,
                                        u"c.readOnlyChanged(false)"_s};
}

void tst_ParameterContainerReentrancy::latestCallCounts()
{
    QFETCH(bool, isOnline);
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    const auto change = [&](bool to) {
        isOnline ? container->setOnline(to) : container->setReadOnly(to);
    };
    bool isFirst = true;
    const auto answer = [&] {
        if (std::exchange(isFirst, false))
            change(false);
    };
    connect(container.get(), &ParameterContainer::onlineSetToChange, this, answer);
    connect(container.get(), &ParameterContainer::readOnlySetToChange, this, answer);
    change(true);
    QVERIFY(!container->isOnline());
    QVERIFY(!container->isReadOnly());
    QTEST(log.take(), "signalsHeard");
}

void tst_ParameterContainerReentrancy::stateFromWithinWritabilityChanged_data()
{
    QTest::addColumn<bool>("isOnline");
    QTest::newRow("setOnline") << true;
    QTest::newRow("setReadOnly") << false;
}

void tst_ParameterContainerReentrancy::stateFromWithinWritabilityChanged()
{
    QFETCH(bool, isOnline);
    MessageRecorder messages;
    TestContainer container;
    // Written online only, so that both states decide.
    QVERIFY(container.create(at(u"A12"_s).kind(isOnline ? 2 : 0).elementCount(2), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"a"_s);
    const auto set = [&](bool state) {
        if (isOnline)
            container->setOnline(state);
        else
            container->setReadOnly(state);
    };
    bool isFirst = true;
    connect(container.setup(u"A12"_s), &ParameterInformation::writabilityChanged, this, [&] {
        if (std::exchange(isFirst, false))
            set(false);
    });
    set(true);
    QVERIFY(!(isOnline ? container->isOnline() : container->isReadOnly()));
    // The last that is told is the state that holds, once.
    const QStringList entries = log.take();
    QCOMPARE(entries.constLast(),
        isOnline ? u"c.onlineChanged(false)"_s : u"c.readOnlyChanged(false)"_s);
    QCOMPARE(
        entries.filter(u"lineChanged("_s).size() + entries.filter(u"OnlyChanged("_s).size(), 1);
}

QTEST_GUILESS_MAIN(tst_ParameterContainerReentrancy)
#include "tst_ParameterContainerReentrancy.moc"
