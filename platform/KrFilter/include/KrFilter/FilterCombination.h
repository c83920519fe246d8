#pragma once

#include <KrFilter/Filter.h>

#include <memory>
#include <vector>

/// Several filters taken together.
class KrFilter_EXPORT FilterCombination : public Filter {
public:
    enum class eMethod { AllOf, AnyOf };

    explicit FilterCombination(eMethod method);
    ~FilterCombination() override;

    /// Null is ignored. **Owner** the combination.
    void append(std::unique_ptr<Filter> filter);
    /// All-of without parts accepts everything, any-of without parts nothing.
    bool testElement(const FilterElement &element) const override;

private:
    eMethod m_method;
    std::vector<std::unique_ptr<Filter>> m_filters;
};
