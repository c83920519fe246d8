#include "apps/online/CyclicNeeds.h"

#include "apps/online/RegisterMap.h"

#include <algorithm>

using std::chrono::milliseconds;

void CyclicNeeds::add(const ParameterAddress &address, milliseconds due)
{
    m_addresses.insert(address);
    const qsizetype value = m_map ? m_map->indexOf(address) : -1;
    if (value >= 0 && !contains(value))
        wait(value, due);
}

void CyclicNeeds::remove(const ParameterAddress &address)
{
    m_addresses.remove(address);
    const qsizetype value = m_map ? m_map->indexOf(address) : -1;
    if (value >= 0)
        m_states[std::size_t(value)].step = eStep::NotNeeded;
}

void CyclicNeeds::clear()
{
    *this = CyclicNeeds(m_interval);
}

void CyclicNeeds::setMap(const RegisterMap *map, milliseconds now)
{
    m_map = map;
    m_states.assign(map ? std::size_t(map->values().size()) : 0, State());
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

bool CyclicNeeds::contains(qsizetype value) const
{
    return std::size_t(value) < m_states.size()
        && m_states[std::size_t(value)].step != eStep::NotNeeded;
}

QList<qsizetype> CyclicNeeds::takeDue(milliseconds now)
{
    QList<qsizetype> values;
    while (!m_dues.isEmpty() && m_dues.firstKey() <= now) {
        const milliseconds due = m_dues.firstKey();
        for (const qsizetype value : m_dues.take(due)) {
            State &state = m_states[std::size_t(value)];
            if (state.step != eStep::Waiting || state.due != due)
                continue;
            state.step = eStep::OnItsWay;
            values.append(value);
        }
    }
    return values;
}

void CyclicNeeds::done(qsizetype value, milliseconds now)
{
    if (contains(value) && m_states[std::size_t(value)].step == eStep::OnItsWay)
        wait(value, now + std::max(m_interval, m_map->values().at(value).cyclicInterval));
}

std::optional<milliseconds> CyclicNeeds::nextDue() const
{
    return m_dues.isEmpty() ? std::nullopt : std::optional(m_dues.firstKey());
}

void CyclicNeeds::wait(qsizetype value, milliseconds due)
{
    m_states[std::size_t(value)] = {eStep::Waiting, due};
    m_dues[due].append(value);
}
