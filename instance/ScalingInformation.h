#pragma once

#include <QtCore/QString>

/// Tells what one least significant bit of a value means.
namespace ScalingInformation {

/// The factor that leads from the scaled to the fieldbus value, in fieldbus steps a scaled step.
/// 0 where a factor is missing.
double fieldbusNativeFactor(double fieldbusFactor, double scalingFactor);
/// Whether there is a factor that can be told: as a 32-bit float, which it is shown as, neither 0 nor
/// infinite.
bool isShown(double factor);
/// "1 LSB = 0.1 mA"; "1 LSB" alone where no factor is shown.
QString text(double factor, const QString &unit);

} // namespace ScalingInformation
