#include "apps/online/OnlineCycle.h"

#include "apps/online/OnlineClock.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"
#include "apps/online/UnmappedOutcome.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <limits>
#include <utility>

using eKind = OnlineOutcome::eKind;
using std::chrono::milliseconds;

OnlineCycle::OnlineCycle(ParameterContainer &container, RequestExchange &exchange,
    OnlineClock &clock, const OnlineRules &rules)
    : m_container(container)
    , m_exchange(exchange)
    , m_clock(clock)
    , m_values(container)
    , m_waits(container)
    , m_reader(exchange)
    , m_schedule(m_reader, clock, rules)
    , m_writer(exchange, m_values)
{
    connect(&m_values, &ContainerValues::changedHere, this, &OnlineCycle::onChangedHere);
    connect(
        &m_values, &ContainerValues::changedByFunction, this, &OnlineCycle::onChangedByFunction);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistence, this,
        &OnlineCycle::onNeeded);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this,
        &OnlineCycle::onNeededOnce);
    connect(&m_reader, &DriveReader::blockRead, this, &OnlineCycle::onBlockRead);
    connect(&m_reader, &DriveReader::blockFailed, this, &OnlineCycle::onBlockFailed);
    connect(&m_writer, &DriveWriter::recordReadBack, this, &OnlineCycle::onBlockRead);
    connect(&m_writer, &DriveWriter::headReadBack, this, &OnlineCycle::onBlockRead);
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
    m_requests.assign(std::size_t(map.values().size()), Request());
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
    m_heads.clear();
    m_reviews.clear();
    std::vector<Request> requests = std::exchange(m_requests, {});
    const QList<qsizetype> writes = m_writer.stop();
    std::vector<bool> isWritten(requests.size());
    for (const qsizetype value : writes)
        isWritten[std::size_t(value)] = true;
    const std::vector<Came> news = std::exchange(m_news, {});
    QList<Ended> lost;
    const QList<ValuePlace> waiting = m_waits.stop();
    for (qsizetype value = 0; value < map->values().size(); ++value) {
        const Request &request = requests.at(std::size_t(value));
        const MappedValue &mapped = map->values().at(value);
        if (request.isOnce)
            lost.append(ended(value, mapped, eKind::Lost, reason));
        if (isWritten.at(std::size_t(value)))
            lost.append({value, OnlineOutcome::ofWrite(mapped, eKind::Lost, reason)});
    }
    const QPointer<OnlineCycle> guard(this);
    if (!news.empty())
        Q_EMIT came(news);
    if (guard && !lost.isEmpty())
        Q_EMIT finished(lost);
    for (const ValuePlace &place : waiting) {
        if (guard && m_runs == run)
            m_waits.cancel(place);
    }
}

