#include "tests/instance/InstanceStand.h"

#include <KrFirmware/CallbackProvider.h>
#include <KrParameterInstance/ParameterData.h>

#include <QtCore/QThread>

#include <random>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Random dependency graphs with circles and self-loops: every write ends, and the next one works.
class tst_DependencyGraphs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyGraphEnds();
};

namespace {

constexpr int DefaultCount = 12;
constexpr uint StackSize = 1024 * 1024;
constexpr int ParameterLimit = 200;
/// Dispatches that one outermost write may lead to.
constexpr int DispatchLimit = 100000;

struct Outcome {
    int writes = 0;
    int functionCalls = 0;
    QStringList problems;
};

ParameterCoordinate coordinateOf(int parameter)
{
    return ParameterCoordinate(1, quint16(parameter));
}

/// Writes to random parameters of a random graph in which every function writes two more values.
Outcome runGraph(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&random](int last) {
        return std::uniform_int_distribution<int>(0, last)(random);
    };
    InstanceStand stand;
    const int count = 1 + upTo(ParameterLimit - 1);
    const int functions = 1 + upTo(count - 1);
    constexpr std::array Dependencies {LimitDependency, ScalingDependency, PostwriteDependency,
        PrereadDependency, PostreadDependency, PrewriteDependency, HidingDependency};
    constexpr std::array Indices {LimitFunctionIndex, ScalingFunctionIndex, PostwriteFunctionIndex,
        PrereadFunctionIndex, PostreadFunctionIndex, PrewriteFunctionIndex, HidingFunctionIndex};
    for (int i = 0; i < count; ++i) {
        DefinitionBuilder builder;
        for (size_t kind = 0; kind < Dependencies.size(); ++kind) {
            if (upTo(3) == 0)
                builder.property(Dependencies.at(kind), 1 + upTo(functions - 1));
            if (upTo(3) == 0)
                builder.property(Indices.at(kind), quint32(1 + upTo(functions - 1)));
        }
        if (upTo(9) == 0) {
            builder.property(MeasuringUnitDependency, 1);
            builder.property(ScaledMeasuringUnit,
                u"<localAxis:%1>"_s.arg(coordinateOf(upTo(count - 1)).toText()));
        }
        stand.add(builder, coordinateOf(i).toText());
    }

    Outcome outcome;
    int number = 0;
    const auto write = [&](int parameter) {
        ++outcome.writes;
        stand.container->writeValueNative(
            Axis1, coordinateOf(parameter), 0, QString::number(++number));
    };
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->runFunction = [&](eFunctionKind, const ParameterData &, quint16) {
        ++outcome.functionCalls;
        firmware->calls.clear();
        write(upTo(count - 1));
        write(upTo(count - 1));
    };
    write(upTo(count - 1));
    // A dispatch reaches every parameter at most once.
    if (outcome.functionCalls > DispatchLimit * count)
        outcome.problems.append(u"too many functions"_s);
    const QList<SystemMessage> messages = stand.messages.take();
    if (messages.size() > 1)
        outcome.problems.append(messages.at(0).text + u" and "_s + messages.at(1).text);
    for (const SystemMessage &message : messages) {
        if (message.severity != SystemMessage::eSeverity::Critical
            || message.title != u"Antrieb"_s)
            outcome.problems.append(message.text);
    }
    firmware->runFunction = nullptr;
    write(0);
    if (stand.container->readValueNative(Axis1, coordinateOf(0), 0, false)
        != QString::number(number))
        outcome.problems.append(u"the last write is lost"_s);
    return outcome;
}

} // namespace

void tst_DependencyGraphs::everyGraphEnds()
{
    const int wanted = qEnvironmentVariableIntValue("KR_GRAPH_COUNT");
    const int count = wanted > 0 ? wanted : DefaultCount;
    qint64 writes = 0;
    for (int seed = 1; seed <= count; ++seed) {
        // Each on a small stack of its own; nothing else runs meanwhile.
        Outcome outcome;
        const std::unique_ptr<QThread> thread(
            QThread::create([&outcome, seed] { outcome = runGraph(unsigned(seed)); }));
        thread->setStackSize(StackSize);
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY2(outcome.problems.isEmpty(),
            qPrintable(u"graph %1: "_s.arg(seed) + outcome.problems.join(u", "_s)));
        writes += outcome.writes;
    }
    QVERIFY(writes > 10 * count);
}

QTEST_GUILESS_MAIN(tst_DependencyGraphs)

#include "tst_DependencyGraphs.moc"
