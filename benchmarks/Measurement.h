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

/// Runs what was entered nine times, the rounds of all benchmarks mixed, and prints the ratios.
/// `bounds` holds the greatest ratio at the reference size by operation. Answers for main(): 1 where
/// an operation had a wrong result.
int runPairs(int argc, char **argv, int referenceSize, const std::map<std::string, double> &bounds);
