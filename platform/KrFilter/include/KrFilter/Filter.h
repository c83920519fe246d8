#pragma once

#include <KrFilter/KrFilterExport.h>

class FilterElement;

/// A test of an element.
class KrFilter_EXPORT Filter {
public:
    virtual ~Filter();

    virtual bool testElement(const FilterElement &element) const = 0;
};
