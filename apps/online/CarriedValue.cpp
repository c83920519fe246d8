#include "apps/online/CarriedValue.h"

#include <KrDatatype/SimpleType.h>
#include <LmUtilities/ByteArraySupport.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

/// Reads what a drive's number looks like at a fraction of the cost; there are thousands of them.
std::optional<double> plainNumber(const QString &text)
{
    std::array<char, 32> letters;
    if (text.size() > qsizetype(letters.size()))
        return std::nullopt;
    std::transform(text.cbegin(), text.cend(), letters.begin(),
        [](QChar letter) { return letter.unicode() < 0x80 ? char(letter.unicode()) : ' '; });
    double number = 0;
    const auto read = std::from_chars(letters.data(), letters.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == letters.data() + text.size()
        ? std::optional(number)
        : std::nullopt;
}

std::optional<double> numberOf(const QString &text)
{
    if (const std::optional<double> plain = plainNumber(text))
        return plain;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

bool areSameNumbers(const QString &a, const QString &b)
{
    const std::optional<double> first = numberOf(a);
    const std::optional<double> second = numberOf(b);
    return first && second && (*first == *second || (std::isnan(*first) && std::isnan(*second)));
}

bool isInteger(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
}

enum class eSign { Plus, Minus };

/// Straight into the letters of a text: there are thousands of them.
QString integerText(eSign sign, quint64 magnitude)
{
    // A sign and the 20 digits of the greatest number.
    std::array<char16_t, 21> text;
    auto first = text.end();
    do {
        *--first = char16_t(u'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (sign == eSign::Minus)
        *--first = u'-';
    return QStringView(first, text.end()).toString();
}

QString integerText(const SimpleType &type, const QByteArray &bytes)
{
    quint64 number = 0;
    for (const char byte : bytes)
        number = number << 8 | quint8(byte);
    const int unused = 64 - 8 * int(type.sizeInBytes());
    const qint64 extended = qint64(number << unused) >> unused;
    if (type.kind() == SimpleType::UnsignedInteger || extended >= 0)
        return integerText(eSign::Plus, number);
    return integerText(eSign::Minus, 0 - quint64(extended));
}

/// The shortest text that reads back as the same number.
template <typename Number>
QString realText(Number number)
{
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

QString realText(const QByteArray &bytes)
{
    using namespace LmByteArraySupport;
    const ByteArraySupport support(eByteOrder::BigEndian, bytes);
    return bytes.size() == sizeof(float) ? realText(support.toFloat())
                                         : realText(support.toDouble());
}

} // namespace

bool CarriedValue::hasPlainText(const SimpleType &type)
{
    return isInteger(type) || type.kind() == SimpleType::CharacterString;
}

QString CarriedValue::textOf(const SimpleType &type, const QByteArray &bytes)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        return integerText(type, bytes);
    case SimpleType::FloatingPoint:
        return realText(bytes);
    case SimpleType::CharacterString:
        return QString::fromLatin1(bytes.constData(), qstrnlen(bytes.constData(), bytes.size()));
    case SimpleType::ByteString:
        return QString::fromLatin1(bytes.toHex());
    }
    return {};
}

bool CarriedValue::isSame(const SimpleType &type, const QString &sent, const QString &kept)
{
    if (sent == kept)
        return true;
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        // Two large integers may be the same double.
        return type.sizeInBytes() < sizeof(double) && areSameNumbers(sent, kept);
    case SimpleType::FloatingPoint:
        return areSameNumbers(sent, kept);
    case SimpleType::CharacterString:
        return false;
    case SimpleType::ByteString:
        return kept.startsWith(sent, Qt::CaseInsensitive)
            && kept.count(u'0') - kept.first(sent.size()).count(u'0') == kept.size() - sent.size();
    }
    return false;
}
