#include "tests/instance/InstanceStand.h"

#include <KrParameterInstance/ParameterData.h>

#include <QtCore/QMap>
#include <QtTest/QTest>

#include <exception>
#include <functional>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Does something once, on the first signal that it is connected to.
class Trap : public QObject {
    Q_OBJECT

public:
    explicit Trap(std::function<void()> act, quint16 element = 0)
        : m_act(std::move(act))
        , m_element(element)
    {
    }
    bool hasFired() const { return !m_act; }
    /// Connects the signal. One that tells an address fires from the trap's element on.
    void listenTo(const QObject *source, const QMetaMethod &signal)
    {
        const bool tellsAddress = signal.parameterTypes().value(0) == "ParameterAddress";
        const char *slot = tellsAddress ? "fireAt(ParameterAddress)" : "fire()";
        connect(source, signal, this, metaObject()->method(metaObject()->indexOfSlot(slot)));
    }

public Q_SLOTS:
    void fire()
    {
        if (m_act)
            std::exchange(m_act, nullptr)();
    }
    void fireAt(ParameterAddress address)
    {
        if (address.element() >= m_element)
            fire();
    }

private:
    std::function<void()> m_act;
    quint16 m_element;
};

/// Listeners and firmware functions that delete, clear, write, move and switch inside every signal
/// of every operation. Nothing may crash, throw or emit for what is gone.
class tst_CoordinateInstanceSetReentrancy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operationsEmit_data();
    void operationsEmit();
    void hostileListeners_data();
    void hostileListeners();
    void hostileFunctions_data();
    void hostileFunctions();
    void replacedProviderOutlivesItsFunction();
    void valueOfAGoneElementDispatchesNothing();
    void setDeletedByItsOwnMessage_data();
    void setDeletedByItsOwnMessage();
    void setDeletedByAnAnchorTooMany_data();
    void setDeletedByAnAnchorTooMany();
    void endedByAMissingProperty_data();
    void endedByAMissingProperty();
    void endedByAPlaceholder_data();
    void endedByAPlaceholder();
    void endedByTheMissingActiveAxis();
};

namespace {

/// Q05 with every dependency and B07, which follows it in every way; each is the other's unit.
struct Scene {
    Scene()
    {
        DefinitionBuilder source = follower(u"<localAxis:B07>"_s);
        source.elementCount(3).kind(2).levels(2, 2).limits(u"0"_s, u"9"_s);
        for (quint32 property = 32; property < 40; ++property)
            source.property(eParameterProperty(property), 5U);
        set = stand.add(source, u"Q05"_s, {1, 2});
        other = stand.add(follower(u"<localAxis:Q05>"_s), u"B07"_s, {1, 2});
        newer = stand.define(DefinitionBuilder(source).version(2).elementCount(4), u"Q05"_s);
        smaller = stand.define(DefinitionBuilder(source).version(3).elementCount(1), u"Q05"_s);
        bind();
        // Known flags, texts and limits can change.
        for (CoordinateInstanceSet *each : {set.data(), other.data()}) {
            for (const eLivingSpace livingSpace : {Axis1, Axis2}) {
                for (const quint16 element : each->elementList())
                    each->displayValueText(livingSpace, element, true);
                each->isVisible(livingSpace, 0);
            }
        }
        stand.container->setParameterChangeTag(u"ts_1"_s);
        set->setOnlineValueText(Axis1, 1, u"4"_s);
        set->setDefaultNativeValueText(Axis1, 1, u"4"_s);
        stand.container->setParameterChangeTag(QString());
        stand.setUserLevel(2);
    }
    ~Scene() { stand.messages.take(); }
    Q_DISABLE_COPY_MOVE(Scene)

