#include <KrFilter/FilterConstraint.h>

FilterConstraint::FilterConstraint(const QString &propertyName, bool inverted)
    : m_propertyName(propertyName)
    , m_inverted(inverted)
{
}

FilterConstraint::~FilterConstraint() = default;

bool FilterConstraint::testElement(const FilterElement &element) const
{
    return matches(element) != m_inverted;
}
