#pragma once

#include "apps/online/OnlineAnswer.h"
#include "apps/online/OnlineOutcome.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

class ContainerValues;
class RegisterMap;
class RequestExchange;
struct MappedValue;

/// Writes values and reads each one back, so that the container has what the drive made of it.
class ValueWriter : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller of both; they outlive the writer.
    ValueWriter(RequestExchange &exchange, ContainerValues &values);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// The values that were under way. **Emits** nothing.
    QList<qsizetype> stop();

    /// What the container has now. A value that is under way is written once more when it is back.
    void write(qsizetype value);
    bool isUnderWay(qsizetype value) const { return m_pending.contains(value); }
    /// The last request that read the value back; 0 where it was never written. What an earlier
    /// request reads is older than that.
    quint32 lastReadBack(qsizetype value) const { return m_lastReadBacks.value(value); }

Q_SIGNALS:
    void finished(qsizetype value, const OnlineOutcome &outcome);

private:
    struct Pending {
        QString sent;
        OnlineAnswer answer;
        bool isReadBack = false;
        bool isToBeRepeated = false;
    };

    void send(qsizetype value);
    void onFinished(quint32 request, const OnlineAnswer &answer);
    void conclude(qsizetype value, const OnlineAnswer &answer);
    OnlineOutcome outcomeOf(const MappedValue &value, const Pending &pending) const;

    RequestExchange &m_exchange;
    ContainerValues &m_values;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    QHash<qsizetype, Pending> m_pending;
    /// Request to value.
    QHash<quint32, qsizetype> m_requests;
    QHash<qsizetype, quint32> m_lastReadBacks;
};