    static DefinitionBuilder follower(const QString &unit)
    {
        DefinitionBuilder builder = DefinitionBuilder().units(unit);
        for (const quint32 property : {0U, 1U, 2U, 3U, 4U, 7U, 21U})
            builder.property(eParameterProperty(property), 5U);
        return builder;
    }
    /// Hidden flags and limits follow Q05, functions write B07.
    void bind()
    {
        const auto firmware = std::make_shared<ProgrammedFunctions>();
        firmware->isHidden = [this](const ParameterData &, quint16) {
            return isAllHidden || sourceValue() % 2 == 1;
        };
        firmware->upperLimit = [this](const ParameterData &, quint16) {
            return QString::number(sourceValue());
        };
        firmware->runFunction = [this](eFunctionKind, const ParameterData &, quint16) {
            if (other)
                other->setNativeValue(Axis1, 0, QString::number(++written));
        };
        stand.functions = firmware;
        ContainerInternals::bind(
            *stand.container, std::make_unique<ProgrammedFunctionProvider>(firmware));
    }
    int sourceValue() const { return set ? set->record(Axis1)->value(0).toInt() : 0; }
    QMap<QString, QByteArray> savedBlocks() const
    {
        return {{u"Parameter.ini"_s,
            "[B007]\r\nV_1_0=31\r\nDV_1_0=32\r\n[Q005]\r\nCE=2\r\nV_1_0=33\r\nDV_1_0=34\r\n"
            "V_1_1=35\r\nDV_1_1=36\r\nV_2_0=37\r\n[Q006]\r\nV_1_0=38\r\n"}};
    }

