#include "value/DigitText.h"

#include "value/NumberText.h"

#include <KrDatatype/SimpleType.h>

namespace {

constexpr int BitsOfValue = 64;
/// Above every digit.
constexpr quint32 NoDigit = 16;

quint32 digitOf(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return NoDigit;
}

} // namespace

bool DigitText::isInteger(const SimpleType *type)
{
    return type
        && (type->kind() == SimpleType::SignedInteger
            || type->kind() == SimpleType::UnsignedInteger);
}

std::optional<QString> DigitText::toDecimal(
    QStringView text, int bitsOfDigit, const SimpleType *type)
{
    // "$" of the patterns stands before a final line feed too.
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (text.isEmpty())
        return {};

    quint64 value = 0;
    for (const QChar c : text) {
        if (c == QLatin1Char(' '))
            continue;
        const quint32 digit = digitOf(c.unicode());
        if (digit >> bitsOfDigit != 0 || value >> (BitsOfValue - bitsOfDigit) != 0)
            return {};
        value = value << bitsOfDigit | digit;
    }

    // Deliberate: the bits are those of 64, so the text of a negative value of 8 to 32 bits reads
    // back as an unsigned number, which the firmware refuses.
    const bool isSigned = type && type->kind() == SimpleType::SignedInteger;
    return isSigned ? NumberText::integer(qint64(value)) : NumberText::integer(value);
}
