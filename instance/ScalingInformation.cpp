#include "instance/ScalingInformation.h"

#include <KrParameterDefinition/ParameterProperty.h>

#include <cmath>
#include <limits>

double ScalingInformation::fieldbusNativeFactor(double fieldbusFactor, double scalingFactor)
{
    return scalingFactor == 0.0 ? 0.0 : fieldbusFactor / scalingFactor;
}

bool ScalingInformation::isShown(double factor)
{
    // Tested before the conversion, which has no meaning beyond the range. False for NaN too.
    return std::abs(factor) <= double(std::numeric_limits<float>::max()) && float(factor) != 0.0F;
}

QString ScalingInformation::text(double factor, const QString &unit)
{
    if (!isShown(factor))
        return QStringLiteral("1 LSB");
    // The factors are 32-bit floats: shown as the shortest text that reads back as the same float.
    QString text =
        QLatin1String("1 LSB = ") + ParameterProperty(QVariant(float(factor))).asString();
    if (!unit.isEmpty())
        text += QLatin1Char(' ') + unit;
    return text;
}
