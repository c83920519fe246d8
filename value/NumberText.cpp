#include "value/NumberText.h"

#include <QtCore/QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace {

/// Sign, the digits of the largest double, point, decimals.
constexpr size_t PrintedSize =
    2 + std::numeric_limits<double>::max_exponent10 + 1 + NumberText::MaximumPrecision;
/// Far beyond the exponent of any double, small enough to add the digits of any text to it.
constexpr qint64 HugeExponent = std::numeric_limits<qint64>::max() / 4;
constexpr qint64 BitsOfHexadecimalDigit = 4;
/// Digits and a sign.
constexpr size_t LongestInteger = std::numeric_limits<quint64>::digits10 + 2;

using Latin1Buffer = QVarLengthArray<char, 128>;

bool isSpace(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

bool isNumberCharacter(char16_t c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z')
        || c == u'.' || c == u'+' || c == u'-';
}

QStringView withoutLeadingSpaces(QStringView text)
{
    qsizetype first = 0;
    while (first < text.size() && isSpace(text[first].unicode()))
        ++first;
    return text.sliced(first);
}

QStringView withoutSpaces(QStringView text)
{
    text = withoutLeadingSpaces(text);
    while (!text.isEmpty() && isSpace(text.back().unicode()))
        text.chop(1);
    return text;
}

/// The start of the text that can be part of a number, so that junk of any length costs nothing.
void copyNumberCharacters(QStringView text, Latin1Buffer &out)
{
    for (const QChar c : text) {
        if (!isNumberCharacter(c.unicode()))
            return;
        out.append(char(c.unicode()));
    }
}

bool takeSign(std::string_view &number)
{
    if (number.empty() || (number.front() != '+' && number.front() != '-'))
        return false;
    const bool isNegative = number.front() == '-';
    number.remove_prefix(1);
    return isNegative;
}

bool isHexadecimalDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// "0x" counts only before a digit, which may follow a point.
bool isHexadecimal(std::string_view number)
{
    if (number.size() < 3 || number[0] != '0' || (number[1] != 'x' && number[1] != 'X'))
        return false;
    number.remove_prefix(number[2] == '.' ? 3 : 2);
    return !number.empty() && isHexadecimalDigit(number.front());
}

qint64 exponentOf(std::string_view number)
{
    const bool isNegative = takeSign(number);
    qint64 exponent = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), exponent);
    exponent =
        error == std::errc::result_out_of_range ? HugeExponent : std::min(exponent, HugeExponent);
    return isNegative ? -exponent : exponent;
}

/// The value of a number that no double holds: from_chars does not tell which end was passed.
double outOfRange(std::string_view number, const char *exponentMarks, qint64 exponentsPerDigit)
{
    const size_t mark = std::min(number.find_first_of(exponentMarks), number.size());
    const std::string_view digits = number.substr(0, mark);
    const size_t point = std::min(digits.find('.'), digits.size());
    const size_t first = std::min(digits.find_first_not_of("0."), digits.size());
    const qint64 exponent = mark < number.size() ? exponentOf(number.substr(mark + 1)) : 0;
    const bool isLarge = (qint64(point) - qint64(first)) * exponentsPerDigit + exponent > 0;
    return isLarge ? std::numeric_limits<double>::infinity() : 0.0;
}

/// Empty where the text does not begin with a number.
std::optional<double> magnitudeOf(std::string_view number)
{
    // A second sign is no number, though from_chars takes a minus.
    if (number.empty() || number.front() == '-' || number.front() == '+')
        return {};

    const bool hexadecimal = isHexadecimal(number);
    if (hexadecimal)
        number.remove_prefix(2);
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value,
        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc())
        return value;
    if (error != std::errc::result_out_of_range)
        return {};

    number = number.substr(0, size_t(end - number.data()));
    return hexadecimal ? outOfRange(number, "pP", BitsOfHexadecimalDigit)
                       : outOfRange(number, "eE", 1);
}

template <typename Integer>
std::optional<Integer> integerOf(QStringView text)
{
    text = withoutSpaces(text);
    Latin1Buffer buffer;
    copyNumberCharacters(text, buffer);
    std::string_view digits(buffer.data(), size_t(buffer.size()));
    if (buffer.size() != text.size() || digits.empty())
        return {};
    if (digits.front() == '+')
        digits.remove_prefix(1);
    // A second sign is no number.
    if (digits.size() < size_t(buffer.size()) && digits.starts_with('-'))
        return {};

    Integer value = 0;
    const char *last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, value);
    if (error != std::errc() || end != last)
        return {};
    return value;
}

