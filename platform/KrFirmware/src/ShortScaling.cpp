#include "ShortScaling.h"

#include <array>

namespace {

/// A number of this many digits, multiplied by a coefficient of up to nine, fits 64 bits.
constexpr int WholeDigits = 9;
/// Powers of ten that fit 64 bits with room to double.
constexpr int LargestPower = 18;

constexpr auto Powers = [] {
    std::array<quint64, LargestPower + 1> powers {1};
    for (size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

struct ShortDecimal {
    quint64 digits = 0;
    int count = 0;
    int places = 0;
    bool isNegative = false;
};

/// "-" and digits, one point between digits; at most LargestPower digits.
std::optional<ShortDecimal> shortDecimal(QStringView text)
{
    ShortDecimal result;
    if (text.startsWith(u'-')) {
        result.isNegative = true;
        text = text.sliced(1);
    }
    bool hasPoint = false;
    if (text.isEmpty() || text.size() > LargestPower || text.front() == u'.' || text.back() == u'.')
        return std::nullopt;
    for (const QChar c : text) {
        if (c == u'.' && !hasPoint) {
            hasPoint = true;
            continue;
        }
        if (c < u'0' || c > u'9')
            return std::nullopt;
        result.digits = result.digits * 10 + quint64(c.unicode() - u'0');
        ++result.count;
        result.places += hasPoint ? 1 : 0;
    }
    return result;
}

/// Writes digits * 10^-places without trailing zeros after the point.
QString plainText(bool isNegative, quint64 digits, int places)
{
    while (places > 0 && digits % 10 == 0) {
        digits /= 10;
        --places;
    }
    std::array<char16_t, 48> buffer;
    char16_t *const end = buffer.data() + buffer.size();
    char16_t *at = end;
    for (int written = 0; written <= places || digits != 0; ++written) {
        if (written == places && places > 0)
            *--at = u'.';
        *--at = char16_t(u'0' + digits % 10);
        digits /= 10;
    }
    if (isNegative)
        *--at = u'-';
    return QString(reinterpret_cast<const QChar *>(at), end - at);
}

} // namespace

std::optional<QString> ShortScaling::scaled(QStringView text, const ScalingFactor &factor)
{
    const std::optional<ShortDecimal> number = shortDecimal(text);
    const bool isShort = number && number->places == 0 && number->count <= WholeDigits
        && factor.exponent <= 0 && factor.exponent >= -LargestPower;
    if (!isShort)
        return std::nullopt;
    const quint64 product = number->digits * factor.coefficient;
    const bool isNegative = product != 0 && number->isNegative != factor.isNegative;
    return plainText(isNegative, product, product == 0 ? 0 : -factor.exponent);
}

std::optional<QString> ShortScaling::unscaled(QStringView text, const ScalingFactor &factor)
{
    const std::optional<ShortDecimal> number = shortDecimal(text);
    if (!number)
        return std::nullopt;
    // digits * 10^-places / (coefficient * 10^exponent)
    const int power = -number->places - factor.exponent;
    quint64 dividend = number->digits;
    quint64 divisor = factor.coefficient;
    if (power >= 0) {
        if (number->count + power > LargestPower)
            return std::nullopt;
        dividend *= Powers[size_t(power)];
    } else {
        if (WholeDigits - power > LargestPower)
            return std::nullopt;
        divisor *= Powers[size_t(-power)];
    }
    const quint64 remainder = dividend % divisor;
    const quint64 quotient = dividend / divisor + (remainder * 2 >= divisor ? 1 : 0);
    return plainText(quotient != 0 && number->isNegative != factor.isNegative, quotient, 0);
}
