#include "apps/krparameter/LoneValue.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>
#include <array>

using P = eParameterProperty;

namespace {

/// 0 where there is none.
constexpr std::array Ties {P::PrereadFunctionIndex, P::PrewriteFunctionIndex,
    P::PostwriteFunctionIndex, P::PostreadFunctionIndex, P::HidingFunctionIndex,
    P::LimitFunctionIndex, P::ScalingFunctionIndex, P::LimitDependency, P::ScalingDependency,
    P::PostwriteDependency, P::PrereadDependency, P::PostreadDependency, P::PrewriteDependency,
    P::HidingDependency, P::MeasuringUnitDependency};

constexpr std::array Units {
    P::ScaledMeasuringUnit, P::NativeMeasuringUnit, P::FieldbusMeasuringUnit};

constexpr qint32 MappingKind = 11;

} // namespace

bool LoneValue::isLone(const ParameterInformation &parameter, quint16 element)
{
    const auto number = [&](P property) {
        return parameter.elementProperty(element, property).asInt32();
    };
    // "<localAxis:E12>" names the parameter whose value is the unit.
    const auto isLocator = [&](P property) {
        return parameter.elementProperty(element, property).asString().startsWith(u'<');
    };
    return std::all_of(Ties.begin(), Ties.end(), [&](P tie) { return number(tie) == 0; })
        && std::none_of(Units.begin(), Units.end(), isLocator)
        && number(P::ParameterKind) != MappingKind;
}