    InstanceStand stand;
    QPointer<CoordinateInstanceSet> set;
    QPointer<CoordinateInstanceSet> other;
    ParameterDefinition *newer = nullptr;
    ParameterDefinition *smaller = nullptr;
    int written = 100;
    bool isAllHidden = false;
};

struct Operation {
    const char *name;
    std::function<void(Scene &)> run;
};

const QList<Operation> &writes()
{
    static const QList<Operation> list {
        {"setValueText", [](Scene &s) { s.set->setValueText(Axis1, 0, u"7"_s); }},
        {"setNativeValue", [](Scene &s) { s.set->setNativeValue(Axis1, 0, u"7"_s); }},
        {"setOnlineValueText", [](Scene &s) { s.set->setOnlineValueText(Axis1, 0, u"7"_s); }},
        {"setNativeText", [](Scene &s) { s.set->setNativeText(Axis1, 0, u"7"_s); }},
        {"setOnlineValueText of the last element",
            [](Scene &s) { s.set->setOnlineValueText(Axis2, 2, u"7"_s); }},
        {"setDefaultValueText", [](Scene &s) { s.set->setDefaultValueText(Axis1, 2, u"7"_s); }},
        {"setDefaultNativeValue", [](Scene &s) { s.set->setDefaultNativeValue(Axis1, 2, u"7"_s); }},
        {"setDefaultNativeValueText",
            [](Scene &s) { s.set->setDefaultNativeValueText(Axis1, 2, u"7"_s); }},
    };
    return list;
}

/// Reads pass the firmware too.
const QList<Operation> &reads()
{
    static const QList<Operation> list {
        {"displayValueText", [](Scene &s) { s.set->displayValueText(Axis1, 0, true); }},
        {"nativeValueText", [](Scene &s) { s.set->nativeValueText(Axis1, 0, true); }},
        {"valueText", [](Scene &s) { s.set->valueText(Axis1, 0, true); }},
        {"preparedValueText", [](Scene &s) { s.set->preparedValueText(Axis1, 0, true); }},
        {"unconvertedNativeValueText",
            [](Scene &s) { s.set->unconvertedNativeValueText(Axis1, 0, true); }},
        {"unconvertedValueText", [](Scene &s) { s.set->unconvertedValueText(Axis1, 0, true); }},
        {"formattedValueText", [](Scene &s) { s.set->formattedValueText(Axis1, 0, 3); }},
        {"formattedNativeValueText",
            [](Scene &s) { s.set->formattedNativeValueText(Axis1, 0, 3, true); }},
        {"prepareValueText",
            [](Scene &s) { s.set->prepareValueText(u"7"_s, Axis1, 0, true, nullptr); }},
        {"adoptValueText", [](Scene &s) { s.set->adoptValueText(u"7"_s, Axis1, 0, nullptr); }},
        {"isValueTextAcceptable", [](Scene &s) { s.set->isValueTextAcceptable(Axis1, 0, u"7"_s); }},
        {"defaultNativeValueText", [](Scene &s) { s.set->defaultNativeValueText(Axis2, 0); }},
        {"defaultValueText", [](Scene &s) { s.set->defaultValueText(Axis2, 0); }},
        {"lowerLimitText", [](Scene &s) { s.set->lowerLimitText(Axis1, 0); }},
        {"upperLimitText", [](Scene &s) { s.set->upperLimitText(Axis1, 0); }},
        {"isHidden", [](Scene &s) { s.set->isHidden(Axis1, 1); }},
        {"isVisible", [](Scene &s) { s.set->isVisible(Axis1, 1); }},
        {"isWritable", [](Scene &s) { s.set->isWritable(Axis1, 0); }},
        {"attribute", [](Scene &s) { s.set->attribute(Axis1, 0, u"ScalingInformationNative"_s); }},
        {"scaledMeasuringUnit", [](Scene &s) { s.set->scaledMeasuringUnit(0); }},
        {"selectionTexts", [](Scene &s) { s.set->selectionTexts(Axis1, 0); }},
    };
    return list;
}

const QList<Operation> &operations()
{
    static const QList<Operation> list = writes()
        + QList<Operation> {
            {"setElementCount", [](Scene &s) { s.set->setElementCount(4); }},
            {"setCoordinate",
                [](Scene &s) { s.set->setCoordinate(ParameterCoordinate(u"Q06"_s)); }},
            {"setProperty of the read level",
                [](Scene &s) {
                    s.set->setProperty(0, ReadLevel, ParameterProperty(QVariant(3U)));
                }},
            {"setProperty of the write level",
                [](Scene &s) {
                    s.stand.container->setOnline(true);
                    if (s.set)
                        s.set->setProperty(0, WriteLevel, ParameterProperty(QVariant(3U)));
                }},
            {"setProperty of a limit",
                [](Scene &s) {
                    s.set->setProperty(0, LowerLimitValue, ParameterProperty(QVariant(u"-1"_s)));
                }},
            {"setProperty of a unit",
                [](Scene &s) {
                    s.set->setProperty(0, ScaledMeasuringUnit, ParameterProperty(QVariant(u"A"_s)));
                }},
            {"setProperty of the element count",
                [](Scene &s) {
                    s.set->setProperty(0, ElementCount, ParameterProperty(QVariant(2U)));
                }},
            {"loadFrom",
                [](Scene &s) {
                    QMap<QString, QByteArray> blocks = s.savedBlocks();
                    s.stand.container->loadFrom(blocks);
                }},
            {"clear of a store", [](Scene &s) { s.stand.container->clear(u"ts_1"_s); }},
            {"setOnline", [](Scene &s) { s.stand.container->setOnline(true); }},
            {"setReadOnly",
                [](Scene &s) {
                    s.stand.container->setOnline(true);
                    if (s.stand.container)
                        s.stand.container->setReadOnly(true);
                }},
            {"access level up", [](Scene &s) { s.stand.setUserLevel(6); }},
            {"access level down", [](Scene &s) { s.stand.setUserLevel(0); }},
            {"another definition",
                [](Scene &s) {
                    s.stand.container->createOrUpdateParameter(s.newer, u"D.1;Q05"_s);
                }},
            {"another provider",
                [](Scene &s) {
                    s.isAllHidden = true;
                    s.bind();
                }},
            {"startAllElementsConsistenceOnce",
                [](Scene &s) {
                    s.stand.container->setOnline(true);
                    if (!s.set)
                        return;
                    QObject::connect(s.stand.container.get(),
                        &ParameterProvider::parameterNeedsOnlineConsistenceOnce, s.set.data(),
                        [&s](const ParameterAddress &address) {
                            if (s.set)
                                s.set->setOnlineValueText(Axis1, address.element(), u"9"_s);
                        });
                    s.set->startAllElementsConsistenceOnce(Axis1);
                }},
            {"cancelAllElementsConsistenceOnce",
                [](Scene &s) { s.set->cancelAllElementsConsistenceOnce(Axis1); }},
            {"setParameterNeedsConsistence",
                [](Scene &s) { s.set->setParameterNeedsConsistence(Axis1, 0, true); }},
            {"deleteParameter", [](Scene &s) { s.stand.container->deleteParameter(u"D.1;Q05"_s); }},
            {"clear", [](Scene &s) { s.stand.container->clear(); }},
            {"createOrUpdateParameter",
                [](Scene &s) {
                    s.stand.container->createOrUpdateParameter(
                        s.stand.define(DefinitionBuilder(), u"C01"_s), u"D.1;C01"_s);
                }},
            {"correctUntagged",
                [](Scene &s) { s.set->record(Axis1)->correctUntagged(0, u"t"_s, u"7"_s); }},
        };
    return list;
}

struct Act {
    const char *name;
    std::function<void(Scene &)> run;
    /// After it nothing may come from Q05 any more.
    bool removesTheSet = false;
    /// After it nothing may come from elements that Q05 lacks.
    bool removesElements = false;
};

const QList<Act> &acts()
{
    static const QList<Act> list {
        {"delete the parameter", [](Scene &s) { s.stand.container->deleteParameter(u"D.1;Q05"_s); },
            true},
        {"delete the follower", [](Scene &s) { s.stand.container->deleteParameter(u"D.1;B07"_s); }},
        {"clear the container", [](Scene &s) { s.stand.container->clear(); }, true},
        {"destroy the container", [](Scene &s) { s.stand.container.reset(); }, true},
        {"write again",
            [](Scene &s) {
                if (s.set)
                    s.set->setNativeValue(Axis1, 0, u"13"_s);
            }},
        {"write the follower",
            [](Scene &s) {
                if (s.other)
                    s.other->setOnlineValueText(Axis2, 0, u"13"_s);
            }},
        {"set no firmware", [](Scene &s) { s.stand.container->setFirmware(nullptr); }},
        {"bind another provider", [](Scene &s) { s.bind(); }},
        {"shorten the element count",
            [](Scene &s) {
                if (s.set)
                    s.set->setElementCount(1);
            },
            false, true},
        {"move the coordinate",
            [](Scene &s) {
                if (s.set)
                    s.set->setCoordinate(ParameterCoordinate(u"Q99"_s));
            }},
        {"take another definition",
            [](Scene &s) { s.stand.container->createOrUpdateParameter(s.newer, u"D.1;Q05"_s); }},
        {"take a definition of one element",
            [](Scene &s) { s.stand.container->createOrUpdateParameter(s.smaller, u"D.1;Q05"_s); },
            false, true},
        {"override a property",
            [](Scene &s) {
                if (s.set)
                    s.set->setProperty(0, ReadLevel, ParameterProperty(QVariant(4U)));
            }},
        {"go online",
            [](Scene &s) { s.stand.container->setOnline(!s.stand.container->isOnline()); }},
        {"become read-only", [](Scene &s) { s.stand.container->setReadOnly(true); }},
        {"change the access level", [](Scene &s) { s.stand.setUserLevel(4); }},
        {"load",
            [](Scene &s) {
                QMap<QString, QByteArray> blocks = s.savedBlocks();
                s.stand.container->loadFrom(blocks);
            }},
        {"clear a store", [](Scene &s) { s.stand.container->clear(u"ts_1"_s); }},
        {"delete and create again",
            [](Scene &s) {
                s.stand.container->deleteParameter(u"D.1;Q05"_s);
                s.stand.container->createOrUpdateParameter(s.newer, u"D.1;Q05"_s);
            }},
    };
    return list;
}

QList<QMetaMethod> signalsOf(const QObject *object)
{
    QList<QMetaMethod> list;
    const QMetaObject *meta = object->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            list.append(meta->method(i));
    }
    return list;
}

