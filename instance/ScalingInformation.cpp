#include "instance/ScalingInformation.h"

#include <KrParameterDefinition/ParameterProperty.h>

double ScalingInformation::fieldbusNativeFactor(double fieldbusFactor, double scalingFactor)
{
    return scalingFactor == 0.0 ? 0.0 : fieldbusFactor / scalingFactor;
}

QString ScalingInformation::text(double factor, const QString &unit)
{
    if (factor == 0.0)
        return QStringLiteral("1 LSB");
    // The factors are 32-bit floats: shown as the shortest text that reads back as the same float.
    QString text =
        QLatin1String("1 LSB = ") + ParameterProperty(QVariant(float(factor))).asString();
    if (!unit.isEmpty())
        text += QLatin1Char(' ') + unit;
    return text;
}
