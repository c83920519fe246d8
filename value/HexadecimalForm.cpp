#include "value/HexadecimalForm.h"

#include "value/DigitText.h"
#include "value/NumberText.h"

#include <KrDatatype/SimpleType.h>

namespace {

constexpr int BitsOfDigit = 4;

/// What is shown of a value, by the size of its type.
struct Width {
    quint32 sizeInBytes;
    int digits;
    quint64 mask;
};

constexpr Width Widths[] = {
    {1, 2, 0xFF},
    {2, 4, 0xFFFF},
    {4, 8, 0xFFFFFFFF},
    // Deliberate: an 8-byte value shows only its low 32 bits, padded to 16 digits.
    {8, 16, 0xFFFFFFFF},
};

const Width *widthOf(const SimpleType *type)
{
    if (!DigitText::isInteger(type))
        return nullptr;
    for (const Width &width : Widths) {
        if (width.sizeInBytes == type->sizeInBytes())
            return &width;
    }
    return nullptr;
}

} // namespace

QString HexadecimalForm::show(const QString &valueText, const SimpleType *type)
{
    const Width *width = widthOf(type);
    if (!width)
        return valueText;

    const QLatin1StringView suffix(" hex");
    const quint64 value = NumberText::toBits(valueText) & width->mask;
    QString text;
    text.reserve(width->digits + suffix.size());
    for (int shift = (width->digits - 1) * BitsOfDigit; shift >= 0; shift -= BitsOfDigit)
        text.append(QLatin1Char("0123456789abcdef"[(value >> shift) & 0xF]));
    return text.append(suffix);
}

std::optional<QString> HexadecimalForm::read(QStringView text, const SimpleType *type)
{
    const QLatin1StringView prefix("0x");
    // The prefix counts only where digits or blanks follow; "0x" alone is no number.
    if (text.startsWith(prefix))
        text = text.sliced(prefix.size());
    return DigitText::toDecimal(text, BitsOfDigit, type);
}
