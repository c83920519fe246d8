#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QStringView>

namespace {

constexpr quint16 LinesPerGroup = 1000;
constexpr qsizetype LongestText = 4;

constexpr bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

quint16 numberOf(quint16 group, quint16 line)
{
    const bool isPlace = group >= 1 && group <= ParameterCoordinate::LastGroup
        && line <= ParameterCoordinate::LastLine;
    return isPlace ? quint16(group * LinesPerGroup + line) : quint16(0);
}

/// coordinate = "A" to "Z", 1 to 3 digits
quint16 numberOf(QStringView text)
{
    if (text.size() < 2 || text.size() > LongestText)
        return 0;
    const QChar letter = text.front();
    if (letter < QLatin1Char('A') || letter > QLatin1Char('Z'))
        return 0;

    quint16 line = 0;
    for (const QChar c : text.sliced(1)) {
        if (!isDigit(c))
            return 0;
        line = quint16(line * 10 + (c.unicode() - u'0'));
    }
    return numberOf(quint16(letter.unicode() - u'A' + 1), line);
}

QString textOf(ParameterCoordinate coordinate, qsizetype digits)
{
    if (!coordinate.isValid())
        return {};

    QChar reversed[LongestText];
    qsizetype used = 0;
    for (quint16 rest = coordinate.line(); rest > 0 || used < digits; rest /= 10)
        reversed[used++] = QChar(ushort(u'0' + rest % 10));

    QString text;
    text.reserve(used + 1);
    text.append(QChar(ushort(u'A' + coordinate.group() - 1)));
    while (used > 0)
        text.append(reversed[--used]);
    return text;
}

} // namespace

ParameterCoordinate::ParameterCoordinate(quint16 number) noexcept
    : ParameterCoordinate(quint16(number / LinesPerGroup), quint16(number % LinesPerGroup))
{
}

ParameterCoordinate::ParameterCoordinate(quint16 group, quint16 line) noexcept
    : m_number(numberOf(group, line))
{
}

ParameterCoordinate::ParameterCoordinate(const QString &text) noexcept
    : ParameterCoordinate(QStringView(text))
{
}

ParameterCoordinate::ParameterCoordinate(QStringView text) noexcept
    : m_number(numberOf(text))
{
}

QString ParameterCoordinate::toText() const
{
    return textOf(*this, 2);
}

QString ParameterCoordinate::toSortableText() const
{
    return textOf(*this, 3);
}
