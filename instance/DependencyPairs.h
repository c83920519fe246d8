#pragma once

#include "instance/DependencyKey.h"

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterDefinition/eParameterProperty.h>

/// Decides who depends on a change: pure functions.
namespace DependencyPairs {

/// The property by whose number a receiver depends on a source's dependency: they are equal.
/// Not for MeasuringUnitDependency, whose receivers name the source in a unit locator.
constexpr eParameterProperty receiverProperty(eParameterProperty dependency)
{
    switch (dependency) {
    case eParameterProperty::LimitDependency:
        return eParameterProperty::LimitFunctionIndex;
    case eParameterProperty::ScalingDependency:
        return eParameterProperty::ScalingFunctionIndex;
    case eParameterProperty::PostwriteDependency:
        return eParameterProperty::PostwriteFunctionIndex;
    case eParameterProperty::PrereadDependency:
        return eParameterProperty::PrereadFunctionIndex;
    case eParameterProperty::PostreadDependency:
        return eParameterProperty::PostreadFunctionIndex;
    case eParameterProperty::PrewriteDependency:
        return eParameterProperty::PrewriteFunctionIndex;
    default:
        return eParameterProperty::HidingFunctionIndex;
    }
}

constexpr bool isDependency(eParameterProperty property)
{
    return property >= eParameterProperty::LimitDependency
        && property <= eParameterProperty::MeasuringUnitDependency;
}

/// For what the receivers of a source wait, that has the reference under the dependency property.
inline DependencyKey key(
    eParameterProperty dependency, qint32 reference, const ParameterCoordinate &source)
{
    const bool isUnit = dependency == eParameterProperty::MeasuringUnitDependency;
    return {dependency, isUnit ? source.toNumber() : reference};
}

/// A change of a global value reaches every instance of the receiver, one in an axis that axis and
/// the receiver's global instance.
constexpr bool reaches(eLivingSpace source, eLivingSpace receiver)
{
    return source == eLivingSpace::Global || receiver == eLivingSpace::Global || source == receiver;
}

} // namespace DependencyPairs