void OnlineCycle::read(const QList<qsizetype> &values)
{
    for (const qsizetype value : values)
        m_requests[std::size_t(value)].isOnce = true;
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
    m_requests[std::size_t(value)].isReview = true;
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
    if (next == ReviewRound::eNext::ReadAll && m_writer.isIdle())
        reviewAll();
    if (next != ReviewRound::eNext::Rest)
        return;
    QList<Ended> news;
    for (const qsizetype value : m_reviews.rest()) {
        news.append(ended(value, m_map->values().at(value), eKind::Lost,
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
    if (m_waits.contains(value) || m_requests.at(std::size_t(value)).isOnce) {
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

void OnlineCycle::onBlockRead(
    const BlockPlan::Block &block, const QByteArray &bytes, quint32 request)
{
    const QPointer<QObject> guard(this);
    const milliseconds now = m_clock.now();
    m_news.reserve(m_news.size() + std::size_t(block.values.size()));
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = m_map->values().at(value);
        const QByteArray own =
            RegisterBytes::valueAt(bytes, mapped.span.first - block.span.first, *mapped.type);
        if (hold(block, value, own, request))
            continue;
        // A run that was ended has reported all its values.
        if (!take(value, own, request, now, guard) || !takeHeads(value, request, guard))
            return;
    }
    m_schedule.arm();
    const quint32 run = m_runs;
    if (!m_news.empty())
        Q_EMIT came(std::exchange(m_news, {}));
    if (guard && m_runs == run)
        settle();
}

bool OnlineCycle::hold(
    const BlockPlan::Block &block, qsizetype value, const QByteArray &bytes, quint32 request)
{
    const MappedValue &mapped = m_map->values().at(value);
    // What it replaces is older.
    m_heads.drop(value);
    if (!mapped.leadsRecord || mapped.isStored || !m_values.differs(mapped, bytes))
        return false;
    const QList<qsizetype> others = BlockPlan::othersOfRecord(*m_map, block, value);
    for (const qsizetype other : others) {
        if (!block.values.contains(other))
            m_schedule.want(other);
    }
    // The bytes are part of the block's, which goes before.
    if (!others.isEmpty())
        m_heads.hold({value, QByteArray(bytes.constData(), bytes.size()), request}, others);
    return !others.isEmpty();
}

bool OnlineCycle::takeHeads(qsizetype value, quint32 request, const QPointer<QObject> &guard)
{
    if (m_heads.isEmpty())
        return true;
    const QList<HeldHeads::Head> heads = m_heads.arrived(value, request);
    // It was asked for before the head was.
    if (m_heads.waitsFor(value))
        m_schedule.want(value);
    return std::all_of(heads.cbegin(), heads.cend(), [&](const HeldHeads::Head &head) {
        return take(head.value, head.bytes, head.request, m_clock.now(), guard);
    });
}

bool OnlineCycle::take(qsizetype value, const QByteArray &bytes, quint32 request, milliseconds now,
    const QPointer<QObject> &guard)
{
    const MappedValue &mapped = m_map->values().at(value);
    // What is being written, or was written meanwhile, is newer here than what was read.
    const bool isBeingWritten = m_writer.isUnderWay(value);
    const bool isOld = isBeingWritten || request < m_writer.lastReadBack(value);
    bool hasChanged = false;
    if (!isOld) {
        const quint32 run = m_runs;
        hasChanged = m_values.adopt(mapped, bytes, guard).hasChanged;
        if (!guard)
            return false;
        if (m_runs != run)
            return false;
    }
    if (isOld)
        m_schedule.failed(value, now);
    else
        m_schedule.came(value, now);
    // What was asked for before the functions of the drive ran says nothing about what they made.
    if (m_reviews.isOld(value, request))
        m_schedule.want(value);
    // Asked for anew, by that or by a listener: it ends with that.
    if (m_reader.isAwaited(value))
        return true;
    m_reviews.done(value);
    Request &state = m_requests[std::size_t(value)];
    const Request before = std::exchange(state, {});
    // Who waits for it has not got it yet: it is read behind the write.
    if (isOld) {
        state.isOnce = before.isOnce;
        if ((m_waits.contains(value) || before.isOnce) && !isBeingWritten)
            m_schedule.want(value);
        return true;
    }
    m_waits.done(value);
    if (!before.isOnce)
        return true;
    if (hasChanged)
        m_news.push_back({value, eKind::Changed});
    else
        m_news.push_back({value, m_values.holds(mapped) ? eKind::Unchanged : eKind::Unmapped});
    return true;
}

void OnlineCycle::onBlockFailed(const BlockPlan::Block &block, const OnlineAnswer &answer)
{
    const milliseconds now = m_clock.now();
    const quint32 run = m_runs;
    const bool isRefused = answer.kind == OnlineAnswer::eKind::Refused;
    QList<Ended> news;
    const QList<ValuePlace> waiting = m_waits.takeLost(block.values);
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = m_map->values().at(value);
        const bool isCyclic = m_schedule.isCyclic(value);
        m_schedule.failed(value, now);
        m_reviews.done(value);
        Request &request = m_requests[std::size_t(value)];
        if (request.isReview)
            m_schedule.chase(value, ReadSchedule::eFirst::Later);
        if (request.isOnce || (isCyclic && !request.hasFailed)) {
            news.append(
                ended(value, mapped, isRefused ? eKind::Refused : eKind::Lost, answer.reason));
        }
        request = {};
        request.hasFailed = isCyclic;
    }
    const QPointer<QObject> guard(this);
    // Who waits for what does not come waits no more.
    for (const qsizetype value : block.values) {
        if (!takeHeads(value, std::numeric_limits<quint32>::max(), guard))
            return;
    }
    m_schedule.arm();
    if (!m_news.empty())
        Q_EMIT came(std::exchange(m_news, {}));
    if (guard && m_runs == run && !news.isEmpty())
        Q_EMIT finished(news);
    for (const ValuePlace &place : waiting) {
        if (guard && m_runs == run)
            m_waits.cancel(place);
    }
    if (guard && m_runs == run)
        settle();
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

OnlineCycle::Ended OnlineCycle::ended(
    qsizetype value, const MappedValue &mapped, eKind kind, const QString &reason)
{
    return {value, {mapped.place, mapped.addressText(), kind, {}, {}, reason}};
}
