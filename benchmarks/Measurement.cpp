#include "Measurement.h"

#include "RatioReporter.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <malloc.h>
#include <vector>

namespace {

constexpr int Rounds = 9;
/// Of one side in one round.
constexpr double MinimumSeconds = 0.02;

/// A figure that was printed is over its bound.
bool isAnyOver = false;

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

double peakMebibytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:"))
            return std::atof(line.c_str() + std::strlen("VmHWM:")) / 1024;
    }
    return -1;
}

void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

void printBounded(const std::string &what, double figure, const char *unit, double bound)
{
    const bool isOver = figure > bound;
    isAnyOver = isAnyOver || isOver;
    std::printf("%s: %.3f %s, bound %g%s\n", what.c_str(), figure, unit, bound,
        isOver ? "  over" : (figure < 0 ? "  not measured" : ""));
}

int runPairs(
    int argc, char **argv, int referenceSize, const Bounds &bounds, const Bounds &growthBounds)
{
    std::vector<char *> arguments(argv, argv + argc);
    const bool isStrict = std::erase_if(arguments, [](const char *argument) {
        return std::strcmp(argument, "--strict") == 0;
    }) > 0;
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    RatioReporter reporter;
    for (const auto &[operation, ratio] : bounds)
        reporter.setBound(operation, ratio);
    for (const auto &[operation, exponent] : growthBounds)
        reporter.setGrowthBound(operation, exponent);
    for (int round = 0; round < Rounds; ++round)
        benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios(referenceSize);
    const bool isOver = isStrict && (isAnyOver || reporter.isOver());
    return reporter.hasFailed() || isOver ? 1 : 0;
}
