#include "apps/host/ContainerComparison.h"

#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

namespace {

/// What a save keeps of one value.
QStringList keptTexts(const ParameterInformation &parameter, const ValuePlace &place)
{
    const eLivingSpace livingSpace = place.livingSpace;
    const quint16 element = place.element;
    return {parameter.nativeValueText(livingSpace, element, false),
        parameter.attribute(livingSpace, element, QStringLiteral("ValueChangeTag")),
        parameter.defaultNativeValueText(livingSpace, element),
        parameter.attribute(livingSpace, element, QStringLiteral("DefaultValueChangeTag"))};
}

QString addressIn(ParameterContainer &container, const ValuePlace &place)
{
    return place.addressText(*container.parameterInformation(place.coordinate));
}

} // namespace

ContainerComparison ContainerComparison::of(ParameterContainer &left, ParameterContainer &right)
{
    ContainerComparison comparison;
    const QList<ValuePlace> places = ValuePlace::allOf(left);
    const QList<ValuePlace> others = ValuePlace::allOf(right);
    for (const ValuePlace &place : places) {
        const auto ours = left.parameterInformation(place.coordinate);
        const auto theirs = right.parameterInformation(place.coordinate);
        ++comparison.valuesCompared;
        const bool isEqual = theirs && theirs->hasInstance(place.livingSpace)
            && theirs->elementCount() == ours->elementCount()
            && keptTexts(*ours, place) == keptTexts(*theirs, place);
        if (!isEqual)
            comparison.differences.append(place.addressText(*ours));
    }
    if (places == others)
        return comparison;
    for (const ValuePlace &place : others) {
        const auto ours = left.parameterInformation(place.coordinate);
        if (!ours || !ours->hasInstance(place.livingSpace)
            || !ours->elementSet().contains(place.element))
            comparison.differences.append(addressIn(right, place));
    }
    return comparison;
}
