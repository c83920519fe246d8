#pragma once

#include "apps/online/OnlineClock.h"

#include <array>
#include <optional>

/// Time that stands still until the test moves it.
class FakeClock final : public OnlineClock {
public:
    using milliseconds = std::chrono::milliseconds;

    milliseconds now() const override { return m_now; }
    void setAlarm(eOnlineAlarm alarm, milliseconds at) override { m_alarms[size_t(alarm)] = at; }
    void clearAlarm(eOnlineAlarm alarm) override { m_alarms[size_t(alarm)].reset(); }

    std::optional<milliseconds> alarm(eOnlineAlarm alarm) const { return m_alarms[size_t(alarm)]; }
    /// Rings everything that is due on the way, in order of time.
    void advance(int span)
    {
        const milliseconds end = m_now + milliseconds(span);
        while (true) {
            int next = -1;
            for (int i = 0; i < int(m_alarms.size()); ++i) {
                const auto &at = m_alarms[size_t(i)];
                if (at && *at <= end && (next < 0 || *at < *m_alarms[size_t(next)]))
                    next = i;
            }
            if (next < 0)
                break;
            m_now = std::max(m_now, *m_alarms[size_t(next)]);
            m_alarms[size_t(next)].reset();
            Q_EMIT rang(eOnlineAlarm(next));
        }
        m_now = end;
    }

private:
    milliseconds m_now {0};
    std::array<std::optional<milliseconds>, OnlineAlarmCount> m_alarms;
};
