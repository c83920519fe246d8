#include "apps/online/ElementWaits.h"

#include "apps/online/RegisterMap.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>

ElementWaits::ElementWaits(ParameterContainer &container)
    : m_container(container)
{
}

void ElementWaits::start(const RegisterMap &map)
{
    m_map = &map;
    m_values.clear();
}

QList<ValuePlace> ElementWaits::stop()
{
    QList<qsizetype> values(m_values.cbegin(), m_values.cend());
    std::sort(values.begin(), values.end());
    const QList<ValuePlace> places = takeLost(values);
    m_map = nullptr;
    return places;
}

void ElementWaits::add(qsizetype value)
{
    const ParameterCoordinate coordinate = m_map->values().at(value).place.coordinate;
    if (const auto parameter = m_container.parameterInformation(coordinate)) {
        connect(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled, this,
            &ElementWaits::onCanceled, Qt::UniqueConnection);
    }
    m_values.insert(value);
}

QList<ValuePlace> ElementWaits::takeLost(const QList<qsizetype> &values)
{
    QList<ValuePlace> places;
    for (const qsizetype value : values) {
        const ValuePlace &own = m_map->values().at(value).place;
        const ValuePlace place {own.coordinate, own.livingSpace, 0};
        if (m_values.remove(value) && !places.contains(place))
            places.append(place);
    }
    return places;
}

void ElementWaits::cancel(const ValuePlace &place)
{
    // Its other elements wait for nothing then.
    onCanceled(place.coordinate, place.livingSpace);
    if (const auto parameter = m_container.parameterInformation(place.coordinate))
        parameter->cancelAllElementsConsistenceOnce(place.livingSpace);
}

void ElementWaits::onCanceled(const ParameterCoordinate &coordinate, eLivingSpace livingSpace)
{
    if (!m_map)
        return;
    const bool isGlobal = m_container.isGlobalParameter(coordinate);
    const auto [first, last] =
        m_map->positionsOf(coordinate, isGlobal ? eLivingSpace::Global : livingSpace);
    for (qsizetype value = first; value <= last; ++value)
        m_values.remove(value);
}
