#pragma once

#include "FunctionOutcome.h"

#include <QtCore/QString>

#include <optional>

class SimpleType;

/// What the values mean that functions return, by kind. Nothing where a value is not of the kind's
/// type.
namespace FunctionAnswer {

enum class eLimit { Lower, Upper };

/// A number or a text of one, as native text of the type. Between two whole numbers an integer
/// type's limit is the one inside.
std::optional<QString> limit(const FunctionValue &value, const SimpleType &type, eLimit limit);
/// A number that a 32-bit float holds, widened; not 0.
std::optional<double> scalingFactor(const FunctionValue &value);
/// A whole number of 32 bits.
std::optional<quint32> fullScale(const FunctionValue &value);

} // namespace FunctionAnswer
