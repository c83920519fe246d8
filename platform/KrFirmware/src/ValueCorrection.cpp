#include "ValueCorrection.h"

#include "Decimal.h"
#include "Integer.h"
#include "RealText.h"

#include <KrDatatype/SimpleType.h>

#include <algorithm>
#include <cmath>

namespace {

/// Numbers of more digits than this are outside of every integer type.
constexpr int LongestInteger = 40;

std::optional<Integer> roundedInteger(const QString &text)
{
    if (std::optional<Integer> plain = Integer::fromText(text))
        return plain;
    std::optional<Decimal> number = Decimal::fromText(text);
    if (!number)
        return std::nullopt;
    if (number->integerDigits() > LongestInteger)
        return Integer {text.front() == u'-', true, 0};
    number->dropRounded(-number->exponent());
    return Integer::fromText(number->toText());
}

QString correctedInteger(const QString &text, const SimpleType &type, const ValueBounds &bounds)
{
    const std::optional<Integer> value = roundedInteger(text);
    if (!value)
        return text;

    Integer clamped = *value;
    if (const std::optional<Integer> lower = Integer::fromText(bounds.lowerLimit))
        clamped = std::max(clamped, *lower);
    if (const std::optional<Integer> upper = Integer::fromText(bounds.upperLimit))
        clamped = std::min(clamped, *upper);
    clamped = std::clamp(clamped, Integer::lowest(type), Integer::highest(type));
    const QString plain = clamped.toText();
    return text == plain ? text : plain;
}

QString correctedReal(const QString &text, const SimpleType &type, const ValueBounds &bounds)
{
    const std::optional<double> value = RealText::read(text, type);
    if (!value || std::isnan(*value))
        return text;

    double clamped = *value;
    const std::optional<double> lower = RealText::read(bounds.lowerLimit, type);
    if (lower && clamped < *lower)
        clamped = *lower;
    const std::optional<double> upper = RealText::read(bounds.upperLimit, type);
    if (upper && clamped > *upper)
        clamped = *upper;
    const double largest = RealText::largest(type);
    clamped = std::clamp(clamped, -largest, largest);
    const QString shortest = RealText::write(clamped, type);
    // "0.50" and "100000" are numbers of the type already and stay as they are written.
    return RealText::read(text) == RealText::read(shortest) ? text : shortest;
}

} // namespace

QString ValueCorrection::corrected(
    const QString &nativeText, const SimpleType &type, const ValueBounds &bounds)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        return correctedInteger(nativeText, type, bounds);
    case SimpleType::FloatingPoint:
        return correctedReal(nativeText, type, bounds);
    case SimpleType::CharacterString:
    case SimpleType::ByteString:
        break;
    }
    return nativeText;
}
