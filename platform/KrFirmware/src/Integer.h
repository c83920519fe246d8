#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <compare>
#include <optional>

class SimpleType;

/// A whole number as sign and magnitude, wide enough to hold every 64-bit number of either sign and
/// to order any text against them.
struct Integer {
    /// Never set for 0.
    bool isNegative = false;
    /// The magnitude needs more than 64 bits; `magnitude` then means nothing and is 0.
    bool isBeyond = false;
    quint64 magnitude = 0;

    /// Optional sign and decimal digits; nothing else, blanks neither.
    static std::optional<Integer> fromText(QStringView text);
    static Integer fromNumber(qint64 value);
    /// The ends of an integer type's range.
    static Integer lowest(const SimpleType &type);
    static Integer highest(const SimpleType &type);

    /// Whether a double holds it exactly.
    bool isExactInDouble() const;
    /// **Range** -(2^63 - 1) to 2^63 - 1.
    qint64 toNumber() const { return qint64(isNegative ? 0 - magnitude : magnitude); }
    /// Nothing where 32 bits do not hold it.
    std::optional<qint32> toInt32() const;
    /// No "+", no leading zeros. **Range** not beyond.
    QString toText() const;

    friend bool operator==(const Integer &, const Integer &) = default;
    friend std::strong_ordering operator<=>(const Integer &a, const Integer &b)
    {
        if (a.isNegative != b.isNegative)
            return b.isNegative <=> a.isNegative;
        const Integer &low = a.isNegative ? b : a;
        const Integer &high = a.isNegative ? a : b;
        const auto byWidth = low.isBeyond <=> high.isBeyond;
        return byWidth != 0 ? byWidth : low.magnitude <=> high.magnitude;
    }
};
