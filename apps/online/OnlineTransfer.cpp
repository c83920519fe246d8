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
    QSet<ValuePlace> disputed;
    for (const OnlineOutcome &dispute : std::as_const(m_disputes))
        disputed.insert(dispute.place);
    QList<OnlineOutcome> differing;
    for (auto it = written.cbegin(); it != written.cend(); ++it) {
        const MappedValue &value = m_values.at(it.key());
        // A command is done when it was taken.
        if (!value.isStored || disputed.contains(value.place))
            continue;
        const std::optional<QString> text = kept(value);
        if (!text)
            continue;
        const OnlineOutcome now = compare(*it, value, m_asked.value(it.key()), *text);
        if (now.kind != it->kind || now.kept != it->kept || now.sent != it->sent)
            differing.append(now);
    }
    m_differing += differing;
    std::sort(differing.begin(), differing.end(),
        [](const auto &a, const auto &b) { return a.address < b.address; });
    return differing;
}

OnlineReport OnlineTransfer::finalReport() const
{
    QHash<ValuePlace, OnlineOutcome> news;
    for (const QList<OnlineOutcome> *later : {&m_differing, &m_disputes}) {
        for (const OnlineOutcome &outcome : *later)
            news.insert(outcome.place, outcome);
    }
    if (news.isEmpty())
        return m_report;
    OnlineReport report(m_values);
    for (const OnlineOutcome &told : m_report.outcomes())
        report.add(news.contains(told.place) ? merged(told, news.take(told.place)) : told);
    // Functions reach also what was not to be transferred.
    for (const OnlineOutcome &dispute : m_disputes) {
        if (news.remove(dispute.place))
            report.add(dispute);
    }
    return report;
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
