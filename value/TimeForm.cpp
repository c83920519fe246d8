#include "value/TimeForm.h"

#include "value/NumberText.h"

namespace {

constexpr int HoursShift = 12;
constexpr int MinutesShift = 6;
constexpr quint32 SixtiesMask = 0x3F;
constexpr quint32 HoursEnd = 1U << 20;
constexpr qsizetype HoursDigits = 5;
constexpr qsizetype SixtiesDigits = 2;
/// "1048575h 63m 63s".
constexpr qsizetype LongestText = 16;

static_assert(99999 + (99 + 99 / 60) / 60 < HoursEnd, "the typed hours fit their field");

void appendTwoDigits(QString &text, quint32 number)
{
    text.append(QLatin1Char(char('0' + number / 10)));
    text.append(QLatin1Char(char('0' + number % 10)));
}

/// Takes a part like "05m" off the text; 0 where the text does not begin with one.
quint32 takePart(QStringView &text, qsizetype maximumDigits, char16_t letter)
{
    QStringView rest = text;
    const quint32 number = NumberText::takeDigits(rest, maximumDigits).value_or(0);
    if (!rest.startsWith(QChar(letter)))
        return 0;
    text = rest.sliced(1);
    return number;
}

void takeBlank(QStringView &text)
{
    if (text.startsWith(QLatin1Char(' ')))
        text = text.sliced(1);
}

} // namespace

QString TimeForm::show(const QString &valueText)
{
    const quint32 value = NumberText::toUnsigned32(valueText);
    QString text;
    text.reserve(LongestText);
    NumberText::appendInteger(text, value >> HoursShift);
    text.append(QLatin1StringView("h "));
    appendTwoDigits(text, value >> MinutesShift & SixtiesMask);
    text.append(QLatin1StringView("m "));
    appendTwoDigits(text, value & SixtiesMask);
    return text.append(QLatin1Char('s'));
}

QString TimeForm::read(QStringView text)
{
    // Deliberate: a text without any part is the time 0.
    quint32 hours = takePart(text, HoursDigits, u'h');
    takeBlank(text);
    quint32 minutes = takePart(text, SixtiesDigits, u'm');
    takeBlank(text);
    const quint32 seconds = takePart(text, SixtiesDigits, u's');
    minutes += seconds / 60;
    hours += minutes / 60;
    return NumberText::integer(
        quint64(hours << HoursShift | minutes % 60 << MinutesShift | seconds % 60));
}
