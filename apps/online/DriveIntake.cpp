#include "apps/online/DriveIntake.h"

#include "apps/online/ContainerValues.h"
#include "apps/online/DriveWriter.h"
#include "apps/online/ElementWaits.h"
#include "apps/online/OnlineAnswer.h"
#include "apps/online/ReadSchedule.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/ReviewRound.h"

#include <algorithm>
#include <limits>
#include <utility>

using eKind = OnlineOutcome::eKind;
using std::chrono::milliseconds;

DriveIntake::DriveIntake(ContainerValues &values, const DriveWriter &writer, ReadSchedule &schedule,
    ReviewRound &reviews, ElementWaits &waits)
    : m_values(values)
    , m_writer(writer)
    , m_schedule(schedule)
    , m_reviews(reviews)
    , m_waits(waits)
{
}

void DriveIntake::start(const RegisterMap &map)
{
    ++m_runs;
    m_map = &map;
    m_requests.assign(std::size_t(map.values().size()), Request());
}

DriveIntake::Rest DriveIntake::stop()
{
    ++m_runs;
    m_map = nullptr;
    m_heads.clear();
    Rest rest {std::exchange(m_news, {}), {}};
    const std::vector<Request> requests = std::exchange(m_requests, {});
    for (std::size_t value = 0; value < requests.size(); ++value) {
        if (requests[value].isOnce)
            rest.once.append(qsizetype(value));
    }
    return rest;
}

void DriveIntake::askOnce(const QList<qsizetype> &values)
{
    for (const qsizetype value : values)
        m_requests[std::size_t(value)].isOnce = true;
}

void DriveIntake::askReview(qsizetype value)
{
    m_requests[std::size_t(value)].isReview = true;
}

void DriveIntake::onBlockRead(
    const BlockPlan::Block &block, const QByteArray &bytes, quint32 request)
{
    const QPointer<QObject> guard(this);
    const milliseconds now = m_schedule.now();
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
        Q_EMIT blockTaken();
}

bool DriveIntake::hold(
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

bool DriveIntake::takeHeads(qsizetype value, quint32 request, const QPointer<QObject> &guard)
{
    if (m_heads.isEmpty())
        return true;
    const QList<HeldHeads::Head> heads = m_heads.arrived(value, request);
    // It was asked for before the head was.
    if (m_heads.waitsFor(value))
        m_schedule.want(value);
    return std::all_of(heads.cbegin(), heads.cend(), [&](const HeldHeads::Head &head) {
        return take(head.value, head.bytes, head.request, m_schedule.now(), guard);
    });
}

bool DriveIntake::take(qsizetype value, const QByteArray &bytes, quint32 request, milliseconds now,
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
        if (!guard || m_runs != run)
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
    if (m_schedule.isAwaited(value))
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

DriveIntake::Failures DriveIntake::fail(const BlockPlan::Block &block, const OnlineAnswer &answer)
{
    const milliseconds now = m_schedule.now();
    const bool isRefused = answer.kind == OnlineAnswer::eKind::Refused;
    Failures failures {{}, {}, m_waits.takeLost(block.values)};
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = m_map->values().at(value);
        const bool isCyclic = m_schedule.isCyclic(value);
        m_schedule.failed(value, now);
        const bool isReviewed = m_reviews.done(value);
        Request &request = m_requests[std::size_t(value)];
        // What a drive refuses among all that its functions may have changed it always does.
        const bool isStale = request.isReview || (isReviewed && !isRefused);
        const Ended outcome =
            ended(value, mapped, isRefused ? eKind::Refused : eKind::Lost, answer.reason);
        if (isStale) {
            m_schedule.chase(value, ReadSchedule::eFirst::Later);
            failures.unreviewed.append(outcome);
        } else if (request.isOnce || (isCyclic && !request.hasFailed)) {
            failures.news.append(outcome);
        }
        request = {};
        request.hasFailed = isCyclic;
    }
    return failures;
}

void DriveIntake::onBlockFailed(const BlockPlan::Block &block, const OnlineAnswer &answer)
{
    const Failures failures = fail(block, answer);
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    // Before anything is taken in: a listener of that may end the run, and nobody else knows of these.
    if (!failures.news.isEmpty())
        Q_EMIT failed(failures.news);
    if (guard && !failures.unreviewed.isEmpty())
        Q_EMIT reviewFailed(failures.unreviewed);
    for (const ValuePlace &place : failures.waiting) {
        if (guard)
            m_waits.cancel(place);
    }
    if (!guard || m_runs != run)
        return;
    // Who waits for what does not come waits no more.
    for (const qsizetype value : block.values) {
        if (!takeHeads(value, std::numeric_limits<quint32>::max(), guard))
            return;
    }
    m_schedule.arm();
    if (!m_news.empty())
        Q_EMIT came(std::exchange(m_news, {}));
    if (guard && m_runs == run)
        Q_EMIT blockTaken();
}

DriveIntake::Ended DriveIntake::ended(
    qsizetype value, const MappedValue &mapped, eKind kind, const QString &reason)
{
    return {value, {mapped.place, mapped.addressText(), kind, {}, {}, reason}};
}