/// Whether an entry is about the address of an element that the set lacks.
bool namesAbsentElement(const QString &entry, const CoordinateInstanceSet *set)
{
    const qsizetype start = entry.indexOf(u'[');
    const QString element = start < 0 ? QString() : entry.sliced(start + 1, 5);
    return set && !element.isEmpty() && !set->elementSet().contains(element.toUShort());
}

/// What came after the act although it is about what the act removed; empty: nothing.
QString goneButTold(const SignalLog &log, const Act &act, const Scene &scene)
{
    if (!act.removesTheSet && !act.removesElements)
        return {};
    const QStringList after = log.entries().mid(log.entries().indexOf(u"acted"_s) + 1);
    for (const QString &entry : after) {
        const bool isOfTheSet = entry.startsWith(u"set."_s) || entry.contains(u"Q005"_s);
        if (act.removesTheSet ? isOfTheSet || !scene.stand.container
                              : isOfTheSet && namesAbsentElement(entry, scene.set))
            return u"emitted for what is gone: "_s + entry;
    }
    return {};
}

/// Runs the operation with the act in the signal, from the element on where the signal tells one.
/// Empty when all went well.
QString run(const Operation &operation, const Act &act, int source, const QMetaMethod &signal,
    quint16 element)
{
    Scene scene;
    QObject *const sources[] {scene.set, scene.other, scene.stand.container.get()};
    SignalLog log;
    Trap trap(
        [&] {
            log.note(u"act"_s);
            act.run(scene);
            log.note(u"acted"_s);
        },
        element);
    log.attach(scene.set, u"set"_s);
    log.attach(scene.other, u"other"_s);
    log.attach(scene.stand.container.get(), u"container"_s);
    // After the log: what fired the trap is noted before the act.
    trap.listenTo(sources[source], signal);
    try {
        operation.run(scene);
    } catch (const std::exception &exception) {
        return QString::fromLatin1(exception.what());
    }
    return trap.hasFired() ? goneButTold(log, act, scene) : QString();
}

