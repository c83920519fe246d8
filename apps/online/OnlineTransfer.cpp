#include "apps/online/OnlineTransfer.h"

#include "apps/online/ContainerValues.h"

#include <algorithm>
#include <utility>

using eKind = OnlineOutcome::eKind;

OnlineTransfer::OnlineTransfer(
    const QList<MappedValue> &values, const Scope &scope, eDirection direction)
    : m_direction(direction)
    , m_total(scope.values.size())
    , m_values(values)
    , m_isAwaited(std::size_t(values.size()))
    , m_report(values)
{
    m_report.reserve(scope.values.size() + scope.unmapped.size());
    for (const qsizetype value : scope.values)
        m_isAwaited[std::size_t(value)] = true;
    for (const OnlineOutcome &outcome : scope.unmapped)
        m_report.add(outcome);
}

bool OnlineTransfer::add(qsizetype value, eKind kind)
{
    if (!takeOff(value, eDirection::FromDrive))
        return false;
    m_report.add(value, kind);
    return true;
}

bool OnlineTransfer::add(qsizetype value, const OnlineOutcome &outcome)
{
    if (!takeOff(value, outcome.isWrite ? eDirection::ToDrive : eDirection::FromDrive))
        return false;
    m_report.add(outcome);
    if (outcome.kind == eKind::Written || outcome.kind == eKind::Altered)
        m_written.insert(value, outcome);
    return true;
}

bool OnlineTransfer::takeOff(qsizetype value, eDirection direction)
{
    if (m_direction != direction || value < 0 || !m_isAwaited.at(std::size_t(value)))
        return false;
    m_isAwaited[std::size_t(value)] = false;
    ++m_done;
    return true;
}

QList<OnlineOutcome> OnlineTransfer::close(const Kept &kept)
{
    // Who is told of it may come back here.
    const QHash<qsizetype, OnlineOutcome> written = std::exchange(m_written, {});
    const QList<OnlineOutcome> disputes = std::exchange(m_disputes, {});
    QHash<ValuePlace, OnlineOutcome> news;
    QList<OnlineOutcome> differing;
    for (const OnlineOutcome &dispute : disputes)
        news.insert(dispute.place, dispute);
    for (auto it = written.cbegin(); it != written.cend(); ++it) {
        const MappedValue &value = m_values.at(it.key());
        // A command is done when it was taken.
        if (!value.isStored || news.contains(value.place))
            continue;
        const std::optional<QString> text = kept(value);
        if (!text)
            continue;
        const OnlineOutcome now = compare(*it, value, m_asked.value(it.key()), *text);
        if (now.kind == it->kind && now.kept == it->kept && now.sent == it->sent)
            continue;
        news.insert(value.place, now);
        differing.append(now);
    }
    if (news.isEmpty())
        return {};
    const QList<OnlineOutcome> told = m_report.outcomes();
    m_report = OnlineReport(m_values);
    for (const OnlineOutcome &outcome : told)
        m_report.add(
            news.contains(outcome.place) ? merged(outcome, news.take(outcome.place)) : outcome);
    // Functions reach also what was not to be transferred.
    for (const OnlineOutcome &dispute : disputes) {
        if (news.remove(dispute.place))
            m_report.add(dispute);
    }
    std::sort(differing.begin(), differing.end(),
        [](const auto &a, const auto &b) { return a.address < b.address; });
    return differing;
}

OnlineOutcome OnlineTransfer::merged(const OnlineOutcome &told, OnlineOutcome now)
{
    if (!told.isWrite || now.isWrite)
        return now;
    now.sent = told.sent;
    now.kept = told.kept;
    now.isWrite = true;
    return now;
}

OnlineOutcome OnlineTransfer::compare(
    const OnlineOutcome &told, const MappedValue &value, const QString &asked, const QString &kept)
{
    const bool isSame = ContainerValues::isSame(value, asked, kept);
    return OnlineOutcome::ofWrite(
        value, isSame ? eKind::Written : eKind::Altered, told.reason, asked, kept);
}
