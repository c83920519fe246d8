#include "container/SetIndex.h"

#include "instance/CoordinateInstanceSet.h"

#include <algorithm>
#include <utility>

void SetIndex::remove(CoordinateInstanceSet *set)
{
    // The new ones first, so that removing many costs no search among them for each.
    lookAtNew();
    leave(set);
}

void SetIndex::update(CoordinateInstanceSet *set)
{
    remove(set);
    enter(set);
}

void SetIndex::clear()
{
    *this = SetIndex();
}

const QList<CoordinateInstanceSet *> &SetIndex::mappingSets()
{
    lookAtNew();
    return m_mappingSets;
}

QList<QPointer<CoordinateInstanceSet>> SetIndex::receivers(const DependencyKey &key)
{
    lookAtNew();
    const auto found = m_receivers.find(key);
    if (found == m_receivers.end())
        return {};
    if (!std::exchange(found->isSorted, true)) {
        std::sort(found->sets.begin(), found->sets.end(),
            [](const CoordinateInstanceSet *a, const CoordinateInstanceSet *b) {
                return a->coordinate() < b->coordinate();
            });
    }
    return {found->sets.cbegin(), found->sets.cend()};
}

void SetIndex::lookAtNew()
{
    for (CoordinateInstanceSet *set : std::exchange(m_new, {}))
        enter(set);
}

void SetIndex::enter(CoordinateInstanceSet *set)
{
    if (set->isMapping())
        m_mappingSets.append(set);
    const QList<DependencyKey> keys = set->dependencyKeys();
    for (const DependencyKey &key : keys) {
        Receivers &receivers = m_receivers[key];
        receivers.isSorted = receivers.sets.isEmpty();
        receivers.sets.append(set);
    }
    if (!keys.isEmpty())
        m_keys.insert(set, keys);
}

void SetIndex::leave(CoordinateInstanceSet *set)
{
    m_mappingSets.removeOne(set);
    for (const DependencyKey &key : m_keys.take(set)) {
        const auto found = m_receivers.find(key);
        found->sets.removeOne(set);
        if (found->sets.isEmpty())
            m_receivers.erase(found);
    }
}
