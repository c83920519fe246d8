#pragma once

#include <QtCore/QString>

/// Tells what one least significant bit of a value means.
namespace ScalingInformation {

/// The factor that leads from the scaled to the fieldbus value, in fieldbus steps a scaled step.
/// 0 where a factor is missing.
double fieldbusNativeFactor(double fieldbusFactor, double scalingFactor);
/// "1 LSB = 0.1 mA"; "1 LSB" alone where the factor is missing (0).
QString text(double factor, const QString &unit);

} // namespace ScalingInformation
