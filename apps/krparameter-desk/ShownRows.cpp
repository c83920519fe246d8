#include "apps/krparameter-desk/ShownRows.h"

void ShownRows::setPlaces(const QList<ValuePlace> &places)
{
    m_livingSpaces.clear();
    m_livingSpaces.reserve(places.size());
    for (const ValuePlace &place : places)
        m_livingSpaces.append(place.livingSpace);
    m_isVisible.fill(false, places.size());
    m_found.clear();
    update();
}

void ShownRows::update()
{
    const int size = int(m_livingSpaces.size());
    m_rows.clear();
    m_shownRowOf.fill(NotShown, size);
    int *shownRowOf = m_shownRowOf.data();
    m_searchableCount = 0;
    for (int row = 0; row < size; ++row) {
        if (!m_isVisible.at(row) || !isOnAxis(row))
            continue;
        ++m_searchableCount;
        if (!m_found.isEmpty() && !m_found.at(row))
            continue;
        shownRowOf[row] = int(m_rows.size());
        m_rows.append(row);
    }
}

bool ShownRows::isOnAxis(int row) const
{
    const eLivingSpace livingSpace = m_livingSpaces.at(row);
    return !m_axis || livingSpace == eLivingSpace::Global || livingSpace == *m_axis;
}
