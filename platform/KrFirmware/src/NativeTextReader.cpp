#include "NativeTextReader.h"

#include "Decimal.h"
#include "FindingText.h"
#include "Integer.h"
#include "RealText.h"
#include "ValueCheck.h"

#include <KrDatatype/SimpleType.h>

namespace {

/// Longer numbers are beyond every integer type.
constexpr int LongestInteger = 40;

/// Of a number as JSON writes it, so with point and exponent too.
std::optional<Integer> wholeNumber(const QString &text)
{
    const std::optional<Decimal> number = Decimal::fromText(text);
    if (!number || !number->isInteger() || number->integerDigits() > LongestInteger)
        return std::nullopt;
    return Integer::fromText(number->toText());
}

QString rangeText(const SimpleType &type)
{
    return FindingText::tr("expected a whole number from %1 to %2")
        .arg(Integer::lowest(type).toText(), Integer::highest(type).toText());
}

QString integerText(const JsonValue &value, const SimpleType &type, const DescriptionReader &reader)
{
    const JsonValue::Number *number = value.toNumber();
    const std::optional<Integer> whole =
        number ? wholeNumber(number->text) : Integer::fromText(*value.toText());
    if (!whole || *whole < Integer::lowest(type) || *whole > Integer::highest(type)) {
        reader.findings().refuse(value, rangeText(type));
        return {};
    }
    if (number && !whole->isExactInDouble()) {
        reader.findings().refuse(value,
            FindingText::tr(
                "a double does not hold this number exactly; write it as the text \"%1\"")
                .arg(whole->toText()));
        return {};
    }
    return whole->toText();
}

QString realText(const JsonValue &value, const SimpleType &type, const DescriptionReader &reader)
{
    const JsonValue::Number *number = value.toNumber();
    const QString text = number ? number->text : *value.toText();
    if (ValueCheck::result(text, type, {}) == eCheckResult::Acceptable)
        return text;
    reader.findings().refuse(
        value, FindingText::tr("expected a number of the data type %1").arg(type.shortName()));
    return {};
}

QString stringText(const JsonValue &value, const SimpleType &type, const DescriptionReader &reader)
{
    const QString text = reader.text(value);
    if (ValueCheck::result(text, type, {}) == eCheckResult::Acceptable)
        return text;
    const QString expected = type.kind() == SimpleType::ByteString
        ? FindingText::tr("expected pairs of hexadecimal digits for at most %1 bytes")
        : FindingText::tr("expected at most %1 Latin-1 characters");
    reader.findings().refuse(value, expected.arg(type.sizeInBytes()));
    return {};
}

} // namespace

QString NativeTextReader::read(
    const JsonValue &value, const SimpleType &type, const DescriptionReader &reader)
{
    const bool isString =
        type.kind() == SimpleType::CharacterString || type.kind() == SimpleType::ByteString;
    if (isString)
        return stringText(value, type, reader);
    if (!value.toNumber() && !value.toText()) {
        reader.findings().refuse(value, FindingText::tr("expected a number or a text"));
        return {};
    }
    return type.kind() == SimpleType::FloatingPoint ? realText(value, type, reader)
                                                    : integerText(value, type, reader);
}
