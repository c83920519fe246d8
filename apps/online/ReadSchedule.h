#pragma once

#include "apps/online/CyclicNeeds.h"

#include <QtCore/QObject>

class DriveReader;
class OnlineClock;
class RegisterMap;
struct OnlineRules;
enum class eOnlineAlarm;

/// Says when which value is read: at the next turn, again and again, or until it comes.
class ReadSchedule : public QObject {
    Q_OBJECT

public:
    using milliseconds = std::chrono::milliseconds;

    /// **Owner** the caller of reader and clock; they outlive this.
    ReadSchedule(DriveReader &reader, OnlineClock &clock, const OnlineRules &rules);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// What is to be read again and again is remembered.
    void stop();

    /// At the next turn: what is asked for value by value goes out in blocks.
    void want(qsizetype value);
    void want(const QList<qsizetype> &values);
    /// Again and again; also while stopped.
    void need(const ParameterAddress &address);
    void needNoMore(const ParameterAddress &address);
    milliseconds now() const;
    /// Wanted or on its way.
    bool isAwaited(qsizetype value) const;
    bool isCyclic(qsizetype value) const { return m_cyclic.contains(value); }
    /// What is needed and the map lacks, in order.
    QList<ParameterAddress> unmapped() const { return m_cyclic.unmapped(); }
    enum class eFirst { Now, Later };
    /// What the drive has is not known: reads it until it comes.
    void chase(qsizetype value, eFirst first);

    /// The value came, and is known now.
    void came(qsizetype value, milliseconds now);
    /// It did not, or what came was not taken. Its next read is due an interval later.
    void failed(qsizetype value, milliseconds now);
    /// Behind those two.
    void arm();

private:
    void onRang(eOnlineAlarm alarm);

    DriveReader &m_reader;
    OnlineClock &m_clock;
    CyclicNeeds m_cyclic;
    /// The values of which the container has something else than the drive, read until they come.
    CyclicNeeds m_unknown;
    /// Before an unknown value is asked for once more.
    const milliseconds m_unknownPause;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
};
