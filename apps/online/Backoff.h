#pragma once

#include <chrono>

/// The pause after a number of failures: the first one, doubled for each further failure, never
/// longer than the longest.
constexpr std::chrono::milliseconds backoffPause(
    int failures, std::chrono::milliseconds first, std::chrono::milliseconds longest)
{
    std::chrono::milliseconds pause = first;
    for (int i = 1; i < failures && pause < longest; ++i)
        pause *= 2;
    return pause < longest ? pause : longest;
}
