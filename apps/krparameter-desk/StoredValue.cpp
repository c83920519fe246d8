#include "apps/krparameter-desk/StoredValue.h"

#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

StoredValue StoredValue::of(ParameterContainer &container, const ValuePlace &place)
{
    const auto parameter = container.parameterInformation(place.coordinate);
    if (!parameter)
        return {};
    return {parameter->nativeValueText(place.livingSpace, place.element, false),
        parameter->attribute(place.livingSpace, place.element, QStringLiteral("ValueChangeTag"))};
}

void StoredValue::storeIn(ParameterContainer &container, const ValuePlace &place) const
{
    container.writeValueNative(place.livingSpace, place.coordinate, place.element, native);
    // The write may have had the parameter removed.
    if (const auto parameter = container.parameterSetup(place.coordinate))
        parameter->setValueChangeTag(place.livingSpace, place.element, changeTag);
}
