#pragma once

#include <QtCore/QObject>

#include <chrono>

/// What waits for a time; each has one alarm.
enum class eOnlineAlarm {
    Exchange, ///< An answer is overdue, or a pause is over.
    Cycle, ///< Values are to be asked for.
    Contact, ///< The line is to be opened, or did not open in time.
    Heartbeat, ///< Nobody has asked the drive for anything.
};
constexpr int OnlineAlarmCount = 4;

/// The time of an online session.
class OnlineClock : public QObject {
    Q_OBJECT

public:
    ~OnlineClock() override;

    /// Since any fixed moment; never goes back.
    virtual std::chrono::milliseconds now() const = 0;
    /// Replaces what was set for this alarm; a time that is over rings at the next turn of the loop.
    virtual void setAlarm(eOnlineAlarm alarm, std::chrono::milliseconds at) = 0;
    virtual void clearAlarm(eOnlineAlarm alarm) = 0;

Q_SIGNALS:
    void rang(eOnlineAlarm alarm);
};
