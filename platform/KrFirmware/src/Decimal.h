#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <array>
#include <optional>

/// A decimal number: sign, whole coefficient, power of ten. Exact, without heap, of bounded size,
/// so that no text however long or large costs more than one walk over it. Zero has no digits; a
/// sign that it got by rounding never shows.
class Decimal {
public:
    /// Significant digits of a text beyond this count are dropped. More than a 64-bit number times
    /// a factor's coefficient divided by a full-scale value needs where the division ends (60).
    static constexpr int KeptDigits = 64;
    /// Digits that a coefficient may grow to by the operations below.
    static constexpr int Capacity = 96;

    /// Sign, digits with an optional point, optional exponent; nothing else, blanks neither.
    static std::optional<Decimal> fromText(QStringView text);

    bool isZero() const { return m_count == 0; }
    bool isInteger() const;
    int digitCount() const { return m_count; }
    int exponent() const { return m_exponent; }
    /// Digits before the point; 0 or negative below 1.
    int integerDigits() const { return m_count + m_exponent; }

    void negate() { m_isNegative = !m_isNegative; }
    void setExponent(int exponent) { m_exponent = exponent; }
    /// **Range** the product has at most Capacity digits.
    void multiply(quint32 factor);
    /// Writes the same number with `places` more digits and a lower exponent.
    /// **Range** digitCount() + places is at most Capacity.
    void extend(int places);
    /// Divides the coefficient and returns the remainder. **Range** divisor from 1.
    quint32 divide(quint32 divisor);
    /// Drops the lowest `places` digits, rounding half away from zero.
    void dropRounded(int places);
    /// Adds one to the magnitude of the coefficient.
    void increment();

    /// Plain: no exponent, no trailing zeros after the point, "0" for zero.
    /// **Range** -Capacity <= exponent() <= Capacity.
    QString toText() const;

private:
    void trim();

    /// Lowest digit first; entries from m_count on mean nothing.
    std::array<quint8, Capacity> m_digits;
    int m_count = 0;
    int m_exponent = 0;
    bool m_isNegative = false;
};
