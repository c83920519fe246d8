#include "ScalingFactor.h"

#include <QtCore/QByteArray>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr size_t TextSize = 32;

ScalingFactor converted(double value)
{
    if (value == 0 || !(std::abs(value) <= double(std::numeric_limits<float>::max())))
        return {};

    std::array<char, TextSize> text;
    const char *const end = std::to_chars(
        text.data(), text.data() + text.size(), float(value), std::chars_format::scientific)
                                .ptr;
    ScalingFactor result;
    const char *at = text.data();
    result.isNegative = *at == '-';
    if (result.isNegative)
        ++at;

    bool hasPoint = false;
    for (; *at != 'e'; ++at) {
        if (*at == '.') {
            hasPoint = true;
            continue;
        }
        result.coefficient = result.coefficient * 10 + quint32(*at - '0');
        result.exponent -= hasPoint ? 1 : 0;
    }
    ++at;
    if (*at == '+')
        ++at;
    int written = 0;
    std::from_chars(at, end, written);
    result.exponent += written;
    return result;
}

} // namespace

ScalingFactor ScalingFactor::fromWidenedFloat(double value)
{
    // The factors of a device are few: those used last are remembered.
    struct Known {
        double value = 0;
        ScalingFactor factor;
    };
    thread_local std::array<Known, 16> known;
    Known &entry = known[(std::bit_cast<quint64>(value) >> 29) % known.size()];
    if (entry.value != value)
        entry = {value, converted(value)};
    return entry.factor;
}

double ScalingFactor::toDouble() const
{
    const QByteArray text = QByteArray::number(coefficient) + 'e' + QByteArray::number(exponent);
    double result = 0;
    std::from_chars(text.constData(), text.constData() + text.size(), result);
    return isNegative ? -result : result;
}
