#pragma once

#include "apps/online/OnlineReport.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtCore/QString>

#include <functional>
#include <optional>
#include <vector>

/// Which values a transfer waits for, and what became of the others.
class OnlineTransfer {
public:
    using eDirection = OnlineOutcome::eDirection;

    /// What is to be transferred.
    struct Scope {
        /// Positions in the map.
        QList<qsizetype> values;
        /// What has no register, or is not in the project.
        QList<OnlineOutcome> unmapped;
    };

    /// `values` are those of the device.
    OnlineTransfer(const QList<MappedValue> &values, const Scope &scope, eDirection direction);

    eDirection direction() const { return m_direction; }
    qsizetype total() const { return m_total; }
    qsizetype done() const { return m_done; }
    bool isComplete() const { return m_done == m_total; }
    /// What was told so far.
    const OnlineReport &report() const { return m_report; }
    /// With what became known of values behind that.
    OnlineReport finalReport() const;

    /// Native text of what is to be written.
    void ask(qsizetype value, const QString &text) { m_asked.insert(value, text); }
    /// A value was read. Whether the transfer waited for it; it does not any more. Likewise of the next.
    bool add(qsizetype value, OnlineOutcome::eKind kind);
    bool add(qsizetype value, const OnlineOutcome &outcome);
    /// The container cannot keep what the drive has.
    void dispute(const OnlineOutcome &outcome) { m_disputes.append(outcome); }

    /// What the drive has in the end, as native text; nothing where the project does not have the value.
    using Kept = std::function<std::optional<QString>(const MappedValue &)>;
    /// Compares that with what was to be written. The outcomes that differ from what was told.
    QList<OnlineOutcome> close(const Kept &kept);

private:
    bool takeOff(qsizetype value, eDirection direction);
    /// A value that was written stays one, whatever was read of it later.
    static OnlineOutcome merged(const OnlineOutcome &told, OnlineOutcome now);
    /// What the drive has in the end says about a value that it took.
    static OnlineOutcome compare(const OnlineOutcome &told, const MappedValue &value,
        const QString &asked, const QString &kept);

    const eDirection m_direction;
    const qsizetype m_total;
    qsizetype m_done = 0;
    QList<MappedValue> m_values;
    /// By position.
    std::vector<bool> m_isAwaited;
    QHash<qsizetype, QString> m_asked;
    /// Position to what the drive took.
    QHash<qsizetype, OnlineOutcome> m_written;
    QList<OnlineOutcome> m_disputes;
    /// What the drive has in the end where it is something else than was told.
    QList<OnlineOutcome> m_differing;
    OnlineReport m_report;
};
