#include "FunctionAnswer.h"

#include "Integer.h"
#include "NativeValue.h"
#include "RealText.h"

#include <KrDatatype/SimpleType.h>

#include <cmath>
#include <limits>

namespace {

std::optional<double> number(const FunctionValue &value)
{
    if (const qint64 *integer = std::get_if<qint64>(&value))
        return double(*integer);
    if (const double *real = std::get_if<double>(&value))
        return *real;
    return std::nullopt;
}

bool isIntegerType(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
}

} // namespace

std::optional<QString> FunctionAnswer::limit(
    const FunctionValue &value, const SimpleType &type, eLimit limit)
{
    if (std::holds_alternative<qint64>(value))
        return NativeValue::write(value);
    if (const double *real = std::get_if<double>(&value)) {
        if (!std::isfinite(*real))
            return std::nullopt;
        if (!isIntegerType(type))
            return NativeValue::write(value);
        return NativeValue::write(limit == eLimit::Lower ? std::ceil(*real) : std::floor(*real));
    }
    const QString *const text = std::get_if<QString>(&value);
    const bool isNumber = text
        && (isIntegerType(type) ? Integer::fromText(*text).has_value()
                                : RealText::read(*text).has_value());
    return isNumber ? std::optional(*text) : std::nullopt;
}

std::optional<double> FunctionAnswer::scalingFactor(const FunctionValue &value)
{
    const std::optional<double> factor = number(value);
    if (!factor || !(std::abs(*factor) <= double(std::numeric_limits<float>::max()))
        || float(*factor) == 0)
        return std::nullopt;
    return double(float(*factor));
}

std::optional<quint32> FunctionAnswer::fullScale(const FunctionValue &value)
{
    const std::optional<double> scale = number(value);
    if (!scale || !(*scale >= 0 && *scale <= double(std::numeric_limits<quint32>::max()))
        || *scale != std::trunc(*scale))
        return std::nullopt;
    return quint32(*scale);
}
