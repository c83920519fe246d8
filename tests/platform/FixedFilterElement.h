#pragma once

#include <KrFilter/FilterElement.h>

/// An element that answers the property "Asked" with a fixed text or number, any other with
/// nothing.
class FixedFilterElement final : public FilterElement {
public:
    explicit FixedFilterElement(const QString &text)
        : m_text(text)
    {
    }
    explicit FixedFilterElement(double number)
        : m_number(number)
    {
    }

    QString stringProperty(QString propertyName) const override
    {
        return isAsked(propertyName) ? m_text : QString();
    }
    quint32 uint32Property(QString) const override { return 0; }
    qint32 int32Property(QString) const override { return 0; }
    double doubleProperty(QString propertyName) const override
    {
        return isAsked(propertyName) ? m_number : 0.0;
    }

private:
    static bool isAsked(const QString &propertyName)
    {
        return propertyName == QStringLiteral("Asked");
    }

    QString m_text;
    double m_number = 0.0;
};
