#pragma once

#include "apps/online/OnlineClock.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <array>

/// The system's monotonic time.
class SystemOnlineClock final : public OnlineClock {
    Q_OBJECT

public:
    SystemOnlineClock();

    std::chrono::milliseconds now() const override;
    void setAlarm(eOnlineAlarm alarm, std::chrono::milliseconds at) override;
    void clearAlarm(eOnlineAlarm alarm) override;

private:
    QElapsedTimer m_elapsed;
    std::array<QTimer, OnlineAlarmCount> m_timers;
};
