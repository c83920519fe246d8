#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>

QList<ValuePlace> ValuePlace::allOf(ParameterContainer &container)
{
    QList<ParameterCoordinate> coordinates = container.parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    QList<ValuePlace> places;
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates)) {
        if (const QPointer<ParameterInformation> parameter =
                container.parameterInformation(coordinate))
            places += allOf(*parameter);
    }
    return places;
}

QList<ValuePlace> ValuePlace::allOf(const ParameterInformation &parameter)
{
    const ParameterCoordinate coordinate = parameter.coordinate();
    const QList<quint16> elements = parameter.elementList();
    QList<ValuePlace> places;
    for (const eLivingSpace livingSpace : parameter.livingSpaces()) {
        for (const quint16 element : elements)
            places.append({coordinate, livingSpace, element});
    }
    return places;
}

ValuePlace ValuePlace::of(const ParameterAddress &address, const ParameterInformation &parameter)
{
    const auto livingSpace =
        parameter.isGlobalParameter() ? eLivingSpace::Global : eLivingSpace(address.axis() + 1);
    return {address.coordinate(), livingSpace, address.element()};
}

QString ValuePlace::addressText(const ParameterInformation &parameter) const
{
    const bool withElement = parameter.isRecordParameter() || parameter.elementCount() > 1;
    return parameter.address(livingSpace, element)
        .toText(parameter.isGlobalParameter(), withElement);
}
