#include "apps/online/OnlineCycle.h"

#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"
#include "apps/online/UnmappedOutcome.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <utility>

using eKind = OnlineOutcome::eKind;

OnlineCycle::OnlineCycle(ParameterContainer &container, RequestExchange &exchange,
    OnlineClock &clock, const OnlineRules &rules)
    : m_container(container)
    , m_exchange(exchange)
    , m_values(container)
    , m_waits(container)
    , m_reader(exchange)
    , m_schedule(m_reader, clock, rules)
    , m_writer(exchange, m_values)
    , m_intake(m_values, m_writer, m_schedule, m_reviews, m_waits)
{
    connect(&m_values, &ContainerValues::changedHere, this, &OnlineCycle::onChangedHere);
    connect(
        &m_values, &ContainerValues::changedByFunction, this, &OnlineCycle::onChangedByFunction);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistence, this,
        &OnlineCycle::onNeeded);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this,
        &OnlineCycle::onNeededOnce);
    connect(&m_reader, &DriveReader::blockRead, &m_intake, &DriveIntake::onBlockRead);
    connect(&m_reader, &DriveReader::blockFailed, &m_intake, &DriveIntake::onBlockFailed);
    connect(&m_writer, &DriveWriter::recordReadBack, &m_intake, &DriveIntake::onBlockRead);
    connect(&m_writer, &DriveWriter::headReadBack, &m_intake, &DriveIntake::onBlockRead);
    connect(&m_intake, &DriveIntake::came, this, &OnlineCycle::came);
    connect(&m_intake, &DriveIntake::failed, this, &OnlineCycle::finished);
    connect(&m_intake, &DriveIntake::reviewFailed, this, &OnlineCycle::disputed);
    connect(&m_intake, &DriveIntake::blockTaken, this, &OnlineCycle::settle);
    connect(&m_writer, &DriveWriter::finished, this, &OnlineCycle::onWritten);
    connect(&m_writer, &DriveWriter::leftUnknown, this, &OnlineCycle::onLeftUnknown);
}

void OnlineCycle::start(const RegisterMap &map)
{
    const quint32 run = ++m_runs;
    m_map = &map;
    m_reader.start(map);
    m_writer.start(map);
    m_waits.start(map);
    m_intake.start(map);
    m_schedule.start(map);
    const QPointer<OnlineCycle> guard(this);
    const QList<ParameterAddress> unmapped = m_schedule.unmapped();
    for (const ParameterAddress &address : unmapped) {
        if (guard && m_runs == run)
            reportUnmapped(address, eDirection::FromDrive);
    }
}

void OnlineCycle::stop(const QString &reason)
{
    const RegisterMap *map = std::exchange(m_map, nullptr);
    if (!map)
        return;
    const quint32 run = ++m_runs;
    m_exchange.clear();
    m_reader.stop();
    m_schedule.stop();
    const DriveIntake::Rest rest = m_intake.stop();
    const auto unread = [&](qsizetype value) {
        return DriveIntake::ended(value, map->values().at(value), eKind::Lost, reason);
    };
    QList<Ended> unreviewed;
    for (const qsizetype value : m_reviews.awaited())
        unreviewed.append(unread(value));
    QList<Ended> lost;
    for (const qsizetype value : rest.once) {
        if (!m_reviews.isAwaited(value))
            lost.append(unread(value));
    }
    m_reviews.clear();
    for (const qsizetype value : m_writer.stop()) {
        lost.append({value, OnlineOutcome::ofWrite(map->values().at(value), eKind::Lost, reason)});
    }
    // Of what was under way both ways the read is told before the write.
    std::stable_sort(
        lost.begin(), lost.end(), [](const Ended &a, const Ended &b) { return a.value < b.value; });
    const QList<ValuePlace> waiting = m_waits.stop();
    const QPointer<OnlineCycle> guard(this);
    if (!rest.news.empty())
        Q_EMIT came(rest.news);
    if (guard && !unreviewed.isEmpty())
        Q_EMIT disputed(unreviewed);
    if (guard && !lost.isEmpty())
        Q_EMIT finished(lost);
    for (const ValuePlace &place : waiting) {
        if (guard && m_runs == run)
            m_waits.cancel(place);
    }
}

void OnlineCycle::read(const QList<qsizetype> &values)
{
    m_intake.askOnce(values);
    m_schedule.want(values);
}

