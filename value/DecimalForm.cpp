#include "value/DecimalForm.h"

#include "value/NumberText.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QLocale>

#include <algorithm>
#include <cmath>

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

template <typename Real>
QString engineeringText(Real value, int digits)
{
    QString text;
    const Real magnitude = std::fabs(value);
    if (isPlain(magnitude)) {
        NumberText::appendGeneral(text, double(value), digits);
        return text;
    }

    // Conversion and division of integers truncate toward zero, as the form asks for.
    int exponent = int(std::log10(magnitude)) / 3 * 3;
    Real mantissa = magnitude / Real(std::pow(10.0, exponent));
    if (mantissa < 1) {
        mantissa *= 1000;
        exponent -= 3;
    }
    const int decimals = std::max(0, digits - int(std::log10(mantissa)) - 1);
    NumberText::appendFixed(text, double(value < 0 ? -mantissa : mantissa), decimals);
    cutZeros(text);
    text.append(QLatin1Char('E'));
    text.append(QLatin1Char(exponent < 0 ? '-' : '+'));
    return text.append(QString::number(std::abs(exponent)));
}

double numberOf(const QString &valueText, const QString &decimalPoint)
{
    if (decimalPoint == Point || !valueText.contains(decimalPoint))
        return NumberText::toDouble(valueText);
    return NumberText::toDouble(QString(valueText).replace(decimalPoint, QString(Point)));
}

QString fixedText(double value, int precision)
{
    QString text;
    NumberText::appendFixed(text, value, precision);
    return text;
}

QString numberText(double value, const SimpleType &type, const DecimalForm::Places &places)
{
    if (type.kind() != SimpleType::FloatingPoint)
        return fixedText(value, places.behind);

    const bool isDouble = type.sizeInBytes() == SizeOfDouble;
    if (places.significant != 0) {
        return isDouble ? DecimalForm::engineering(value, places.significant)
                        : DecimalForm::engineering(float(value), places.significant);
    }

    const int limit = isDouble ? DigitsOfDouble : DigitsOfFloat;
    const QString text = fixedText(value, places.behind);
    // The point is taken for granted, also where nothing stands behind it.
    const qsizetype digits = text.size() - 1 - (value < 0 ? 1 : 0);
    return digits > limit ? engineeringText(value, limit) : text;
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
    // Deliberate: a 64-bit integer goes through a double too and keeps 53 bits.
    QString text = numberText(numberOf(valueText, decimalPoint), *type, places);
    if (decimalPoint != Point)
        text.replace(Point, decimalPoint);
    if (unit.isEmpty())
        return text;

    text.reserve(text.size() + 1 + unit.size());
    text.append(QLatin1Char(' '));
    return text.append(unit);
}

QString DecimalForm::engineering(double value, quint32 digits)
{
    return engineeringText(value, precisionOf(digits));
}

QString DecimalForm::engineering(float value, quint32 digits)
{
    return engineeringText(value, precisionOf(digits));
}

QString DecimalForm::read(QStringView text, const QString &unit, const QString &decimalPoint)
{
    QString number = withoutUnit(text.trimmed(), QStringView(unit).trimmed()).toString();
    if (decimalPoint != Point)
        number.replace(decimalPoint, QString(Point));
    return number;
}
