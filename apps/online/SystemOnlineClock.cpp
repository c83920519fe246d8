#include "apps/online/SystemOnlineClock.h"

#include <algorithm>

using std::chrono::milliseconds;

SystemOnlineClock::SystemOnlineClock()
{
    m_elapsed.start();
    for (std::size_t i = 0; i < m_timers.size(); ++i) {
        m_timers[i].setSingleShot(true);
        m_timers[i].setTimerType(Qt::PreciseTimer);
        connect(&m_timers[i], &QTimer::timeout, this, [this, i] { Q_EMIT rang(eOnlineAlarm(i)); });
    }
}

milliseconds SystemOnlineClock::now() const
{
    return milliseconds(m_elapsed.elapsed());
}

void SystemOnlineClock::setAlarm(eOnlineAlarm alarm, milliseconds at)
{
    constexpr milliseconds LongestSpan = std::chrono::hours(24);
    m_timers[std::size_t(alarm)].start(std::clamp(at - now(), milliseconds(0), LongestSpan));
}

void SystemOnlineClock::clearAlarm(eOnlineAlarm alarm)
{
    m_timers[std::size_t(alarm)].stop();
}
