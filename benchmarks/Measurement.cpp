#include "Measurement.h"

#include "RatioReporter.h"

#include <ctime>
#include <malloc.h>
#include <vector>

namespace {

constexpr int Rounds = 9;
/// Of one repetition.
constexpr double MinimumSeconds = 0.02;

double now()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

} // namespace

void add(const std::string &operationAndSide, int size,
    const std::function<void(benchmark::State &)> &function)
{
    benchmark::RegisterBenchmark((operationAndSide + '/' + std::to_string(size)).c_str(), function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->MinTime(MinimumSeconds);
}

void measure(benchmark::State &state, long long values, const std::function<void()> &prepare,
    const std::function<void()> &timed)
{
    for ([[maybe_unused]] const auto &round : state) {
        prepare();
        const double start = now();
        timed();
        state.SetIterationTime(now() - start);
    }
    state.SetItemsProcessed(state.iterations() * values);
}

void check(benchmark::State &state, bool isRight)
{
    if (!isRight)
        state.SkipWithError("wrong result");
}

std::size_t allocated()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

int runPairs(int argc, char **argv, int referenceSize, const std::map<std::string, double> &bounds)
{
    std::vector<char *> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=" + std::to_string(Rounds);
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=false";
    arguments.insert(
        arguments.begin() + 1, {repetitions.data(), interleaving.data(), aggregates.data()});
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    RatioReporter reporter;
    for (const auto &[operation, ratio] : bounds)
        reporter.setBound(operation, ratio);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios(referenceSize);
    return reporter.hasFailed() ? 1 : 0;
}
