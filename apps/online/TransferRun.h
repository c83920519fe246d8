#pragma once

#include "apps/online/OnlineCycle.h"
#include "apps/online/OnlineTransfer.h"
#include "apps/online/RegisterMap.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Has the cycle transfer values, one transfer at a time, and tells what becomes of them.
class TransferRun : public QObject {
    Q_OBJECT

public:
    /// `isHeard` says whether anybody listens to single values: of most there is nothing else to say.
    /// **Owner** the caller of the others; they outlive this.
    TransferRun(
        OnlineCycle &cycle, const std::optional<RegisterMap> &map, std::function<bool()> isHeard);

    /// Only while none runs and the cycle does. **Emits** all signals.
    void read(const OnlineTransfer::Scope &scope);
    /// `asked` are native texts, where functions have changed since what was to be written.
    void write(const OnlineTransfer::Scope &scope, const QHash<ValuePlace, QString> &asked);
    bool isRunning() const { return m_transfer != nullptr; }
    /// Of the running transfer, or of the last one.
    const OnlineReport &report() const { return m_transfer ? m_transfer->report() : m_report; }
    /// As it is. Nothing where none runs. **Emits** finished.
    void finish();

Q_SIGNALS:
    /// Also of values outside of a transfer.
    void valueReported(const OnlineOutcome &outcome);
    void progressed(qsizetype done, qsizetype total);
    void finished(const OnlineReport &report);

private:
    void begin(const OnlineTransfer::Scope &scope, OnlineOutcome::eDirection direction);
    /// Keeps what is to be written: functions change values before their turn comes.
    void ask(const QList<qsizetype> &values, const QHash<ValuePlace, QString> &asked);
    void tellUnmapped(const OnlineTransfer::Scope &scope);
    void onCame(const std::vector<OnlineCycle::Came> &values);
    void onFinished(const QList<OnlineCycle::Ended> &ended);
    void onDisputed(const QList<OnlineCycle::Ended> &ended);
    void tellProgress();
    /// Where everything came to its end and functions change nothing any more.
    void finishWhereAtRest();

    OnlineCycle &m_cycle;
    const std::optional<RegisterMap> &m_map;
    const std::function<bool()> m_isHeard;
    /// Null while none runs.
    std::unique_ptr<OnlineTransfer> m_transfer;
    /// Transfers so far.
    quint32 m_begun = 0;
    /// Of the last one that ended.
    OnlineReport m_report;
};
