#include "RatioReporter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace {

/// By which the library's growth exponent may be above that of the limit program.
constexpr double GrowthMargin = 0.1;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Of what was measured in the same rounds; the machine's load is much the same in both.
double medianRatio(const std::vector<double> &measured, const std::vector<double> &limit)
{
    std::vector<double> ratios;
    for (size_t round = 0; round < std::min(measured.size(), limit.size()); ++round)
        ratios.push_back(measured[round] / limit[round]);
    return median(ratios);
}

/// Of the time a value between the smallest and the largest size.
double growthExponent(const std::map<long long, std::vector<double>> &times)
{
    if (times.size() < 2)
        return 0.0;
    const double grown = median(times.rbegin()->second) / median(times.begin()->second);
    return std::log(grown) / std::log(double(times.rbegin()->first) / double(times.begin()->first));
}

} // namespace

bool RatioReporter::ReportContext(const Context &context)
{
    // Of the first round alone.
    return std::exchange(m_isBegun, true) || ConsoleReporter::ReportContext(context);
}

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        m_hasFailed = m_hasFailed || run.error_occurred;
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;
        const std::string name = run.benchmark_name();
        const size_t first = name.find('/');
        const size_t second = name.find('/', first + 1);
        if (first == std::string::npos || second == std::string::npos)
            continue;
        const bool isLimit = name.compare(first + 1, second - first - 1, "limit") == 0;
        Series &series = m_series[name.substr(0, first)];
        const long long size = std::atoll(name.c_str() + second + 1);
        const double perValue = 1e9 / run.counters.at("items_per_second").value;
        (isLimit ? series.limit : series.measured)[size].push_back(perValue);
    }
}

void RatioReporter::printRatios(long long referenceSize)
{
    std::printf("\n%-28s %8s %12s %12s %8s %8s\n", "operation", "size", "limit ns", "library ns",
        "ratio", "bound");
    for (const auto &[operation, series] : m_series) {
        for (const auto &[size, times] : series.measured) {
            const auto limit = series.limit.find(size);
            if (limit == series.limit.end())
                continue;
            const double ratio = medianRatio(times, limit->second);
            std::printf("%-28s %8lld %12.1f %12.1f %8.2f", operation.c_str(), size,
                median(limit->second), median(times), ratio);
            const auto bound = m_bounds.find(operation);
            const bool isReference = referenceSize == 0 || size == referenceSize
                || !series.measured.contains(referenceSize);
            if (bound != m_bounds.end() && isReference)
                std::printf(" %8.2f%s", bound->second, verdict(ratio > bound->second));
            std::printf("\n");
        }
        if (series.measured.size() > 1)
            printGrowth(operation, series);
    }
}

const char *RatioReporter::verdict(bool isOver)
{
    m_isOver = m_isOver || isOver;
    return isOver ? "  over" : "";
}

void RatioReporter::printGrowth(const std::string &operation, const Series &series)
{
    const double limit = growthExponent(series.limit);
    const double measured = growthExponent(series.measured);
    std::printf("%-28s growth exponent: limit %+.3f, library %+.3f%s\n", operation.c_str(), limit,
        measured, verdict(measured > limit + GrowthMargin));
    const auto bound = m_growthBounds.find(operation);
    if (bound == m_growthBounds.end())
        return;
    // The time for all values is that of one times their number.
    std::printf("%-28s of all values: library %.3f, bound %.2f%s\n", operation.c_str(),
        measured + 1, bound->second, verdict(measured + 1 > bound->second));
}
