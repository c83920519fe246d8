#include "Integer.h"

#include <KrDatatype/SimpleType.h>

#include <algorithm>
#include <bit>
#include <limits>

namespace {

constexpr int DoubleMantissaBits = std::numeric_limits<double>::digits;

quint64 highestUnsigned(quint32 bits)
{
    return bits >= 64 ? std::numeric_limits<quint64>::max() : (quint64(1) << bits) - 1;
}

constexpr qsizetype SafeDigits = std::numeric_limits<quint64>::digits10;

} // namespace

std::optional<Integer> Integer::fromText(QStringView text)
{
    Integer result;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        result.isNegative = text.front() == u'-';
        text = text.sliced(1);
    }
    if (text.isEmpty())
        return std::nullopt;

    const char16_t *at = text.utf16();
    const char16_t *const end = at + text.size();
    // So many digits never pass the largest number.
    const char16_t *const safe = at + std::min<qsizetype>(text.size(), SafeDigits);
    quint64 magnitude = 0;
    for (; at != safe; ++at) {
        const quint32 digit = quint32(*at) - u'0';
        if (digit > 9)
            return std::nullopt;
        magnitude = magnitude * 10 + digit;
    }
    constexpr quint64 Most = std::numeric_limits<quint64>::max();
    for (; at != end; ++at) {
        const quint32 digit = quint32(*at) - u'0';
        if (digit > 9)
            return std::nullopt;
        if (magnitude > (Most - digit) / 10)
            result.isBeyond = true;
        magnitude = result.isBeyond ? 0 : magnitude * 10 + digit;
    }
    result.magnitude = magnitude;
    if (result.magnitude == 0 && !result.isBeyond)
        result.isNegative = false;
    return result;
}

Integer Integer::fromNumber(qint64 value)
{
    return {value < 0, false, value < 0 ? 0 - quint64(value) : quint64(value)};
}

Integer Integer::lowest(const SimpleType &type)
{
    if (type.kind() != SimpleType::SignedInteger)
        return {};
    return {true, false, quint64(1) << (type.sizeInBytes() * 8 - 1)};
}

Integer Integer::highest(const SimpleType &type)
{
    const quint32 signBits = type.kind() == SimpleType::SignedInteger ? 1 : 0;
    return {false, false, highestUnsigned(type.sizeInBytes() * 8 - signBits)};
}

bool Integer::isExactInDouble() const
{
    if (isBeyond)
        return false;
    return magnitude == 0
        || (magnitude >> std::countr_zero(magnitude)) <= highestUnsigned(DoubleMantissaBits);
}

std::optional<qint32> Integer::toInt32() const
{
    using Limits = std::numeric_limits<qint32>;
    if (*this < fromNumber(Limits::min()) || *this > fromNumber(Limits::max()))
        return std::nullopt;
    return qint32(toNumber());
}

QString Integer::toText() const
{
    const QString digits = QString::number(magnitude);
    return isNegative ? u'-' + digits : digits;
}
