#include "apps/online/TransferScope.h"

#include "apps/online/RegisterMap.h"
#include "apps/online/UnmappedOutcome.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <vector>

using eDirection = OnlineTransfer::eDirection;

OnlineTransfer::Scope TransferScope::ofUpload(
    const RegisterMap &map, const IsInProject &isInProject)
{
    OnlineTransfer::Scope scope;
    scope.values.reserve(map.values().size());
    for (qsizetype i = 0; i < map.values().size(); ++i) {
        const MappedValue &value = map.values().at(i);
        if (isInProject(value))
            scope.values.append(i);
        else
            scope.unmapped.append(OnlineOutcome::ofRead(value, OnlineOutcome::eKind::Unmapped));
    }
    for (const RegisterMap::Refusal &refusal : map.refusals())
        scope.unmapped.append(UnmappedOutcome::of(refusal, eDirection::FromDrive));
    return scope;
}

OnlineTransfer::Scope TransferScope::ofDownload(
    const RegisterMap &map, const IsInProject &isInProject)
{
    OnlineTransfer::Scope scope;
    for (qsizetype i = 0; i < map.values().size(); ++i) {
        const MappedValue &value = map.values().at(i);
        if (value.isSetting() && isInProject(value))
            scope.values.append(i);
    }
    for (const RegisterMap::Refusal &refusal : map.refusals()) {
        if (refusal.isSetting)
            scope.unmapped.append(UnmappedOutcome::of(refusal, eDirection::ToDrive));
    }
    return scope;
}

OnlineTransfer::Scope TransferScope::ofPlaces(const RegisterMap &map, ParameterContainer &container,
    const QList<ValuePlace> &places, eDirection direction)
{
    OnlineTransfer::Scope scope;
    std::vector<bool> isNamed(std::size_t(map.values().size()));
    for (const ValuePlace &place : places) {
        const qsizetype value = positionOf(map, container, place);
        if (value < 0)
            scope.unmapped.append(UnmappedOutcome::of(map, container, place, direction));
        else if (!isNamed[std::size_t(value)])
            scope.values.append(value);
        if (value >= 0)
            isNamed[std::size_t(value)] = true;
    }
    return scope;
}

qsizetype TransferScope::positionOf(
    const RegisterMap &map, ParameterContainer &container, const ValuePlace &place)
{
    const auto parameter = container.parameterInformation(place.coordinate);
    return parameter ? map.indexOf(parameter->address(place.livingSpace, place.element)) : -1;
}
