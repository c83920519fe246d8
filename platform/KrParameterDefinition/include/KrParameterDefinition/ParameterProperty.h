#pragma once

#include <KrParameterDefinition/KrParameterDefinitionExport.h>

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>

/// Value of one element property, read in the type that the reader needs. Invalid when absent.
/// Conversions never depend on the locale; what does not convert gives 0 or an empty value.
///
/// As text: a bool is "1" or "0"; a float or double has the fewest digits that read back as the
/// same number, whole numbers below 1e15 always written out; a ParameterText gives its long text in
/// the active language, a list its entries with ";" between them. As number: an integer is read
/// from a whole number in range, held in any numeric type or written as a plain decimal ("-12", no
/// blanks, no "+"); a float or double also from a text with fraction and exponent. Anything else,
/// an infinity or a NaN among it, gives 0.
class KrParameterDefinition_EXPORT ParameterProperty {
public:
    ParameterProperty() noexcept = default;
    explicit ParameterProperty(QVariant value) noexcept
        : m_value(std::move(value))
    {
    }

    bool isValid() const noexcept { return m_value.isValid(); }
    QString asString() const;
    /// Out of range gives 0, like a fraction.
    quint16 asUint16() const;
    quint32 asUint32() const;
    qint32 asInt32() const;
    float asFloat() const;
    double asDouble() const;
    /// A single number reads as a list of one; an entry of a list that does not convert reads as 0.
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
