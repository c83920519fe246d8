#pragma once

#include "ScalingFactor.h"

#include <QtCore/QString>

#include <optional>

/// Scales short numbers in 64-bit registers, with the same answers as the exact decimal arithmetic
/// that serves every other one. Nearly all values of a drive are short.
namespace ShortScaling {

/// A plain whole number of up to nine digits times the factor; nothing where it does not apply.
std::optional<QString> scaled(QStringView text, const ScalingFactor &factor);
/// A plain decimal divided by the factor, rounded to the nearest whole number, half away from zero;
/// nothing where it does not apply.
std::optional<QString> unscaled(QStringView text, const ScalingFactor &factor);

} // namespace ShortScaling