void appendPrinted(QString &out, const char *first, const char *last)
{
    out.append(QLatin1StringView(first, last));
}

int printedPrecision(int precision)
{
    return precision < 0 ? NumberText::DefaultPrecision
                         : std::min(precision, NumberText::MaximumPrecision);
}

char upperCase(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

template <typename Number>
QString shortestOf(Number value)
{
    std::array<char, 64> buffer;
    const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return QString::fromLatin1(buffer.data(), printed.ptr - buffer.data());
}

template <typename Integer>
QLatin1StringView integerText(Integer value, std::array<char, LongestInteger> &buffer)
{
    const char *end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return QLatin1StringView(buffer.data(), end);
}

} // namespace

bool NumberText::isNumber(QStringView text)
{
    text = withoutSpaces(text);
    Latin1Buffer buffer;
    copyNumberCharacters(text, buffer);
    std::string_view number(buffer.data(), size_t(buffer.size()));
    takeSign(number);
    if (buffer.size() != text.size() || number.empty() || number.front() == '-')
        return false;
    double value = 0.0;
    const char *const last = number.data() + number.size();
    const auto [end, error] = std::from_chars(number.data(), last, value);
    return error != std::errc::invalid_argument && end == last;
}

double NumberText::toDouble(QStringView text)
{
    Latin1Buffer buffer;
    copyNumberCharacters(withoutLeadingSpaces(text), buffer);
    std::string_view number(buffer.data(), size_t(buffer.size()));
    const bool isNegative = takeSign(number);
    const std::optional<double> magnitude = magnitudeOf(number);
    // 0 and "nan" have a sign too; where there is no number, there is none.
    return magnitude ? std::copysign(*magnitude, isNegative ? -1.0 : 1.0) : 0.0;
}

void NumberText::appendFixed(QString &out, double value, int precision)
{
    std::array<char, PrintedSize> buffer;
    const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
        std::chars_format::fixed, printedPrecision(precision));
    appendPrinted(out, buffer.data(), printed.ptr);
}

void NumberText::appendGeneral(QString &out, double value, int precision)
{
    std::array<char, PrintedSize> buffer;
    const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
        std::chars_format::general, printedPrecision(precision));
    std::transform(buffer.data(), printed.ptr, buffer.data(), upperCase);
    appendPrinted(out, buffer.data(), printed.ptr);
}

QString NumberText::shortest(double value)
{
    return shortestOf(value);
}

QString NumberText::shortest(float value)
{
    return shortestOf(value);
}

void NumberText::appendInteger(QString &out, qint64 value)
{
    std::array<char, LongestInteger> buffer;
    out.append(integerText(value, buffer));
}

QString NumberText::integer(qint64 value)
{
    std::array<char, LongestInteger> buffer;
    return integerText(value, buffer);
}

QString NumberText::integer(quint64 value)
{
    std::array<char, LongestInteger> buffer;
    return integerText(value, buffer);
}

std::optional<qint64> NumberText::toInteger(QStringView text)
{
    return integerOf<qint64>(text);
}

std::optional<quint64> NumberText::toUnsigned(QStringView text)
{
    return integerOf<quint64>(text);
}

std::optional<quint32> NumberText::takeDigits(QStringView &text, qsizetype mostDigits)
{
    quint32 number = 0;
    qsizetype used = 0;
    while (used < text.size() && used < mostDigits && text[used] >= QLatin1Char('0')
        && text[used] <= QLatin1Char('9')) {
        number = number * 10 + (text[used].unicode() - u'0');
        ++used;
    }
    if (used == 0)
        return {};
    text = text.sliced(used);
    return number;
}

quint64 NumberText::toBits(QStringView text)
{
    if (const std::optional<quint64> value = toUnsigned(text))
        return *value;
    return quint64(toInteger(text).value_or(0));
}

quint32 NumberText::toUnsigned32(QStringView text)
{
    const quint64 value = toUnsigned(text).value_or(0);
    return value <= std::numeric_limits<quint32>::max() ? quint32(value) : 0;
}
