#include "ValueScaling.h"

#include "Decimal.h"
#include "Integer.h"
#include "RealText.h"
#include "ScalingFactor.h"
#include "ShortScaling.h"

#include <KrDatatype/SimpleType.h>

#include <algorithm>

namespace {

/// A 32-bit divisor that lets a division end at all lets it end within this many places (2^31).
constexpr int EndingPlaces = 31;
/// What a double needs to be told apart from its neighbours.
constexpr int SignificantDigits = 17;
/// More than any integer type has.
constexpr int LongestInteger = 40;
/// Digits of the largest factor coefficient, which a division takes off at most.
constexpr int CoefficientDigits = 9;

/// Fewest places p with 10^p * coefficient > fullScale: the last place is then below one native
/// step.
int placesBelowStep(quint32 coefficient, quint32 fullScale)
{
    int places = 0;
    for (quint64 step = coefficient; step <= fullScale; step *= 10)
        ++places;
    return places;
}

QString saturated(bool isNegative)
{
    const QString nines(LongestInteger, u'9');
    return isNegative ? u'-' + nines : nines;
}

bool isIntegerType(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
}

QString scaledInteger(const QString &text, const ScalingFactor &factor, quint32 fullScale)
{
    if (fullScale == 0) {
        if (std::optional<QString> scaled = ShortScaling::scaled(text, factor))
            return *std::move(scaled);
    }
    if (!Integer::fromText(text))
        return text;
    Decimal value = *Decimal::fromText(text);
    if (value.integerDigits() > LongestInteger)
        return text;

    if (factor.isNegative)
        value.negate();
    value.extend(value.exponent());
    value.multiply(factor.coefficient);
    if (fullScale != 0) {
        value.extend(EndingPlaces);
        const quint32 remainder = value.divide(fullScale);
        if (remainder != 0) {
            const int integerDigits = value.digitCount() - EndingPlaces;
            const int places = std::max(
                placesBelowStep(factor.coefficient, fullScale), SignificantDigits - integerDigits);
            value.dropRounded(EndingPlaces - places);
        }
    }
    value.setExponent(value.exponent() + factor.exponent);
    return value.toText();
}

QString unscaledInteger(const QString &text, const ScalingFactor &factor, quint32 fullScale)
{
    if (fullScale == 0) {
        if (std::optional<QString> native = ShortScaling::unscaled(text, factor))
            return *std::move(native);
    }
    std::optional<Decimal> number = Decimal::fromText(text);
    if (!number)
        return text;
    Decimal value = *number;
    if (value.isZero())
        return QStringLiteral("0");

    const bool isNegative = text.startsWith(u'-') != factor.isNegative;
    if (factor.isNegative)
        value.negate();
    if (fullScale != 0)
        value.multiply(fullScale);
    value.setExponent(value.exponent() - factor.exponent);
    if (value.integerDigits() > LongestInteger + CoefficientDigits)
        return saturated(isNegative);

    value.extend(std::max(value.exponent(), 0));
    const quint32 remainder = value.divide(factor.coefficient);
    if (value.integerDigits() > LongestInteger)
        return saturated(isNegative);
    // The remainder stands behind the lowest digit: it decides the rounding only where that digit
    // is the last before the point.
    if (value.exponent() < 0)
        value.dropRounded(-value.exponent());
    else if (quint64(remainder) * 2 >= factor.coefficient)
        value.increment();
    return value.toText();
}

QString scaledReal(
    const QString &text, const SimpleType &type, const ScalingFactor &factor, quint32 fullScale)
{
    const std::optional<double> native = RealText::read(text, type);
    if (!native)
        return text;
    const double product = *native * factor.toDouble();
    return RealText::write(fullScale == 0 ? product : product / fullScale);
}

QString unscaledReal(
    const QString &text, const SimpleType &type, const ScalingFactor &factor, quint32 fullScale)
{
    const std::optional<double> value = RealText::read(text);
    if (!value)
        return text;
    const double product = fullScale == 0 ? *value : *value * fullScale;
    return RealText::write(product / factor.toDouble(), type);
}

/// Without scaling: the plain text of a whole number, anything else as it stands.
QString plainInteger(const QString &text)
{
    if (ValueScaling::isPlainInteger(text))
        return text;
    const std::optional<Decimal> number = Decimal::fromText(text);
    if (!number || !number->isInteger() || number->integerDigits() > LongestInteger)
        return text;
    return number->toText();
}

} // namespace

bool ValueScaling::isPlainInteger(QStringView text)
{
    const bool isNegative = text.startsWith(u'-');
    if (isNegative)
        text = text.sliced(1);
    if (text.isEmpty())
        return false;
    if (text.front() == u'0' && (text.size() > 1 || isNegative))
        return false;
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString ValueScaling::valueText(const QString &nativeText, const SimpleType &type) const
{
    const ScalingFactor factor = ScalingFactor::fromWidenedFloat(m_factor);
    if (isIdentity() || factor.coefficient == 0)
        return nativeText;
    if (isIntegerType(type))
        return scaledInteger(nativeText, factor, m_fullScale);
    if (type.kind() == SimpleType::FloatingPoint)
        return scaledReal(nativeText, type, factor, m_fullScale);
    return nativeText;
}

QString ValueScaling::nativeText(const QString &valueText, const SimpleType &type) const
{
    const ScalingFactor factor = ScalingFactor::fromWidenedFloat(m_factor);
    const bool isScaled = !isIdentity() && factor.coefficient != 0;
    if (isIntegerType(type))
        return isScaled ? unscaledInteger(valueText, factor, m_fullScale) : plainInteger(valueText);
    if (type.kind() == SimpleType::FloatingPoint && isScaled)
        return unscaledReal(valueText, type, factor, m_fullScale);
    return valueText;
}
