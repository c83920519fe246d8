#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process where a rule is broken: what the fuzzer and the replaying test both take for a
/// finding.
inline void requireRule(bool holds, const char *rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken rule: %s\n", rule);
    std::abort();
}
