#pragma once

#include <KrFilter/FilterConstraint.h>

#include <QtCore/QRegularExpression>

/// Compares a property as text, case-sensitively. A method number out of the list matches nothing.
class KrFilter_EXPORT TextFilterConstraint : public FilterConstraint {
public:
    /// The numbers stand in filter files.
    enum eMethod : quint32 {
        Contains = 0,
        BeginsWith = 1,
        RegularExpression = 2, ///< A partial match suffices; an invalid pattern matches nothing.
        Equals = 3,
    };

    TextFilterConstraint(
        const QString &propertyName, eMethod method, const QString &text, bool inverted = false);
    ~TextFilterConstraint() override;

protected:
    bool matches(const FilterElement &element) const override;

private:
    eMethod m_method;
    QString m_text;
    QRegularExpression m_expression;
};
