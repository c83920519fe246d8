#include "value/BinaryForm.h"

#include "value/DigitText.h"
#include "value/NumberText.h"

#include <KrDatatype/SimpleType.h>

namespace {

constexpr int BitsOfByte = 8;
constexpr int BitsOfGroup = 4;
constexpr int BitsOfDigit = 1;

bool hasBinaryForm(const SimpleType *type)
{
    if (!DigitText::isInteger(type))
        return false;
    const quint32 size = type->sizeInBytes();
    return size == 1 || size == 2 || size == 4 || size == 8;
}

} // namespace

QString BinaryForm::show(const QString &valueText, const SimpleType *type)
{
    if (!hasBinaryForm(type))
        return {};

    const QLatin1StringView suffix("bin");
    const int bits = int(type->sizeInBytes()) * BitsOfByte;
    const quint64 value = NumberText::toBits(valueText);
    QString text;
    text.reserve(bits + bits / BitsOfGroup + suffix.size());
    for (int bit = bits - 1; bit >= 0; --bit) {
        text.append(QLatin1Char((value >> bit) & 1 ? '1' : '0'));
        if (bit % BitsOfGroup == 0)
            text.append(QLatin1Char(' '));
    }
    return text.append(suffix);
}

std::optional<QString> BinaryForm::read(QStringView text, const SimpleType *type)
{
    return DigitText::toDecimal(text, BitsOfDigit, type);
}
