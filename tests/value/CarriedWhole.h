#pragma once

#include <KrDatatype/SimpleType.h>

#include <QtCore/QtGlobal>

/// Which integers a display form carries whole, so that the shown text reads back as the same value
/// text. What the forms do not carry whole:
///
/// - decimal: integers beyond 2^53, because the form goes through a double; more than 15 significant
///   digits; digits beyond those shown; up to three significant digits in the engineering form,
///   which cuts the zeros of a mantissa without point, and four where the mantissa is 1000 but for
///   its last bits; of a string all but the number at its start, which is 0 where there is none;
/// - hexadecimal: negative values of 8 to 32 bits, which read back unsigned, and what lies above the
///   low 32 bits of 64; types that are no integers, whose text has no suffix;
/// - binary: negative values of 8 to 32 bits, which read back unsigned; types that are no integers;
/// - time: negative values, those beyond 32 bits, more than 99999 hours, and minutes and seconds
///   above 59, which carry;
/// - IPv4: negative values and those beyond 32 bits;
/// - choice, parameter address and the kinds without form: nothing is lost of an integer.
namespace CarriedWhole {

constexpr int Decimal = 0;
constexpr int Choice = 1;
constexpr int OnlineChoice = 2;
constexpr int Hexadecimal = 3;
constexpr int Binary = 4;
constexpr int Time = 7;
constexpr int Ipv4 = 10;
constexpr int Address = 11;

constexpr qint64 LastExactInteger = qint64(1) << 53;
constexpr quint64 LastLow32 = 0xFFFFFFFF;

inline bool isSigned(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger;
}

/// The value is given as the 64 bits of its integer type.
inline bool isCarriedWhole(int kind, const SimpleType &type, quint64 bits)
{
    const bool isNegative = isSigned(type) && qint64(bits) < 0;
    switch (kind) {
    case Decimal:
        return isNegative ? qint64(bits) >= -LastExactInteger : bits <= quint64(LastExactInteger);
    case Hexadecimal:
        return !isNegative && bits <= LastLow32;
    case Binary:
        return !isNegative || type.sizeInBytes() == 8;
    case Time:
        return !isNegative && bits <= LastLow32 && (bits & 63) < 60 && (bits >> 6 & 63) < 60
            && bits >> 12 <= 99999;
    case Ipv4:
        return !isNegative && bits <= LastLow32;
    default:
        return true;
    }
}

} // namespace CarriedWhole
