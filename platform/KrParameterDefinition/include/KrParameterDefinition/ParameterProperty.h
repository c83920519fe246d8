#pragma once

#include <KrParameterDefinition/KrParameterDefinitionExport.h>

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>

/// Value of one element property, read in the type that the reader needs. Invalid when absent.
/// Conversions never depend on the locale; what does not convert gives 0 or an empty value. A float
/// or double becomes the shortest text that reads back as the same number; a ParameterText becomes its
/// long text in the active language.
class KrParameterDefinition_EXPORT ParameterProperty {
public:
    ParameterProperty() noexcept = default;
    explicit ParameterProperty(QVariant value) noexcept
        : m_value(std::move(value))
    {
    }

    bool isValid() const noexcept { return m_value.isValid(); }
    QString asString() const;
    /// Out of range gives 0, like a text that is no number.
    quint16 asUint16() const;
    quint32 asUint32() const;
    qint32 asInt32() const;
    float asFloat() const;
    double asDouble() const;
    /// A single number reads as a list of one.
    QList<quint16> asUint16List() const;
    const QVariant &asVariant() const noexcept { return m_value; }

    friend bool operator==(const ParameterProperty &a, const ParameterProperty &b)
    {
        return a.m_value == b.m_value;
    }

private:
    QVariant m_value;
};

Q_DECLARE_METATYPE(ParameterProperty)
