#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include <chrono>

class OnlineClock;
class RequestExchange;
enum class eOnlineAlarm;

/// Asks a drive for one register now and then while nobody else asks for anything, so that its
/// disappearance is noticed.
class Heartbeat : public QObject {
    Q_OBJECT

public:
    using milliseconds = std::chrono::milliseconds;

    /// **Owner** the caller of both; they outlive the heartbeat. **Range** 0 for the interval: none.
    Heartbeat(RequestExchange &exchange, OnlineClock &clock, milliseconds interval);

    /// Asks the first of these units; none: there is nothing to ask for. The exchange tells when the
    /// answers are missing.
    void start(const QList<quint8> &units);
    void stop();

private:
    void onRang(eOnlineAlarm alarm);
    void arm();

    RequestExchange &m_exchange;
    OnlineClock &m_clock;
    const milliseconds m_interval;
    /// 0 while stopped.
    quint8 m_unit = 0;
    /// Of the exchange; 0 while none is under way.
    quint32 m_request = 0;
    /// Answers that had come when the alarm was set.
    quint64 m_heardBefore = 0;
};
