#include "apps/online/CarriedText.h"

#include <KrDatatype/SimpleType.h>

#include <algorithm>
#include <cmath>

namespace {

int bitsOf(const SimpleType &type)
{
    return 8 * int(type.sizeInBytes());
}

qint64 greatestSigned(const SimpleType &type)
{
    return qint64(~quint64(0) >> (65 - bitsOf(type)));
}

quint64 greatestUnsigned(const SimpleType &type)
{
    return ~quint64(0) >> (64 - bitsOf(type));
}

bool isSigned(const QString &native, const SimpleType &type)
{
    bool isNumber = false;
    const qint64 number = native.toLongLong(&isNumber);
    const qint64 greatest = greatestSigned(type);
    return isNumber && number >= -greatest - 1 && number <= greatest;
}

bool isUnsigned(const QString &native, const SimpleType &type)
{
    bool isNumber = false;
    const quint64 number = native.toULongLong(&isNumber);
    return isNumber && number <= greatestUnsigned(type);
}

bool isReal(const QString &native, const SimpleType &type)
{
    bool isNumber = false;
    const double number = native.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || type.sizeInBytes() == sizeof(double))
        return isNumber;
    const float rounded = float(number);
    return std::isfinite(rounded) && (rounded != 0 || number == 0);
}

bool isCharacters(const QString &native, const SimpleType &type)
{
    return native.size() <= qsizetype(type.sizeInBytes())
        && std::all_of(native.cbegin(), native.cend(),
            [](QChar c) { return c.unicode() >= 1 && c.unicode() <= 0xFF; });
}

bool isHexDigit(QChar c)
{
    const char16_t lower = c.unicode() | 0x20;
    return (c >= u'0' && c <= u'9') || (lower >= u'a' && lower <= u'f');
}

bool isBytes(const QString &native, const SimpleType &type)
{
    return native.size() <= 2 * qsizetype(type.sizeInBytes()) && native.size() % 2 == 0
        && std::all_of(native.cbegin(), native.cend(), isHexDigit);
}

} // namespace

bool CarriedText::isCarried(const QString &native, const SimpleType &type)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger:
        return isSigned(native, type);
    case SimpleType::UnsignedInteger:
        return isUnsigned(native, type);
    case SimpleType::FloatingPoint:
        return isReal(native, type);
    case SimpleType::CharacterString:
        return isCharacters(native, type);
    case SimpleType::ByteString:
        return isBytes(native, type);
    }
    return false;
}

QString CarriedText::wanted(const SimpleType &type)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger: {
        const qint64 greatest = greatestSigned(type);
        return tr("eine ganze Zahl von %1 bis %2").arg(-greatest - 1).arg(greatest);
    }
    case SimpleType::UnsignedInteger:
        return tr("eine ganze Zahl von 0 bis %1").arg(greatestUnsigned(type));
    case SimpleType::FloatingPoint:
        return tr("eine Zahl mit %1 Bit").arg(bitsOf(type));
    case SimpleType::CharacterString:
        return tr("höchstens %1 Zeichen aus Latin-1").arg(type.sizeInBytes());
    case SimpleType::ByteString:
        return tr("höchstens %1 Bytes, je zwei hexadezimale Ziffern").arg(type.sizeInBytes());
    }
    return {};
}
