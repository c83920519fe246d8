#include "apps/online/TransferRun.h"

#include <QtCore/QPointer>

#include <optional>
#include <utility>

using eDirection = OnlineOutcome::eDirection;

TransferRun::TransferRun(
    OnlineCycle &cycle, const std::optional<RegisterMap> &map, std::function<bool()> isHeard)
    : m_cycle(cycle)
    , m_map(map)
    , m_isHeard(std::move(isHeard))
{
    connect(&m_cycle, &OnlineCycle::came, this, &TransferRun::onCame);
    connect(&m_cycle, &OnlineCycle::finished, this, &TransferRun::onFinished);
    connect(&m_cycle, &OnlineCycle::disputed, this, &TransferRun::onDisputed);
    connect(&m_cycle, &OnlineCycle::reviewed, this, &TransferRun::finishWhereAtRest);
}

void TransferRun::read(const OnlineTransfer::Scope &scope)
{
    begin(scope, eDirection::FromDrive);
    const QPointer<TransferRun> guard(this);
    m_cycle.read(scope.values);
    if (guard)
        tellUnmapped(scope);
}

void TransferRun::write(const OnlineTransfer::Scope &scope, const QHash<ValuePlace, QString> &asked)
{
    begin(scope, eDirection::ToDrive);
    ask(scope.values, asked);
    const QPointer<TransferRun> guard(this);
    m_cycle.write(scope.values);
    if (guard)
        tellUnmapped(scope);
}

void TransferRun::begin(const OnlineTransfer::Scope &scope, eDirection direction)
{
    m_transfer = std::make_unique<OnlineTransfer>(m_map->values(), scope, direction);
    ++m_begun;
    if (!scope.values.isEmpty())
        return;
    // Also where there is nothing to wait for the end comes behind the call.
    QMetaObject::invokeMethod(
        this,
        [this, number = m_begun] {
            if (m_begun == number)
                finish();
        },
        Qt::QueuedConnection);
}

void TransferRun::tellUnmapped(const OnlineTransfer::Scope &scope)
{
    const QPointer<TransferRun> guard(this);
    for (const OnlineOutcome &outcome : scope.unmapped) {
        if (guard)
            Q_EMIT valueReported(outcome);
    }
}

void TransferRun::ask(const QList<qsizetype> &values, const QHash<ValuePlace, QString> &asked)
{
    for (const qsizetype value : values) {
        const MappedValue &mapped = m_map->values().at(value);
        const auto found = asked.constFind(mapped.place);
        m_transfer->ask(value, found == asked.cend() ? m_cycle.nativeText(mapped) : *found);
    }
}

void TransferRun::onCame(const std::vector<OnlineCycle::Came> &values)
{
    const QPointer<TransferRun> guard(this);
    // A listener may call the drive anew, by another map.
    const QList<MappedValue> mapped = m_map->values();
    // Not for nobody: of most values there is nothing else to say.
    const bool isHeard = m_isHeard();
    bool hasProgress = false;
    for (const auto &[value, kind] : values) {
        if (m_transfer && m_transfer->add(value, kind))
            hasProgress = true;
        if (!isHeard)
            continue;
        Q_EMIT valueReported(OnlineOutcome::ofRead(mapped.at(value), kind));
        if (!guard)
            return;
    }
    if (hasProgress)
        tellProgress();
}

void TransferRun::onFinished(const QList<OnlineCycle::Ended> &ended)
{
    const QPointer<TransferRun> guard(this);
    bool hasProgress = false;
    for (const auto &[value, outcome] : ended) {
        if (m_transfer && m_transfer->add(value, outcome))
            hasProgress = true;
        Q_EMIT valueReported(outcome);
        if (!guard)
            return;
    }
    if (hasProgress)
        tellProgress();
}

void TransferRun::onDisputed(const QList<OnlineCycle::Ended> &ended)
{
    const QPointer<TransferRun> guard(this);
    bool hasProgress = false;
    for (const auto &[value, outcome] : ended) {
        // A value that came before is not what the drive has any more.
        if (m_transfer && m_transfer->add(value, outcome))
            hasProgress = true;
        else if (m_transfer)
            m_transfer->dispute(outcome);
        Q_EMIT valueReported(outcome);
        if (!guard)
            return;
    }
    if (hasProgress)
        tellProgress();
}

void TransferRun::tellProgress()
{
    if (!m_transfer)
        return;
    const QPointer<TransferRun> guard(this);
    Q_EMIT progressed(m_transfer->done(), m_transfer->total());
    if (guard)
        finishWhereAtRest();
}

void TransferRun::finishWhereAtRest()
{
    if (!m_transfer || !m_transfer->isComplete())
        return;
    const bool isAtRest = m_transfer->direction() == eDirection::FromDrive ? !m_cycle.isReviewing()
                                                                           : m_cycle.isAtRest();
    // A drive that is lost tells nothing any more.
    if (!isAtRest && m_cycle.isRunning())
        return;
    const QPointer<TransferRun> guard(this);
    const quint32 number = m_begun;
    const auto kept = [this](const MappedValue &value) {
        return m_cycle.isInProject(value) ? std::optional(m_cycle.nativeText(value)) : std::nullopt;
    };
    const QList<OnlineOutcome> differing =
        m_cycle.isRunning() ? m_transfer->close(kept) : QList<OnlineOutcome>();
    for (const OnlineOutcome &outcome : differing) {
        Q_EMIT valueReported(outcome);
        if (!guard)
            return;
    }
    if (m_begun == number)
        finish();
}

void TransferRun::finish()
{
    if (!m_transfer)
        return;
    m_report = m_transfer->finalReport();
    m_transfer.reset();
    // A listener may start the next transfer.
    const OnlineReport report = m_report;
    Q_EMIT finished(report);
}
