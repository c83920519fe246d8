#include "apps/online/UnmappedOutcome.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

using eDirection = OnlineOutcome::eDirection;

namespace {

/// Of a place in a parameter that is not there.
QString addressText(const ValuePlace &place)
{
    const bool isGlobal = place.livingSpace == eLivingSpace::Global;
    const auto axis = quint8(isGlobal ? 0 : int(place.livingSpace) - 1);
    return ParameterAddress(axis, place.coordinate, place.element)
        .toText(isGlobal, place.element != 0);
}

} // namespace

OnlineOutcome UnmappedOutcome::of(const RegisterMap &map, ParameterContainer &container,
    const ValuePlace &place, eDirection direction)
{
    const auto parameter = container.parameterInformation(place.coordinate);
    const RegisterMap::Refusal *refusal =
        parameter ? map.refusalOf(parameter->address(place.livingSpace, place.element)) : nullptr;
    if (refusal)
        return of(*refusal, direction);
    return {place, parameter ? place.addressText(*parameter) : addressText(place),
        OnlineOutcome::eKind::Unmapped, {}, {},
        OnlineOutcome::tr("der Antrieb hat kein Register dafür"), direction == eDirection::ToDrive};
}

OnlineOutcome UnmappedOutcome::of(const RegisterMap::Refusal &refusal, eDirection direction)
{
    return {refusal.place, refusal.address, OnlineOutcome::eKind::Unmapped, {}, {},
        RegisterMap::reasonText(refusal.reason), direction == eDirection::ToDrive};
}
