#include "Integer.h"

#include <KrDatatype/SimpleType.h>

#include <bit>
#include <limits>

namespace {

constexpr int DoubleMantissaBits = std::numeric_limits<double>::digits;

quint64 highestUnsigned(quint32 bits)
{
    return bits >= 64 ? std::numeric_limits<quint64>::max() : (quint64(1) << bits) - 1;
}

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

    constexpr quint64 Most = std::numeric_limits<quint64>::max();
    // Below this any digit may follow.
    constexpr quint64 Roomy = (Most - 9) / 10;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            return std::nullopt;
        const quint64 digit = c.unicode() - u'0';
        if (result.magnitude > Roomy && result.magnitude > (Most - digit) / 10)
            result.isBeyond = true;
        result.magnitude = result.isBeyond ? 0 : result.magnitude * 10 + digit;
    }
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
