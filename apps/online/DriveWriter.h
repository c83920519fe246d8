#pragma once

#include "apps/online/BlockPlan.h"
#include "apps/online/OnlineAnswer.h"
#include "apps/online/OnlineOutcome.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QSet>

#include <deque>

class ContainerValues;
class RegisterMap;
class RequestExchange;
struct MappedValue;

/// Writes values and reads each one back, so that the container has what the drive made of it.
class DriveWriter : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller of both; they outlive the writer.
    DriveWriter(RequestExchange &exchange, ContainerValues &values);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// The values that were under way. **Emits** nothing.
    QList<qsizetype> stop();

    /// What the container has now. A value that is under way with something else is written once more
    /// when it is back.
    void write(qsizetype value);
    /// Likewise, in the order of property 45: a value waits until those before it have been read back,
    /// so that no repetition overtakes.
    void writeInOrder(const QList<qsizetype> &values);
    /// Also while it waits for its turn.
    bool isUnderWay(qsizetype value) const { return m_pending.contains(value); }
    bool isIdle() const { return m_pending.isEmpty(); }
    /// The last request that read the value back; 0 where it was never written. What an earlier
    /// request reads is older than that.
    quint32 lastReadBack(qsizetype value) const { return m_lastReadBacks.value(value); }

Q_SIGNALS:
    /// Elements of a record came with the command at its head: they are to be taken before it.
    /// `bytes` are those of all registers of the block, `request` is the number of the exchange's
    /// request.
    void recordReadBack(const BlockPlan::Block &block, const QByteArray &bytes, quint32 request);
    /// A command at the head of a record came without its record, and is not stored yet. Behind finished.
    void headReadBack(const BlockPlan::Block &block, const QByteArray &bytes, quint32 request);
    /// What the drive has now could not be read; the container has what was to be written. Behind
    /// finished.
    void leftUnknown(qsizetype value);
    void finished(qsizetype value, const OnlineOutcome &outcome);

private:
    enum class eStep { WaitingForItsTurn, Sent, ReadBack };

    struct Pending {
        eStep step = eStep::Sent;
        QString sent;
        OnlineAnswer answer;
        bool isToBeRepeated = false;
        /// While it is read back: of the value, or of all elements of its record.
        RegisterSpan readBack {};
    };

    void send(qsizetype value);
    /// Sends the next ones of equal order where all before them are back.
    void sendNext();
    void onFinished(quint32 request, const OnlineAnswer &answer);
    void readBack(qsizetype value, const RegisterSpan &span);
    /// Of a command at the head of a record that of all elements: it may be over already, and who hears
    /// of that wants the result.
    RegisterSpan readBackSpan(const MappedValue &value) const;
    void concludeUnknown(qsizetype value, const OnlineAnswer &answer);
    void conclude(qsizetype value, quint32 request, const OnlineAnswer &answer);
    /// What was read back beside the value is taken before it.
    void takeOthers(
        qsizetype value, const RegisterSpan &span, const QByteArray &bytes, quint32 request);
    /// The other elements may be over already, too: they are not known.
    void concludeHead(qsizetype value, quint32 request, const QByteArray &bytes);
    bool isHeadAlone(const MappedValue &value, const RegisterSpan &span) const;
    void finish(qsizetype value, const OnlineOutcome &outcome);
    static OnlineOutcome outcomeOf(
        const MappedValue &value, const Pending &pending, const QString &kept);

    RequestExchange &m_exchange;
    ContainerValues &m_values;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    QHash<qsizetype, Pending> m_pending;
    /// Request to value.
    QHash<quint32, qsizetype> m_requests;
    QHash<qsizetype, quint32> m_lastReadBacks;
    /// Those that wait for their turn, in order.
    std::deque<qsizetype> m_queue;
    /// Those whose turn it is.
    QSet<qsizetype> m_turn;
    bool m_isSending = false;
    /// Runs that began or ended.
    quint32 m_runs = 0;
};
