#include "apps/online/ReadSchedule.h"

#include "apps/online/DriveReader.h"
#include "apps/online/OnlineClock.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterMap.h"

#include <algorithm>

using std::chrono::milliseconds;

namespace {

std::optional<milliseconds> earliest(std::optional<milliseconds> a, std::optional<milliseconds> b)
{
    return a && b ? std::min(*a, *b) : (a ? a : b);
}

} // namespace

ReadSchedule::ReadSchedule(DriveReader &reader, OnlineClock &clock, const OnlineRules &rules)
    : m_reader(reader)
    , m_clock(clock)
    , m_cyclic(rules.cycleInterval)
    , m_unknown(rules.longestPause)
    , m_unknownPause(rules.longestPause)
{
    connect(&clock, &OnlineClock::rang, this, &ReadSchedule::onRang);
}

void ReadSchedule::start(const RegisterMap &map)
{
    m_map = &map;
    m_cyclic.setMap(&map, m_clock.now());
    m_unknown.setMap(&map, m_clock.now());
    arm();
}

void ReadSchedule::stop()
{
    m_map = nullptr;
    m_cyclic.setMap(nullptr, m_clock.now());
    m_unknown.clear();
    m_clock.clearAlarm(eOnlineAlarm::Cycle);
}

void ReadSchedule::want(qsizetype value)
{
    m_reader.want(value);
    arm();
}

void ReadSchedule::want(const QList<qsizetype> &values)
{
    m_reader.want(values);
    arm();
}

void ReadSchedule::need(const ParameterAddress &address)
{
    m_cyclic.add(address, m_clock.now());
    arm();
}

void ReadSchedule::needNoMore(const ParameterAddress &address)
{
    m_cyclic.remove(address);
}

milliseconds ReadSchedule::now() const
{
    return m_clock.now();
}

bool ReadSchedule::isAwaited(qsizetype value) const
{
    return m_reader.isAwaited(value);
}

void ReadSchedule::chase(qsizetype value, eFirst first)
{
    const milliseconds pause = first == eFirst::Now ? milliseconds(0) : m_unknownPause;
    m_unknown.add(m_map->values().at(value).address, m_clock.now() + pause);
    arm();
}

void ReadSchedule::came(qsizetype value, milliseconds now)
{
    m_cyclic.done(value, now);
    if (m_unknown.contains(value))
        m_unknown.remove(m_map->values().at(value).address);
}

void ReadSchedule::failed(qsizetype value, milliseconds now)
{
    m_cyclic.done(value, now);
    m_unknown.done(value, now);
}

void ReadSchedule::arm()
{
    if (!m_map)
        return;
    if (m_reader.hasUnsent())
        m_clock.setAlarm(eOnlineAlarm::Cycle, m_clock.now());
    else if (const auto due = earliest(m_cyclic.nextDue(), m_unknown.nextDue()))
        m_clock.setAlarm(eOnlineAlarm::Cycle, *due);
}

void ReadSchedule::onRang(eOnlineAlarm alarm)
{
    if (alarm != eOnlineAlarm::Cycle || !m_map)
        return;
    for (CyclicNeeds *needs : {&m_cyclic, &m_unknown}) {
        for (const qsizetype value : needs->takeDue(m_clock.now()))
            m_reader.want(value);
    }
    m_reader.send();
    arm();
}
