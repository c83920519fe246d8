#pragma once

#include <QtCore/QString>

#include <compare>
#include <optional>

/// An integer that holds every signed and unsigned 64-bit value. A value type.
///
/// **Range** -(2^64 - 1) to 2^64 - 1.
class WideInteger {
public:
    constexpr WideInteger() noexcept = default;
    constexpr WideInteger(quint64 magnitude, bool isNegative) noexcept
        : m_magnitude(magnitude)
        , m_isNegative(isNegative && magnitude != 0)
    {
    }

    constexpr quint64 magnitude() const noexcept { return m_magnitude; }
    constexpr bool isNegative() const noexcept { return m_isNegative; }
    constexpr WideInteger negated() const noexcept { return {m_magnitude, !m_isNegative}; }
    /// Decimal.
    QString toText() const;
    /// Reads what toText() writes. Empty for anything else.
    static std::optional<WideInteger> fromText(const QString &text);
    /// Empty where the sum is out of range.
    static std::optional<WideInteger> sum(WideInteger a, WideInteger b) noexcept;

    friend bool operator==(const WideInteger &, const WideInteger &) = default;
    friend std::strong_ordering operator<=>(const WideInteger &a, const WideInteger &b) noexcept
    {
        if (a.m_isNegative != b.m_isNegative)
            return b.m_isNegative <=> a.m_isNegative;
        return a.m_isNegative ? b.m_magnitude <=> a.m_magnitude : a.m_magnitude <=> b.m_magnitude;
    }

private:
    quint64 m_magnitude = 0;
    bool m_isNegative = false;
};
