#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints, beside the usual lines, what each operation costs in relation to its limit program of the
/// same run: medians over the repetitions, nanoseconds a value, and growth exponents.
///
/// **Shape** of benchmark names: "operation/limit/size" and "operation/library/size".
class RatioReporter : public benchmark::ConsoleReporter {
public:
    /// The greatest ratio that an operation is meant to have at the reference size.
    void setBound(const std::string &operation, double ratio) { m_bounds[operation] = ratio; }
    /// Prints the table of what was reported so far. Without reference size bounds hold at every
    /// size; operations that are not measured at it have their bounds at their own sizes.
    void printRatios(long long referenceSize = 0) const;

    /// Whether an operation had a wrong result; its figures are missing in the table.
    bool hasFailed() const { return m_hasFailed; }

    void ReportRuns(const std::vector<Run> &runs) override;

private:
    struct Series {
        /// Size to nanoseconds a value, one entry a repetition.
        std::map<long long, std::vector<double>> limit;
        std::map<long long, std::vector<double>> measured;
    };

    std::map<std::string, Series> m_series;
    std::map<std::string, double> m_bounds;
    bool m_hasFailed = false;
};
