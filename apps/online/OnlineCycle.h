#pragma once

#include "apps/online/ContainerValues.h"
#include "apps/online/CyclicNeeds.h"
#include "apps/online/OnlineOutcome.h"
#include "apps/online/ValueReader.h"
#include "apps/online/ValueWriter.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSet>

class OnlineClock;
class ParameterContainer;
struct OnlineRules;
enum class eOnlineAlarm;

/// Keeps a container and a drive consistent: reads what is asked for, once or again and again, and
/// writes what changes in the container.
class OnlineCycle : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller of all; they outlive the cycle.
    OnlineCycle(ParameterContainer &container, RequestExchange &exchange, OnlineClock &clock,
        const OnlineRules &rules);

    bool isRunning() const { return m_map != nullptr; }
    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// Ends the run. **Emits** finished for every value that is awaited: lost, for this reason.
    void stop(const QString &reason);

    /// Positions in the map. **Emits** finished for each, later. Only while running.
    void read(const QList<qsizetype> &values);
    /// Writes what the container has, in the order of property 45. **Emits** finished for each, later.
    void write(const QList<qsizetype> &values);

Q_SIGNALS:
    /// A value that was asked for once came or not, a write came to its end, a cyclic read failed
    /// for the first time, or what is asked for has no register (`value` is -1 then).
    void finished(qsizetype value, const OnlineOutcome &outcome);

private:
    void onChangedHere(const ParameterAddress &address);
    void onNeeded(const ParameterAddress &address, bool isNeeded);
    void onNeededOnce(const ParameterAddress &address);
    void onRang(eOnlineAlarm alarm);
    void onValueRead(qsizetype value, const QByteArray &bytes, quint32 request);
    void onValueFailed(qsizetype value, const OnlineAnswer &answer);
    void arm();
    ValuePlace placeOf(const ParameterAddress &address) const;
    void reportUnmapped(const ParameterAddress &address);
    /// Tells a parameter that waits for all its elements that one does not come.
    void cancelWaiting(const ValuePlace &place);
    void report(qsizetype value, const MappedValue &mapped, OnlineOutcome::eKind kind,
        const QString &reason = {});

    ParameterContainer &m_container;
    RequestExchange &m_exchange;
    OnlineClock &m_clock;
    ContainerValues m_values;
    ValueReader m_reader;
    ValueWriter m_writer;
    CyclicNeeds m_cyclic;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    /// Positions asked for once, by whomever.
    QSet<qsizetype> m_once;
    /// Positions asked for by parameters that wait for all their elements.
    QSet<qsizetype> m_waitedFor;
    /// Positions whose cyclic read failed and was reported.
    QSet<qsizetype> m_failed;
};
