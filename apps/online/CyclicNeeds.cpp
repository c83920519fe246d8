#include "apps/online/CyclicNeeds.h"

#include "apps/online/RegisterMap.h"

#include <algorithm>

using std::chrono::milliseconds;

void CyclicNeeds::add(const ParameterAddress &address, milliseconds now)
{
    m_addresses.insert(address);
    const qsizetype value = m_map ? m_map->indexOf(address) : -1;
    if (value >= 0 && !m_dues.contains(value))
        m_dues.insert(value, now);
}

void CyclicNeeds::remove(const ParameterAddress &address)
{
    m_addresses.remove(address);
    if (m_map)
        m_dues.remove(m_map->indexOf(address));
}

void CyclicNeeds::setMap(const RegisterMap *map, milliseconds now)
{
    m_map = map;
    m_dues.clear();
    const QSet<ParameterAddress> addresses = m_map ? m_addresses : QSet<ParameterAddress>();
    for (const ParameterAddress &address : addresses)
        add(address, now);
}

QList<ParameterAddress> CyclicNeeds::unmapped() const
{
    QList<ParameterAddress> addresses;
    for (const ParameterAddress &address : m_addresses) {
        if (m_map && m_map->indexOf(address) < 0)
            addresses.append(address);
    }
    std::sort(addresses.begin(), addresses.end());
    return addresses;
}

QList<qsizetype> CyclicNeeds::takeDue(milliseconds now)
{
    QList<qsizetype> values;
    for (auto it = m_dues.begin(); it != m_dues.end(); ++it) {
        if (!it->has_value() || **it > now)
            continue;
        it->reset();
        values.append(it.key());
    }
    return values;
}

void CyclicNeeds::done(qsizetype value, milliseconds now)
{
    const auto found = m_dues.find(value);
    if (found != m_dues.end())
        *found = now + std::max(m_interval, m_map->values().at(value).cyclicInterval);
}

std::optional<milliseconds> CyclicNeeds::nextDue() const
{
    std::optional<milliseconds> next;
    for (const std::optional<milliseconds> &due : m_dues) {
        if (due && (!next || *due < *next))
            next = due;
    }
    return next;
}
