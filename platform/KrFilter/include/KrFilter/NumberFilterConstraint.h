#pragma once

#include <KrFilter/FilterConstraint.h>

/// Compares a property as a number. A method number out of the list matches nothing.
class KrFilter_EXPORT NumberFilterConstraint : public FilterConstraint {
public:
    /// The numbers stand in filter files.
    enum eMethod : quint32 {
        LessOrEqual = 0,
        GreaterOrEqual = 1,
        Equal = 2,
    };

    NumberFilterConstraint(
        const QString &propertyName, eMethod method, double number, bool inverted = false);
    ~NumberFilterConstraint() override;

protected:
    bool matches(const FilterElement &element) const override;

private:
    eMethod m_method;
    double m_number;
};