constexpr int FunctionCount = 8;

/// Runs the operation with the act in a function of the firmware. Empty when all went well.
QString runInFunction(const Operation &operation, const Act &act, int function, int calls)
{
    Scene scene;
    const std::shared_ptr<ProgrammedFunctions> functions = scene.stand.functions;
    SignalLog log;
    log.attach(scene.set, u"set"_s);
    log.attach(scene.stand.container.get(), u"container"_s);
    int remaining = calls;
    const auto fire = [&] {
        if (remaining-- != 0 || !scene.stand.container)
            return;
        act.run(scene);
        log.note(u"acted"_s);
    };
    const auto text = [&](const QString &given, const ParameterData &, quint16) {
        fire();
        return given;
    };
    const auto limit = [&](const ParameterData &, quint16) {
        fire();
        return u"8"_s;
    };
    const auto refuse = [](const QString &, const ParameterData &, quint16) { return 2U; };
    switch (function) {
    case 0:
        functions->checkValue = [&](const QString &, const ParameterData &, quint16) {
            fire();
            return 2U;
        };
        break;
    case 1:
        functions->checkValue = refuse;
        functions->correctValue = text;
        break;
    case 2:
        functions->valueText = text;
        break;
    case 3:
        functions->nativeText = text;
        break;
    case 4:
        functions->lowerLimit = limit;
        break;
    case 5:
        functions->upperLimit = limit;
        break;
    case 6:
        functions->isHidden = [&](const ParameterData &, quint16) {
            fire();
            return true;
        };
        break;
    default:
        functions->runFunction = [&](eFunctionKind, const ParameterData &, quint16) { fire(); };
    }
    try {
        operation.run(scene);
    } catch (const std::exception &exception) {
        return u"function %1, call %2: "_s.arg(function).arg(calls)
            + QString::fromLatin1(exception.what());
    }
    const QString told = remaining < 0 ? goneButTold(log, act, scene) : QString();
    return told.isEmpty() ? told : u"function %1, call %2: "_s.arg(function).arg(calls) + told;
}

} // namespace

void tst_CoordinateInstanceSetReentrancy::operationsEmit_data()
{
    QTest::addColumn<int>("operation");
    for (int i = 0; i < operations().size(); ++i)
        QTest::newRow(operations().at(i).name) << i;
}

// No row of the tables below is empty: each operation emits when nobody is hostile.
void tst_CoordinateInstanceSetReentrancy::operationsEmit()
{
    QFETCH(int, operation);
    Scene scene;
    scene.stand.log.attach(scene.set, u"set"_s);
    scene.stand.log.attach(scene.other, u"other"_s);
    scene.stand.log.attach(scene.stand.container.get(), u"container"_s);
    operations().at(operation).run(scene);
    QVERIFY(!scene.stand.log.entries().isEmpty());
}

void tst_CoordinateInstanceSetReentrancy::hostileListeners_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("act");
    for (int operation = 0; operation < operations().size(); ++operation) {
        for (int act = 0; act < acts().size(); ++act) {
            QTest::addRow("%s: %s", operations().at(operation).name, acts().at(act).name)
                << operation << act;
        }
    }
}

void tst_CoordinateInstanceSetReentrancy::hostileListeners()
{
    QFETCH(int, operation);
    QFETCH(int, act);

    QList<QList<QMetaMethod>> signalLists;
    {
        const Scene scene;
        signalLists = {
            signalsOf(scene.set), signalsOf(scene.other), signalsOf(scene.stand.container.get())};
    }
    for (int source = 0; source < signalLists.size(); ++source) {
        for (const QMetaMethod &signal : signalLists.at(source)) {
            // What an act removes is the element that is being told, or one that comes after it.
            for (const quint16 element :
                acts().at(act).removesElements ? QList<quint16> {0, 1} : QList<quint16> {0}) {
                const QString problem =
                    run(operations().at(operation), acts().at(act), source, signal, element);
                QVERIFY2(problem.isEmpty(),
                    qPrintable(QString::fromLatin1(signal.name()) + u": "_s + problem));
            }
        }
    }
}

