#include "value/Ipv4Form.h"

#include "value/NumberText.h"

namespace {

constexpr int FirstShift = 24;
constexpr int BitsOfPart = 8;
constexpr quint32 PartMask = 0xFF;
constexpr qsizetype PartDigits = 3;
/// "255.255.255.255".
constexpr qsizetype LongestText = 15;

/// Takes the digits of one part off the text.
std::optional<quint32> takePart(QStringView &text)
{
    const std::optional<quint32> number = NumberText::takeDigits(text, PartDigits);
    return number && *number <= PartMask ? number : std::nullopt;
}

bool takePoint(QStringView &text)
{
    if (!text.startsWith(QLatin1Char('.')))
        return false;
    text = text.sliced(1);
    return true;
}

} // namespace

QString Ipv4Form::show(const QString &valueText)
{
    const quint32 value = NumberText::toUnsigned32(valueText);
    QString text;
    text.reserve(LongestText);
    for (int shift = FirstShift; shift >= 0; shift -= BitsOfPart) {
        NumberText::appendInteger(text, value >> shift & PartMask);
        if (shift > 0)
            text.append(QLatin1Char('.'));
    }
    return text;
}

std::optional<QString> Ipv4Form::read(const QString &text)
{
    const QString packed = QString(text).remove(QLatin1Char(' '));
    QStringView rest(packed);
    quint32 value = 0;
    for (int shift = FirstShift; shift >= 0; shift -= BitsOfPart) {
        const std::optional<quint32> part = takePart(rest);
        if (!part || (shift > 0 && !takePoint(rest)))
            return {};
        value |= *part << shift;
    }
    // Deliberate: only the start is looked at; what follows the fourth part is not read.
    return NumberText::integer(quint64(value));
}
