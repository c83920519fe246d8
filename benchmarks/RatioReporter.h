#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints, beside the usual lines, what each operation costs in relation to its limit program: the median
/// of the rounds' ratios, each of which holds what was measured one after the other, medians of the
/// nanoseconds a value, and growth exponents.
///
/// A round is one run of all benchmarks.
///
/// **Shape** of benchmark names: "operation/limit/size" and "operation/library/size".
class RatioReporter : public benchmark::ConsoleReporter {
public:
    /// The greatest ratio that an operation is meant to have at the reference size.
    void setBound(const std::string &operation, double ratio) { m_bounds[operation] = ratio; }
    /// The greatest exponent with which the time for all values may grow with their number.
    void setGrowthBound(const std::string &operation, double exponent)
    {
        m_growthBounds[operation] = exponent;
    }
    /// Prints the table of what was reported so far. Without reference size bounds hold at every
    /// size; operations that are not measured at it have their bounds at their own sizes.
    void printRatios(long long referenceSize = 0);

    /// Whether an operation had a wrong result; its figures are missing in the table.
    bool hasFailed() const { return m_hasFailed; }
    /// Whether the table shows a bound that does not hold.
    bool isOver() const { return m_isOver; }

    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;

private:
    struct Series {
        /// Size to nanoseconds a value, one entry a round.
        std::map<long long, std::vector<double>> limit;
        std::map<long long, std::vector<double>> measured;
    };

    /// What stands behind a figure.
    const char *verdict(bool isOver);
    void printGrowth(const std::string &operation, const Series &series);

    std::map<std::string, Series> m_series;
    std::map<std::string, double> m_bounds;
    std::map<std::string, double> m_growthBounds;
    bool m_isBegun = false;
    bool m_hasFailed = false;
    bool m_isOver = false;
};