void OnlineCycle::write(const QList<qsizetype> &values)
{
    m_writer.writeInOrder(values);
}

void OnlineCycle::writeNow(qsizetype value)
{
    m_writer.write(value);
}

void OnlineCycle::onChangedHere(const ParameterAddress &address)
{
    if (!m_map)
        return;
    const qsizetype value = m_map->indexOf(address);
    if (value < 0)
        reportUnmapped(address, eDirection::ToDrive);
    else if (!m_map->values().at(value).isReadOnly)
        m_writer.write(value);
    else
        review(value);
}

void OnlineCycle::onChangedByFunction(const ParameterAddress &address)
{
    const qsizetype value = m_map ? m_map->indexOf(address) : -1;
    if (value >= 0)
        review(value);
}

void OnlineCycle::review(qsizetype value)
{
    if (!m_reviews.ask(value, m_reader.isAwaited(value)))
        return;
    m_intake.askReview(value);
    m_schedule.want(value);
}

void OnlineCycle::reviewAll()
{
    QList<qsizetype> values;
    values.reserve(m_map->values().size());
    for (qsizetype value = 0; value < m_map->values().size(); ++value) {
        if (m_values.holds(m_map->values().at(value)))
            values.append(value);
    }
    m_reviews.askForAll(values);
    m_schedule.want(values);
}

void OnlineCycle::settle()
{
    const ReviewRound::eNext next = m_map ? m_reviews.next() : ReviewRound::eNext::Wait;
    if (next == ReviewRound::eNext::ReadAll) {
        // However long others are being written.
        m_reviews.beginAnew();
        if (m_writer.isIdle())
            reviewAll();
    }
    if (next != ReviewRound::eNext::Rest)
        return;
    QList<Ended> news;
    for (const qsizetype value : m_reviews.rest()) {
        news.append(DriveIntake::ended(value, m_map->values().at(value), eKind::Lost,
            tr("Funktionen des Geräts ändern den Wert des Antriebs immer wieder")));
    }
    const QPointer<OnlineCycle> guard(this);
    const quint32 run = m_runs;
    if (!news.isEmpty())
        Q_EMIT disputed(news);
    if (guard && m_runs == run)
        Q_EMIT reviewed();
}

void OnlineCycle::onWritten(qsizetype value, const OnlineOutcome &outcome)
{
    // Whether the read-back came does not matter: what was read meanwhile was not stored.
    if (m_waits.contains(value) || m_intake.isAskedOnce(value)) {
        m_schedule.want(value);
    }
    if (m_map->values().at(value).leadsToFunctions && outcome.kind != eKind::Refused
        && outcome.kind != eKind::Unmapped)
        m_reviews.functionsRan(m_writer.lastReadBack(value));
    const QPointer<OnlineCycle> guard(this);
    const quint32 run = m_runs;
    Q_EMIT finished({{value, outcome}});
    if (guard && m_runs == run)
        settle();
}

void OnlineCycle::onLeftUnknown(qsizetype value)
{
    m_schedule.chase(value, ReadSchedule::eFirst::Now);
}

void OnlineCycle::onNeeded(const ParameterAddress &address, bool isNeeded)
{
    if (!isNeeded) {
        m_schedule.needNoMore(address);
        return;
    }
    m_schedule.need(address);
    if (m_map && m_map->indexOf(address) < 0)
        reportUnmapped(address, eDirection::FromDrive);
}

void OnlineCycle::onNeededOnce(const ParameterAddress &address)
{
    if (!m_map)
        return;
    const qsizetype value = m_map->indexOf(address);
    if (value >= 0) {
        m_waits.add(value);
        read({value});
        return;
    }
    const QPointer<OnlineCycle> guard(this);
    reportUnmapped(address, eDirection::FromDrive);
    if (guard)
        m_waits.cancel(placeOf(address));
}

ValuePlace OnlineCycle::placeOf(const ParameterAddress &address) const
{
    const bool isGlobal = m_container.isGlobalParameter(address.coordinate());
    return {address.coordinate(),
        isGlobal ? eLivingSpace::Global : eLivingSpace(address.axis() + 1), address.element()};
}

void OnlineCycle::reportUnmapped(const ParameterAddress &address, eDirection direction)
{
    Q_EMIT finished({{-1, UnmappedOutcome::of(*m_map, m_container, placeOf(address), direction)}});
}
