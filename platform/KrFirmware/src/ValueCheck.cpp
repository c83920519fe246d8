#include "ValueCheck.h"

#include "Integer.h"
#include "RealText.h"

#include <KrDatatype/DatatypeProvider.h>

#include <algorithm>
#include <cmath>

namespace {

template <typename Number>
eCheckResult compared(
    const Number &value, const std::optional<Number> &lower, const std::optional<Number> &upper)
{
    if (lower && value < *lower)
        return eCheckResult::TooSmall;
    if (upper && value > *upper)
        return eCheckResult::TooLarge;
    return eCheckResult::Acceptable;
}

eCheckResult integerResult(const QString &text, const SimpleType &type, const ValueBounds &bounds)
{
    const std::optional<Integer> value = Integer::fromText(text);
    if (!value)
        return eCheckResult::Invalid;
    const eCheckResult ofType =
        compared<Integer>(*value, Integer::lowest(type), Integer::highest(type));
    if (ofType != eCheckResult::Acceptable)
        return ofType;
    return compared(
        *value, Integer::fromText(bounds.lowerLimit), Integer::fromText(bounds.upperLimit));
}

eCheckResult realResult(const QString &text, const SimpleType &type, const ValueBounds &bounds)
{
    const std::optional<double> value = RealText::read(text, type);
    if (!value || std::isnan(*value))
        return eCheckResult::Invalid;
    const double largest = RealText::largest(type);
    const eCheckResult ofType = compared<double>(*value, -largest, largest);
    if (ofType != eCheckResult::Acceptable)
        return ofType;
    return compared(
        *value, RealText::read(bounds.lowerLimit, type), RealText::read(bounds.upperLimit, type));
}

bool isCharacterString(const QString &text, const SimpleType &type)
{
    return text.size() <= qsizetype(type.sizeInBytes())
        && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() <= 0xFF; });
}

bool isHexadecimalDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool isByteString(const QString &text, const SimpleType &type)
{
    return text.size() % 2 == 0 && text.size() / 2 <= qsizetype(type.sizeInBytes())
        && std::all_of(text.cbegin(), text.cend(), isHexadecimalDigit);
}

eCheckResult typeResult(const QString &text, const SimpleType &type, const ValueBounds &bounds)
{
    const auto invalidUnless = [](bool isGood) {
        return isGood ? eCheckResult::Acceptable : eCheckResult::Invalid;
    };
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        return integerResult(text, type, bounds);
    case SimpleType::FloatingPoint:
        return realResult(text, type, bounds);
    case SimpleType::CharacterString:
        return invalidUnless(isCharacterString(text, type));
    case SimpleType::ByteString:
        return invalidUnless(isByteString(text, type));
    }
    return eCheckResult::Acceptable;
}

bool isChoiceKey(const QString &text, const QList<qint32> &keys)
{
    const std::optional<Integer> number = Integer::fromText(text);
    const std::optional<qint32> key = number ? number->toInt32() : std::nullopt;
    return key && std::binary_search(keys.cbegin(), keys.cend(), *key);
}

} // namespace

eCheckResult ValueCheck::result(
    const QString &nativeText, const SimpleType &type, const ValueBounds &bounds)
{
    if (type.id() == DatatypeProvider::UnformattedId)
        return eCheckResult::Acceptable;
    const eCheckResult ofType = typeResult(nativeText, type, bounds);
    if (ofType != eCheckResult::Acceptable || bounds.choiceKeys.isEmpty())
        return ofType;
    return isChoiceKey(nativeText, bounds.choiceKeys) ? eCheckResult::Acceptable
                                                      : eCheckResult::Invalid;
}
