#include "value/DecimalForm.h"

#include "value/NumberText.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QLocale>
#include <QtCore/QStringBuilder>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr QLatin1Char Point('.');
/// The bounds of the engineering form's plain range, inclusive; in double precision for both
/// variants.
constexpr double LowestPlain = 0.001;
constexpr double HighestPlain = 9999999.4;
/// Digits that a type carries, and the longest text shown without engineering form.
constexpr int DigitsOfDouble = 15;
constexpr int DigitsOfFloat = 7;
constexpr quint32 SizeOfDouble = 8;
/// Of a text without unit; longer ones are rare.
constexpr qsizetype UsualSize = 24;

int precisionOf(quint32 digits)
{
    return int(std::min(digits, quint32(NumberText::MaximumPrecision)));
}

/// Deliberate: zeros are cut whether or not they stand behind a point, so that 500 becomes "5".
void cutZeros(QString &mantissa)
{
    while (mantissa.endsWith(QLatin1Char('0')))
        mantissa.chop(1);
    if (mantissa.endsWith(Point))
        mantissa.chop(1);
}

template <typename Real>
bool isPlain(Real magnitude)
{
    return !std::isfinite(magnitude) || magnitude == 0
        || (double(magnitude) >= LowestPlain && double(magnitude) <= HighestPlain);
}

/// `out` is empty.
template <typename Real>
void appendEngineering(QString &out, Real value, int digits)
{
    const Real magnitude = std::fabs(value);
    if (isPlain(magnitude)) {
        NumberText::appendGeneral(out, double(value), digits);
        return;
    }

    // Conversion and division of integers truncate toward zero, as the form asks for.
    int exponent = int(std::log10(magnitude)) / 3 * 3;
    Real mantissa = magnitude / Real(std::pow(10.0, exponent));
    if (mantissa < 1) {
        mantissa *= 1000;
        exponent -= 3;
    }
    const int decimals = std::max(0, digits - int(std::log10(mantissa)) - 1);
    NumberText::appendFixed(out, double(value < 0 ? -mantissa : mantissa), decimals);
    cutZeros(out);
    out.append(QLatin1StringView(exponent < 0 ? "E" : "E+"));
    NumberText::appendInteger(out, exponent);
}

double numberOf(const QString &valueText, const QString &decimalPoint)
{
    if (decimalPoint == Point || !valueText.contains(decimalPoint))
        return NumberText::toDouble(valueText);
    return NumberText::toDouble(QString(valueText).replace(decimalPoint, QString(Point)));
}

/// A plain decimal of few digits, in parts.
struct PlainDecimal {
    /// With the sign.
    QStringView whole;
    QStringView behind;
    bool hasPoint = false;
};

bool areDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
        [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

/// Empty unless the text, with zeros up to the precision, is what reading it as a double and printing
/// that gives: a double carries fifteen digits unchanged.
std::optional<PlainDecimal> plainDecimal(QStringView text, int precision)
{
    qsizetype point = 0;
    while (point < text.size() && text[point] != Point)
        ++point;
    PlainDecimal parts {text.first(point), {}, point < text.size()};
    if (parts.hasPoint)
        parts.behind = text.sliced(point + 1);
    const QStringView digits =
        parts.whole.startsWith(QLatin1Char('-')) ? parts.whole.sliced(1) : parts.whole;
    const bool isShort = precision >= 0 && parts.behind.size() <= precision && !digits.isEmpty()
        && digits.size() + precision <= DigitsOfDouble && parts.hasPoint == !parts.behind.isEmpty()
        && (digits.size() == 1 || digits.front() != QLatin1Char('0'));
    if (!isShort || !areDigits(digits) || !areDigits(parts.behind))
        return std::nullopt;
    return parts;
}

/// One allocation: this is what most reads end in.
QString padded(
    const PlainDecimal &number, int precision, QStringView decimalPoint, QStringView unit)
{
    static constexpr QStringView Zeros = u"000000000000000";
    static_assert(Zeros.size() == DigitsOfDouble);
    return number.whole % (precision > 0 ? decimalPoint : QStringView()) % number.behind
        % Zeros.first(precision - number.behind.size()) % (unit.isEmpty() ? QStringView() : u" ")
        % unit;
}

/// `out` is empty.
void appendFloatingPoint(
    QString &out, double value, bool isDouble, const DecimalForm::Places &places)
{
    if (places.significant != 0) {
        const int digits = precisionOf(places.significant);
        if (isDouble)
            appendEngineering(out, value, digits);
        else
            appendEngineering(out, float(value), digits);
        return;
    }

    NumberText::appendFixed(out, value, places.behind);
    const int limit = isDouble ? DigitsOfDouble : DigitsOfFloat;
    // The point is taken for granted, also where nothing stands behind it.
    if (out.size() - 1 - (value < 0 ? 1 : 0) <= limit)
        return;
    out.truncate(0);
    appendEngineering(out, value, limit);
}

/// The text without a unit at its end; unchanged where no blank precedes it.
QStringView withoutUnit(QStringView text, QStringView unit)
{
    if (unit.isEmpty() || !text.endsWith(unit))
        return text;
    const QStringView number = text.chopped(unit.size());
    return number.endsWith(QLatin1Char(' ')) ? number.trimmed() : text;
}

} // namespace

const QString &DecimalForm::systemDecimalPoint()
{
    static const QString point = QLocale::system().decimalPoint();
    return point;
}

QString DecimalForm::show(const QString &valueText, const SimpleType *type, const Places &places,
    const QString &unit, const QString &decimalPoint)
{
    if (!type)
        return {};
    if (type->kind() != SimpleType::FloatingPoint) {
        if (const std::optional<PlainDecimal> number = plainDecimal(valueText, places.behind)) {
            // Most values stand as they are shown already; such a text is shared.
            const bool isShown = number->behind.size() == places.behind && unit.isEmpty()
                && (!number->hasPoint || decimalPoint == Point);
            return isShown ? valueText : padded(*number, places.behind, decimalPoint, unit);
        }
    }
    QString text;
    text.reserve(UsualSize + unit.size());
    // Deliberate: a 64-bit integer goes through a double too and keeps 53 bits.
    if (type->kind() == SimpleType::FloatingPoint)
        appendFloatingPoint(
            text, numberOf(valueText, decimalPoint), type->sizeInBytes() == SizeOfDouble, places);
    else
        NumberText::appendFixed(text, numberOf(valueText, decimalPoint), places.behind);
    if (decimalPoint != Point)
        text.replace(Point, decimalPoint);
    if (unit.isEmpty())
        return text;

    text.append(QLatin1Char(' '));
    return text.append(unit);
}

QString DecimalForm::engineering(double value, quint32 digits)
{
    QString text;
    appendEngineering(text, value, precisionOf(digits));
    return text;
}

QString DecimalForm::engineering(float value, quint32 digits)
{
    QString text;
    appendEngineering(text, value, precisionOf(digits));
    return text;
}

QString DecimalForm::read(const QString &text, const QString &unit, const QString &decimalPoint)
{
    const QStringView kept = withoutUnit(QStringView(text).trimmed(), QStringView(unit).trimmed());
    // Most texts are a number alone and are shared.
    QString number = kept.size() == text.size() ? text : kept.toString();
    if (decimalPoint != Point)
        number.replace(decimalPoint, QString(Point));
    return number;
}
