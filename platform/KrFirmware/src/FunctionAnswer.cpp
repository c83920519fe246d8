#include "FunctionAnswer.h"

#include "Integer.h"
#include "NativeValue.h"
#include "RealText.h"

#include <KrDatatype/SimpleType.h>

#include <cmath>
#include <limits>

namespace {

bool isNumber(const QVariant &value)
{
    return value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Double;
}

} // namespace

std::optional<QString> FunctionAnswer::limit(
    const QVariant &value, const SimpleType &type, eLimit limit)
{
    const bool isInteger =
        type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
    QVariant number = value;
    if (value.typeId() == QMetaType::Double) {
        const double real = value.toDouble();
        if (!std::isfinite(real))
            return std::nullopt;
        if (isInteger)
            number = limit == eLimit::Lower ? std::ceil(real) : std::floor(real);
    } else if (!isNumber(value) && value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    const QString text = NativeValue::write(number);
    const bool isNumberOfType =
        isInteger ? Integer::fromText(text).has_value() : RealText::read(text).has_value();
    // Beyond the longest whole number that is written out, the exponent tells enough: no type
    // reaches there.
    return isNumberOfType || isNumber(value) ? std::optional(text) : std::nullopt;
}

std::optional<double> FunctionAnswer::scalingFactor(const QVariant &value)
{
    if (!isNumber(value))
        return std::nullopt;
    const double real = value.toDouble();
    if (!(std::abs(real) <= double(std::numeric_limits<float>::max())) || float(real) == 0)
        return std::nullopt;
    return double(float(real));
}

std::optional<quint32> FunctionAnswer::fullScale(const QVariant &value)
{
    if (!isNumber(value))
        return std::nullopt;
    const double real = value.toDouble();
    if (!(real >= 0 && real <= double(std::numeric_limits<quint32>::max()))
        || real != std::trunc(real))
        return std::nullopt;
    return quint32(real);
}
