#include <KrFilter/FilterCombination.h>

#include <algorithm>
#include <utility>

FilterCombination::FilterCombination(eMethod method)
    : m_method(method)
{
}

FilterCombination::~FilterCombination() = default;

void FilterCombination::append(std::unique_ptr<Filter> filter)
{
    if (filter)
        m_filters.push_back(std::move(filter));
}

bool FilterCombination::testElement(const FilterElement &element) const
{
    const auto accepts = [&element](const std::unique_ptr<Filter> &filter) {
        return filter->testElement(element);
    };
    return m_method == eMethod::AllOf ? std::all_of(m_filters.cbegin(), m_filters.cend(), accepts)
                                      : std::any_of(m_filters.cbegin(), m_filters.cend(), accepts);
}
