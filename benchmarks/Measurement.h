#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>

/// Enters a benchmark of the name "operation/limit/size" or "operation/library/size".
void add(const std::string &operationAndSide, int size,
    const std::function<void(benchmark::State &)> &function);

/// Runs `timed` once an iteration after an untimed `prepare`, and counts `values` for each.
/// Processor time of this thread: the ratios hold on a busy machine too.
void measure(benchmark::State &state, long long values, const std::function<void()> &prepare,
    const std::function<void()> &timed);

/// A benchmark of a wrong result is none.
void check(benchmark::State &state, bool isRight);

/// Bytes that the program holds on the heap.
std::size_t allocated();

/// Most memory that the program has held at once since it was forgotten last.
/// **Unit** MiB. Below 0: the system does not tell.
double peakMebibytes();
void forgetPeak();

/// Prints a figure beside its bound; below 0 it was not measured.
void printBounded(const std::string &what, double figure, const char *unit, double bound);

/// By operation.
using Bounds = std::map<std::string, double>;

/// Runs what was entered in nine rounds and prints the ratios. `bounds` holds the greatest ratio at the
/// reference size, `growthBounds` the greatest exponent of the time for all values. Answers for main(): 1
/// where an operation had a wrong result; with the option --strict also where a bound does not hold,
/// which without it the machine's load is allowed to cause.
int runPairs(int argc, char **argv, int referenceSize, const Bounds &bounds,
    const Bounds &growthBounds = {});
