#include "apps/import/NativeValue.h"

#include "apps/import/EdsNumber.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <algorithm>
#include <bit>
#include <limits>
#include <charconv>
#include <cmath>

namespace {

using eForm = CanOpenDataType::eForm;

constexpr int SignWidths[] = {16, 32, 64};

WideInteger minimumOf(const CanOpenDataType &type)
{
    return type.form == eForm::Signed ? WideInteger(quint64(1) << (type.size - 1), true)
                                      : WideInteger();
}

WideInteger maximumOf(const CanOpenDataType &type)
{
    const int bits = type.form == eForm::Signed ? type.size - 1 : type.size;
    return {bits == 64 ? ~quint64(0) : (quint64(1) << bits) - 1, false};
}

/// The signed value of the low `bits` of a pattern that has no others.
std::optional<WideInteger> fromBits(quint64 pattern, int bits)
{
    if (bits < 64 && (pattern >> bits) != 0)
        return std::nullopt;
    const quint64 sign = quint64(1) << (bits - 1);
    if ((pattern & sign) == 0)
        return WideInteger(pattern, false);
    return WideInteger((sign - (pattern & (sign - 1))), true);
}

/// A pattern of the type's own width, or one that a tool has extended to a wider one.
WideInteger signedValue(const CanOpenDataType &type, quint64 pattern)
{
    if (const auto own = fromBits(pattern, type.size))
        return *own;
    for (const int width : SignWidths) {
        const auto wider = width > type.size ? fromBits(pattern, width) : std::nullopt;
        if (wider && wider->isNegative() && *wider >= minimumOf(type))
            return *wider;
    }
    return {pattern, false};
}

QString truthText(const QString &text)
{
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("1");
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("0");
    return text;
}

template <typename Real>
std::optional<Real> parsedReal(const QByteArray &text)
{
    const char *begin = text.constData();
    const char *end = begin + text.size();
    if (begin != end && *begin == '+' && text.size() > 1 && begin[1] != '-')
        ++begin;
    Real value = 0;
    const auto [rest, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || rest != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

template <typename Real>
QString plainDecimal(Real value)
{
    if (value == 0)
        return QStringLiteral("0");
    // The smallest double has 1074 digits behind the point at most, the largest 309 before it.
    char buffer[1200];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    Q_ASSERT(error == std::errc());
    return QString::fromLatin1(buffer, end - buffer);
}

template <typename Real, typename Bits>
std::optional<QString> realText(const QString &text)
{
    const EdsNumber number = EdsNumber::parse(text);
    std::optional<Real> value;
    if (number.isNumber() && number.isBitPattern()) {
        if (number.value().magnitude() > std::numeric_limits<Bits>::max())
            return std::nullopt;
        value = std::bit_cast<Real>(Bits(number.value().magnitude()));
    } else {
        value = parsedReal<Real>(text.section(QLatin1Char(';'), 0, 0).trimmed().toLatin1());
    }
    if (!value || !std::isfinite(*value))
        return std::nullopt;
    return plainDecimal(*value);
}

bool isLatin1Text(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
        [](QChar c) { return c.unicode() >= 0x20 && c.unicode() <= 0xFF && c.unicode() != 0x7F; });
}

bool isHexDigit(char c)
{
    const char lower = char(c | 0x20);
    return (c >= '0' && c <= '9') || (lower >= 'a' && lower <= 'f');
}

/// The bytes of "01 02 AB", "0102ab" or "0x01 0x02"; nothing for anything else.
std::optional<QByteArray> bytesOf(const QString &text)
{
    QByteArray digits;
    for (const QString &part : text.simplified().split(QLatin1Char(' '))) {
        const bool hasPrefix = part.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
        const QByteArray piece = part.mid(hasPrefix ? 2 : 0).toLatin1();
        if (piece.isEmpty() || piece.size() % 2 != 0
            || !std::all_of(piece.cbegin(), piece.cend(), isHexDigit))
            return std::nullopt;
        digits += piece;
    }
    return QByteArray::fromHex(digits);
}

} // namespace

NativeValue::NativeValue(eState state, const QString &text, const QString &note)
    : m_state(state)
    , m_text(text)
    , m_note(note)
{
}

NativeValue NativeValue::read(
    const CanOpenDataType &type, const QString &text, std::optional<quint8> nodeId)
{
    if (text.isEmpty())
        return {eState::Missing, {}, {}};
    switch (type.form) {
    case eForm::Signed:
    case eForm::Unsigned:
        return readInteger(type, text, nodeId);
    case eForm::Real:
        return readReal(type, text);
    case eForm::Text:
        return readText(type, text);
    case eForm::Bytes:
        return readBytes(type, text);
    case eForm::NoValue:
        break;
    }
    return {eState::Refused, {}, tr("der Datentyp hat hier keine Werte")};
}

NativeValue NativeValue::readInteger(
    const CanOpenDataType &type, const QString &text, std::optional<quint8> nodeId)
{
    const EdsNumber number = EdsNumber::parse(type.isBoolean() ? truthText(text) : text, nodeId);
    switch (number.state()) {
    case EdsNumber::eState::Empty:
        return {eState::Missing, {}, {}};
    case EdsNumber::eState::NoNumber:
        return {eState::Refused, {}, tr("ist keine ganze Zahl")};
    case EdsNumber::eState::NodeIdUnknown:
        return {
            eState::NodeIdUnknown, {}, tr("hängt von der Knotennummer ab, die nicht bekannt ist")};
    case EdsNumber::eState::TooLarge:
        return {eState::Refused, {}, tr("ist größer als 64 Bit")};
    case EdsNumber::eState::Number:
        break;
    }
    const bool isPattern = number.isBitPattern() && type.form == eForm::Signed;
    const WideInteger value =
        isPattern ? signedValue(type, number.value().magnitude()) : number.value();
    const WideInteger nearest = std::clamp(value, minimumOf(type), maximumOf(type));
    if (nearest != value) {
        return {eState::OutsideType, nearest.toText(),
            tr("liegt außerhalb von %1").arg(QLatin1String(type.name))};
    }
    const QString note = number.hasLeadingZeros()
        ? tr("hat führende Nullen und wurde als %1 gelesen").arg(value.toText())
        : QString();
    return {eState::Good, value.toText(), note};
}

NativeValue NativeValue::readReal(const CanOpenDataType &type, const QString &text)
{
    const auto native =
        type.size == 32 ? realText<float, quint32>(text) : realText<double, quint64>(text);
    if (!native) {
        return {eState::Refused, {},
            tr("ist kein endlicher Wert für %1").arg(QLatin1String(type.name))};
    }
    return {eState::Good, *native, {}};
}

NativeValue NativeValue::readText(const CanOpenDataType &type, const QString &text)
{
    if (!isLatin1Text(text)) {
        return {eState::Refused, {}, tr("enthält Zeichen, die ein Text des Geräts nicht hat")};
    }
    if (text.size() > type.size) {
        return {eState::Refused, {}, tr("ist länger als %1 Zeichen").arg(type.size)};
    }
    return {eState::Good, text, {}};
}

NativeValue NativeValue::readBytes(const CanOpenDataType &type, const QString &text)
{
    const auto read = bytesOf(text);
    if (!read && !isLatin1Text(text))
        return {eState::Refused, {}, tr("ist weder hexadezimal noch Latin-1-Text")};
    const QByteArray bytes = read.value_or(text.toLatin1());
    if (bytes.size() > type.size)
        return {eState::Refused, {}, tr("ist länger als %1 Bytes").arg(type.size)};
    const QString note =
        read ? QString() : tr("ist nicht hexadezimal; seine Zeichen wurden als Bytes genommen");
    return {eState::Good, QString::fromLatin1(bytes.toHex()), note};
}

QString NativeValue::minimumText(const CanOpenDataType &type)
{
    return type.isInteger() ? minimumOf(type).toText() : QString();
}

QString NativeValue::maximumText(const CanOpenDataType &type)
{
    return type.isInteger() ? maximumOf(type).toText() : QString();
}

int NativeValue::compare(const CanOpenDataType &type, const QString &a, const QString &b)
{
    if (type.isInteger()) {
        const auto order = WideInteger::fromText(a).value_or(WideInteger())
            <=> WideInteger::fromText(b).value_or(WideInteger());
        return order < 0 ? -1 : int(order > 0);
    }
    const double first = parsedReal<double>(a.toLatin1()).value_or(0);
    const double second = parsedReal<double>(b.toLatin1()).value_or(0);
    return first < second ? -1 : int(first > second);
}
