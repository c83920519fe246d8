#include <KrFilter/NumberFilterConstraint.h>

#include <KrFilter/FilterElement.h>

NumberFilterConstraint::NumberFilterConstraint(
    const QString &propertyName, eMethod method, double number, bool inverted)
    : FilterConstraint(propertyName, inverted)
    , m_method(method)
    , m_number(number)
{
}

NumberFilterConstraint::~NumberFilterConstraint() = default;

bool NumberFilterConstraint::matches(const FilterElement &element) const
{
    const double number = element.doubleProperty(propertyName());
    switch (m_method) {
    case LessOrEqual:
        return number <= m_number;
    case GreaterOrEqual:
        return number >= m_number;
    case Equal:
        return number == m_number;
    }
    return false;
}
