#include "tests/instance/InstanceStand.h"
#include "tests/support/ProcessorTimer.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/CallbackProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterData.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QThread>

#include <random>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Random dependency graphs with circles and self-loops: every write ends in time, and the next one works.
class tst_DependencyGraphs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyGraphEnds();
    void dispatchesOfOneWriteAreBound();
    void everyGraphOfADescriptionEnds();

private:
    static int graphCount()
    {
        const int wanted = qEnvironmentVariableIntValue("KR_GRAPH_COUNT");
        return wanted > 0 ? wanted : 12;
    }
    /// On a small stack of its own; nothing else runs meanwhile.
    template <typename Run>
    static auto onSmallStack(Run run)
    {
        decltype(run()) outcome;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            const ProcessorTimer timer;
            outcome = run();
            outcome.milliseconds = timer.elapsed();
        }));
        thread->setStackSize(1024 * 1024);
        thread->start();
        thread->wait();
        return outcome;
    }
};

namespace {

constexpr int ParameterLimit = 200;
/// Dispatches that one outermost write may lead to.
constexpr int MostDispatches = 100000;
/// Of one graph. Builds that look into themselves run slower.
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__)
constexpr double MostMilliseconds = 1000;
#else
constexpr double MostMilliseconds = 20000;
#endif

struct Outcome {
    double milliseconds = 0;
    int writes = 0;
    int functionCalls = 0;
    QStringList problems;
};

/// Empty where there is nothing wrong with the graph.
QString faultOf(int seed, const Outcome &outcome)
{
    QStringList faults = outcome.problems;
    if (outcome.milliseconds >= MostMilliseconds)
        faults.append(u"%1 ms"_s.arg(outcome.milliseconds));
    return faults.isEmpty() ? QString() : u"graph %1: "_s.arg(seed) + faults.join(u", "_s);
}

ParameterCoordinate coordinateOf(int parameter)
{
    return ParameterCoordinate(1, quint16(parameter));
}

/// A graph in which every dispatch reaches one parameter: its functions count the dispatches.
Outcome runCountedGraph(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&random](
                          int last) { return std::uniform_int_distribution<int>(0, last)(random); };
    InstanceStand stand;
    const int count = 1 + upTo(ParameterLimit - 1);
    for (int i = 0; i < count; ++i) {
        stand.add(DefinitionBuilder()
                      .property(PostwriteDependency, 1 + upTo(count - 1))
                      .property(PostwriteFunctionIndex, uint(i + 1)),
            coordinateOf(i).toText());
    }
    Outcome outcome;
    ProgrammedFunctions *firmware = stand.programFirmware();
    const auto write = [&] {
        ++outcome.writes;
        stand.container->writeValueNative(
            Axis1, coordinateOf(upTo(count - 1)), 0, QString::number(outcome.writes));
    };
    firmware->runFunction = [&](eFunctionKind, const ParameterData &, quint16) {
        ++outcome.functionCalls;
        firmware->calls.clear();
        for (int i = upTo(2); i >= 0; --i)
            write();
    };
    write();
    stand.messages.take();
    return outcome;
}

/// Writes to a graph whose functions are the description's own and write two more values.
Outcome runDescribedGraph(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&random](
                          int last) { return std::uniform_int_distribution<int>(0, last)(random); };
    const int count = 1 + upTo(ParameterLimit - 1);
    QJsonObject postWrite;
    QJsonObject limit;
    for (int i = 1; i <= count; ++i) {
        QString text;
        for (const int target : {upTo(count - 1), upTo(count - 1)}) {
            text += u"writeValueNative(1, '%1', 0, (parameter.value or 0) + 1)\n"_s.arg(
                coordinateOf(target).toText());
        }
        postWrite.insert(QString::number(i), text);
        limit.insert(QString::number(i),
            u"return 0, readValueNative(1, '%1')"_s.arg(coordinateOf(upTo(count - 1)).toText()));
    }
    const auto device = TestFirmware::load(TestFirmware::PlainAxesFamily,
        "\"functions\": "
            + QJsonDocument(QJsonObject {{u"postWrite"_s, postWrite}, {u"limit"_s, limit}})
                  .toJson(QJsonDocument::Compact));
    InstanceStand stand;
    stand.container->setFirmware(device.get());
    for (int i = 0; i < count; ++i) {
        stand.add(DefinitionBuilder()
                      .property(PostwriteDependency, 1 + upTo(count - 1))
                      .property(LimitDependency, upTo(count))
                      .property(PostwriteFunctionIndex, uint(1 + upTo(count - 1)))
                      .property(LimitFunctionIndex, uint(upTo(count))),
            coordinateOf(i).toText());
    }
    Outcome outcome;
    QObject::connect(stand.container.get(), &ParameterContainer::parameterNativeValueChanged,
        stand.container.get(), [&outcome] { ++outcome.writes; });
    for (const QString &text : {u"1000"_s, u"2000"_s})
        stand.container->writeValueNative(Axis1, coordinateOf(upTo(count - 1)), 0, text);
    // Told of a cut, of spent budgets, and of functions that are nested too deeply.
    for (const SystemMessage &message : stand.messages.take()) {
        if (message.severity != SystemMessage::eSeverity::Critical || message.title != u"Antrieb"_s)
            outcome.problems.append(message.text);
    }
    return outcome;
}

/// Writes to random parameters of a random graph in which every function writes two more values.
Outcome runGraph(unsigned seed)
{
    std::mt19937 random(seed);
    const auto upTo = [&random](
                          int last) { return std::uniform_int_distribution<int>(0, last)(random); };
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
    if (outcome.functionCalls > MostDispatches * count)
        outcome.problems.append(u"too many functions"_s);
    const QList<SystemMessage> messages = stand.messages.take();
    if (messages.size() > 1)
        outcome.problems.append(messages.at(0).text + u" and "_s + messages.at(1).text);
    for (const SystemMessage &message : messages) {
        if (message.severity != SystemMessage::eSeverity::Critical || message.title != u"Antrieb"_s)
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
    qint64 writes = 0;
    for (int seed = 1; seed <= graphCount(); ++seed) {
        const Outcome outcome = onSmallStack([seed] { return runGraph(unsigned(seed)); });
        const QString fault = faultOf(seed, outcome);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        writes += outcome.writes;
    }
    QVERIFY(writes > 10 * graphCount());
}

void tst_DependencyGraphs::dispatchesOfOneWriteAreBound()
{
    int most = 0;
    for (int seed = 1; seed <= graphCount(); ++seed) {
        const Outcome outcome = onSmallStack([seed] { return runCountedGraph(unsigned(seed)); });
        const QString fault = faultOf(seed, outcome);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        most = qMax(most, outcome.functionCalls);
    }
    // Most of the graphs would never end; none goes beyond the bound, and some reach it.
    QCOMPARE(most, MostDispatches);
}

void tst_DependencyGraphs::everyGraphOfADescriptionEnds()
{
    qint64 writes = 0;
    for (int seed = 1; seed <= graphCount(); ++seed) {
        const Outcome outcome = onSmallStack([seed] { return runDescribedGraph(unsigned(seed)); });
        const QString fault = faultOf(seed, outcome);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        writes += outcome.writes;
    }
    QVERIFY(writes > 10 * graphCount());
}

QTEST_GUILESS_MAIN(tst_DependencyGraphs)

#include "tst_DependencyGraphs.moc"