void tst_CoordinateInstanceSetReentrancy::hostileFunctions_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("act");
    const QList<Operation> all = reads() + operations();
    for (int operation = 0; operation < all.size(); ++operation) {
        for (int act = 0; act < acts().size(); ++act)
            QTest::addRow("%s: %s", all.at(operation).name, acts().at(act).name)
                << operation << act;
    }
}

void tst_CoordinateInstanceSetReentrancy::hostileFunctions()
{
    QFETCH(int, operation);
    QFETCH(int, act);
    const Operation chosen = (reads() + operations()).at(operation);
    // Each function, at its first calls: the state in between differs.
    for (int function = 0; function < FunctionCount; ++function) {
        for (int calls = 0; calls < 3; ++calls) {
            const QString problem = runInFunction(chosen, acts().at(act), function, calls);
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
        }
    }
}

void tst_CoordinateInstanceSetReentrancy::replacedProviderOutlivesItsFunction()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.programFirmware();
    const std::shared_ptr<ProgrammedFunctions> functions = stand.functions;
    int duringTheCall = -1;
    functions->nativeText = [&](const QString &text, const ParameterData &, quint16) {
        stand.container->setFirmware(nullptr);
        duringTheCall = functions->providerCount;
        return text;
    };
    set->setNativeValue(Axis1, 0, u"5"_s);
    QCOMPARE(duringTheCall, 1);
    QCOMPARE(functions->providerCount, 0);
    QVERIFY(!functions->callbacks);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"5"_s);
}

void tst_CoordinateInstanceSetReentrancy::valueOfAGoneElementDispatchesNothing()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder()
                              .elementCount(3)
                              .without(LimitDependency)
                              .property(PostwriteDependency, 5U),
        u"A12"_s);
    stand.add(DefinitionBuilder().property(PostwriteFunctionIndex, 5U), u"B07"_s);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    connect(set, &ParameterInformation::valueChanged, this, [set] { set->setElementCount(1); });
    // No warning, no function.
    set->setOnlineValueText(Axis1, 2, u"9"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList());
}

void tst_CoordinateInstanceSetReentrancy::setDeletedByItsOwnMessage_data()
{
    QTest::addColumn<bool>("isContainer");
    QTest::newRow("the parameter") << false;
    QTest::newRow("the container") << true;
}

void tst_CoordinateInstanceSetReentrancy::setDeletedByItsOwnMessage()
{
    QFETCH(bool, isContainer);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().without(LimitDependency), u"A12"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] {
        if (isContainer)
            stand.container.reset();
        else
            stand.container->clear();
    });
    stand.expectWarning(u"missing property \"limit dependency\" at parameter A12\""_s);
    set->setOnlineValueText(Axis1, 0, u"9"_s);
    QVERIFY(stand.messages.verify());
}

void tst_CoordinateInstanceSetReentrancy::setDeletedByAnAnchorTooMany_data()
{
    QTest::addColumn<bool>("isContainer");
    QTest::newRow("the parameter") << false;
    QTest::newRow("the container") << true;
}

void tst_CoordinateInstanceSetReentrancy::setDeletedByAnAnchorTooMany()
{
    QFETCH(bool, isContainer);
    InstanceStand stand;
    // Axis 1 is taken; neither the third anchor nor the missing system anchor is looked at any more.
    const QPointer<CoordinateInstanceSet> set = stand.add(
        DefinitionBuilder().anchors({u"D.2;{P1}"_s, u"D.1;{P1}"_s, u"D.3;{P1}"_s}), u"A12"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] {
        if (isContainer)
            stand.container.reset();
        else
            stand.container->clear();
    });
    stand.messages.expect(SystemMessage::eSeverity::Critical, u"CoordinateInstanceSet"_s,
        u"Unable to attach new Instance due to already existing instance"_s);
    set->createInstancesFromAnchors();
    QVERIFY(!set);
    QVERIFY(stand.messages.verify());
}

