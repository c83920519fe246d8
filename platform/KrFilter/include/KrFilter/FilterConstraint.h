#pragma once

#include <KrFilter/Filter.h>

#include <QtCore/QString>

/// A filter that compares one named property; the answer may be inverted.
class KrFilter_EXPORT FilterConstraint : public Filter {
public:
    FilterConstraint(const QString &propertyName, bool inverted);
    ~FilterConstraint() override;

    QString propertyName() const { return m_propertyName; }
    bool isInverted() const { return m_inverted; }
    bool testElement(const FilterElement &element) const final;

protected:
    /// The comparison itself, before inversion.
    virtual bool matches(const FilterElement &element) const = 0;

private:
    QString m_propertyName;
    bool m_inverted;
};
