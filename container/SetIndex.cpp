#include "container/SetIndex.h"

#include "instance/CoordinateInstanceSet.h"

#include <utility>

void SetIndex::remove(CoordinateInstanceSet *set)
{
    // The new ones first, so that removing many costs no search among them for each.
    lookAtNew();
    m_changed.remove(set);
    leave(set);
}

void SetIndex::clear()
{
    *this = SetIndex();
}

QList<CoordinateInstanceSet *> SetIndex::mappingSets()
{
    lookAtAll();
    QList<CoordinateInstanceSet *> sets;
    for (const auto &[coordinate, set] : m_mappingSets)
        sets.append(set);
    return sets;
}

QList<DependencyReceiver> SetIndex::receivers(const DependencyKey &key)
{
    lookAtAll();
    QList<DependencyReceiver> list;
    const auto found = m_receivers.constFind(key);
    if (found == m_receivers.constEnd())
        return list;
    list.reserve(qsizetype(found->size()));
    for (const auto &[coordinate, receiver] : *found)
        list.append({receiver.set, receiver.elements});
    return list;
}

void SetIndex::lookAtNew()
{
    for (CoordinateInstanceSet *set : std::exchange(m_new, {}))
        enter(set);
}

void SetIndex::lookAtAll()
{
    lookAtNew();
    for (CoordinateInstanceSet *set : std::exchange(m_changed, {})) {
        leave(set);
        enter(set);
    }
}

void SetIndex::enter(CoordinateInstanceSet *set)
{
    const QHash<DependencyKey, QList<quint16>> followed = set->followedKeys();
    const bool isMapping = set->isMapping();
    if (followed.isEmpty() && !isMapping)
        return;
    const quint16 coordinate = set->coordinate().toNumber();
    if (isMapping)
        m_mappingSets.insert_or_assign(coordinate, set);
    // Order carries no meaning.
    for (auto it = followed.cbegin(); it != followed.cend(); ++it)
        m_receivers[it.key()].insert_or_assign(coordinate, Receiver {set, it.value()});
    m_places.insert(set, {coordinate, followed.keys()});
}

void SetIndex::leave(CoordinateInstanceSet *set)
{
    const auto place = m_places.constFind(set);
    if (place == m_places.constEnd())
        return;
    const auto [coordinate, keys] = *place;
    m_places.erase(place);
    if (const auto found = m_mappingSets.find(coordinate);
        found != m_mappingSets.end() && found->second == set)
        m_mappingSets.erase(found);
    for (const DependencyKey &key : keys) {
        const auto found = m_receivers.find(key);
        if (found == m_receivers.end())
            continue;
        if (const auto at = found->find(coordinate); at != found->end() && at->second.set == set)
            found->erase(at);
        if (found->empty())
            m_receivers.erase(found);
    }
}
