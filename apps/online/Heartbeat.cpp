#include "apps/online/Heartbeat.h"

#include "apps/online/OnlineClock.h"
#include "apps/online/RequestExchange.h"

using std::chrono::milliseconds;

Heartbeat::Heartbeat(RequestExchange &exchange, OnlineClock &clock, milliseconds interval)
    : m_exchange(exchange)
    , m_clock(clock)
    , m_interval(interval)
{
    connect(&clock, &OnlineClock::rang, this, &Heartbeat::onRang);
    connect(&exchange, &RequestExchange::finished, this, [this](quint32 request) {
        if (request == m_request)
            arm();
    });
}

void Heartbeat::start(const QList<quint8> &units)
{
    m_unit = units.value(0);
    arm();
}

void Heartbeat::stop()
{
    m_unit = 0;
    m_request = 0;
    m_clock.clearAlarm(eOnlineAlarm::Heartbeat);
}

void Heartbeat::onRang(eOnlineAlarm alarm)
{
    if (alarm != eOnlineAlarm::Heartbeat || m_unit == 0)
        return;
    if (m_exchange.isIdle() && m_exchange.heard() == m_heardBefore)
        m_request = m_exchange.read({m_unit, 0, 1}, milliseconds(0));
    else
        arm();
}

void Heartbeat::arm()
{
    if (m_unit == 0 || m_interval.count() <= 0)
        return;
    m_request = 0;
    m_heardBefore = m_exchange.heard();
    m_clock.setAlarm(eOnlineAlarm::Heartbeat, m_clock.now() + m_interval);
}