void tst_CoordinateInstanceSetReentrancy::endedByAMissingProperty_data()
{
    QTest::addColumn<quint32>("missing");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("isContainer");
    for (const eParameterProperty missing : {ParameterKind, Datatype, DecimalPlacesBehind,
             DecimalPlacesSignificant, ScaledMeasuringUnit}) {
        for (const QString &operation :
            {u"displayValueText"_s, u"preparedValueText"_s, u"prepareValueText"_s,
                u"adoptValueText"_s, u"setValueText"_s, u"setDefaultValueText"_s,
                u"formattedValueText"_s, u"isValueTextAcceptable"_s, u"defaultValueText"_s}) {
            for (const bool isContainer : {false, true}) {
                const QString name =
                    u"%1, %2, %3"_s.arg(quint32(missing))
                        .arg(operation, isContainer ? u"container"_s : u"parameter"_s);
                QTest::newRow(qPrintable(name)) << quint32(missing) << operation << isContainer;
            }
        }
    }
}

void tst_CoordinateInstanceSetReentrancy::endedByAMissingProperty()
{
    QFETCH(quint32, missing);
    QFETCH(QString, operation);
    QFETCH(bool, isContainer);
    InstanceStand stand;
    const QPointer<CoordinateInstanceSet> set =
        stand.add(DefinitionBuilder().without(eParameterProperty(missing)), u"A12"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] {
        if (isContainer)
            stand.container.reset();
        else if (stand.container)
            stand.container->clear();
    });
    if (operation == u"displayValueText"_s)
        set->displayValueText(Axis1, 0, true);
    else if (operation == u"preparedValueText"_s)
        set->preparedValueText(Axis1, 0, true);
    else if (operation == u"prepareValueText"_s)
        set->prepareValueText(u"5"_s, Axis1, 0, true, nullptr);
    else if (operation == u"adoptValueText"_s)
        set->adoptValueText(u"5"_s, Axis1, 0, nullptr);
    else if (operation == u"setValueText"_s)
        set->setValueText(Axis1, 0, u"5"_s);
    else if (operation == u"setDefaultValueText"_s)
        set->setDefaultValueText(Axis1, 0, u"5"_s);
    else if (operation == u"formattedValueText"_s)
        set->formattedValueText(Axis1, 0, 0);
    else if (operation == u"isValueTextAcceptable"_s)
        set->isValueTextAcceptable(Axis1, 0, u"5"_s);
    else
        set->defaultValueText(Axis1, 0);
    // Nothing is asked of a parameter that is gone, so nothing more is reported.
    QCOMPARE(stand.messages.take().size(), set ? 0 : 1);
}

void tst_CoordinateInstanceSetReentrancy::endedByAPlaceholder_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("selection texts") << u"selectionTexts"_s;
    QTest::newRow("typed text") << u"setValueText"_s;
    QTest::newRow("shown text") << u"displayValueText"_s;
}

void tst_CoordinateInstanceSetReentrancy::endedByAPlaceholder()
{
    QFETCH(QString, operation);
    InstanceStand stand;
    const QPointer<CoordinateInstanceSet> set = stand.add(
        DefinitionBuilder().kind(1).choices({{0, u"<localAxis:E13>"_s}, {1, u"<localAxis:E14>"_s}}),
        u"A12"_s);
    stand.add(DefinitionBuilder(), u"E13"_s);
    stand.add(DefinitionBuilder(), u"E14"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->valueText = [&](const QString &text, const ParameterData &data, quint16) {
        if (data.kind(0) != 1)
            stand.container->clear();
        return text;
    };
    if (operation == u"selectionTexts"_s)
        set->selectionTexts(Axis1, 0);
    else if (operation == u"setValueText"_s)
        set->setValueText(Axis1, 0, u"foo"_s);
    else
        set->displayValueText(Axis1, 0, true);
    QVERIFY(!set);
}

void tst_CoordinateInstanceSetReentrancy::endedByTheMissingActiveAxis()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().units(u"<activeAxis:E13>"_s), u"A12"_s);
    stand.add(DefinitionBuilder(), u"E13"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] { stand.container.reset(); });
    stand.messages.expect(SystemMessage::eSeverity::Warning, u"ParameterContainer"_s,
        u"missing parameter \"E84 active axis\""_s);
    set->valueText(Axis1, 0, true);
    QVERIFY(!stand.container);
    QVERIFY(stand.messages.verify());
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetReentrancy)

#include "tst_CoordinateInstanceSetReentrancy.moc"
