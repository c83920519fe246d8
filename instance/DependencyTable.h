#pragma once

#include <KrParameterDefinition/eParameterProperty.h>

#include <array>

/// The dependencies of a value in the order in which they are dispatched: first what the value may be
/// (limits, scaling), then the functions around writing and reading, then what is shown.
constexpr std::array<eParameterProperty, 8> DependencyOrder {
    eParameterProperty::LimitDependency,
    eParameterProperty::ScalingDependency,
    eParameterProperty::PostwriteDependency,
    eParameterProperty::PrereadDependency,
    eParameterProperty::PostreadDependency,
    eParameterProperty::PrewriteDependency,
    eParameterProperty::HidingDependency,
    eParameterProperty::MeasuringUnitDependency,
};
