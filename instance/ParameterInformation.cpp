#include <KrParameterInstance/ParameterInformation.h>

#include "instance/MeasuringUnitResolver.h"

#include <QtCore/QPointer>

ParameterInformation::ParameterInformation(QObject *parent)
    : QObject(parent)
{
}

ParameterInformation::~ParameterInformation() = default;

/// The text of the located parameter may come from the firmware, which may remove this one.
ParameterText ParameterInformation::measuringUnit(
    eParameterProperty unit, eLivingSpace livingSpace, quint16 element) const
{
    using enum eParameterProperty;
    if (unit != ScaledMeasuringUnit && unit != NativeMeasuringUnit && unit != FieldbusMeasuringUnit)
        return {};
    const ParameterProperty property = elementProperty(element, unit);
    if (!property.isValid())
        return {};
    const QPointer<const ParameterInformation> self(this);
    const ParameterCoordinate coordinate = this->coordinate();
    const MeasuringUnitResolver::Outcome outcome =
        MeasuringUnitResolver::resolve(property, parameterContainer(), livingSpace);
    if (!self)
        return {};
    MeasuringUnitResolver::report(outcome.problem, unit, coordinate);
    return outcome.unit;
}
