#include "apps/online/OnlineCycle.h"

#include "apps/online/OnlineClock.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QPointer>

#include <utility>

using eKind = OnlineOutcome::eKind;
using std::chrono::milliseconds;

OnlineCycle::OnlineCycle(ParameterContainer &container, RequestExchange &exchange,
    OnlineClock &clock, const OnlineRules &rules)
    : m_container(container)
    , m_exchange(exchange)
    , m_clock(clock)
    , m_values(container)
    , m_reader(exchange)
    , m_writer(exchange, m_values)
    , m_cyclic(rules.cycleInterval)
{
    connect(&m_values, &ContainerValues::changedHere, this, &OnlineCycle::onChangedHere);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistence, this,
        &OnlineCycle::onNeeded);
    connect(&container, &ParameterProvider::parameterNeedsOnlineConsistenceOnce, this,
        &OnlineCycle::onNeededOnce);
    connect(&clock, &OnlineClock::rang, this, &OnlineCycle::onRang);
    connect(&m_reader, &ValueReader::blockRead, this, &OnlineCycle::onBlockRead);
    connect(&m_reader, &ValueReader::blockFailed, this, &OnlineCycle::onBlockFailed);
    connect(&m_writer, &ValueWriter::finished, this,
        [this](qsizetype value, const OnlineOutcome &outcome) {
            Q_EMIT finished({{value, outcome}});
        });
}

void OnlineCycle::start(const RegisterMap &map)
{
    m_map = &map;
    m_reader.start(map);
    m_writer.start(map);
    m_requests.assign(std::size_t(map.values().size()), Request());
    m_cyclic.setMap(&map, m_clock.now());
    arm();
    const QPointer<OnlineCycle> guard(this);
    for (const ParameterAddress &address : m_cyclic.unmapped()) {
        if (guard)
            reportUnmapped(address);
    }
}

void OnlineCycle::stop(const QString &reason)
{
    const RegisterMap *map = std::exchange(m_map, nullptr);
    if (!map)
        return;
    m_exchange.clear();
    m_reader.stop();
    m_cyclic.setMap(nullptr, m_clock.now());
    m_clock.clearAlarm(eOnlineAlarm::Cycle);
    const QList<qsizetype> writes = m_writer.stop();
    const std::vector<Request> requests = std::exchange(m_requests, {});
    QList<Ended> lost;
    QList<ValuePlace> waiting;
    for (qsizetype value = 0; value < map->values().size(); ++value) {
        const Request &request = requests.at(std::size_t(value));
        const MappedValue &mapped = map->values().at(value);
        if (request.isOnce || writes.contains(value))
            lost.append(ended(value, mapped, eKind::Lost, reason));
        const ValuePlace place {mapped.place.coordinate, mapped.place.livingSpace, 0};
        if (request.isWaitedFor && !waiting.contains(place))
            waiting.append(place);
    }
    const QPointer<OnlineCycle> guard(this);
    if (!lost.isEmpty())
        Q_EMIT finished(lost);
    for (const ValuePlace &place : std::as_const(waiting)) {
        if (guard)
            cancelWaiting(place);
    }
}

void OnlineCycle::read(const QList<qsizetype> &values)
{
    for (const qsizetype value : values) {
        m_requests[std::size_t(value)].isOnce = true;
        m_reader.want(value);
    }
    arm();
}

void OnlineCycle::write(const QList<qsizetype> &values)
{
    const QPointer<OnlineCycle> guard(this);
    for (const qsizetype value : BlockPlan::inOnlineOrder(*m_map, values)) {
        if (guard && m_map)
            m_writer.write(value);
    }
}

void OnlineCycle::onChangedHere(const ParameterAddress &address)
{
    if (!m_map)
        return;
    const qsizetype value = m_map->indexOf(address);
    if (value < 0)
        reportUnmapped(address);
    else if (!m_map->values().at(value).isReadOnly)
        m_writer.write(value);
}

void OnlineCycle::onNeeded(const ParameterAddress &address, bool isNeeded)
{
    if (!isNeeded) {
        m_cyclic.remove(address);
        return;
    }
    m_cyclic.add(address, m_clock.now());
    if (!m_map)
        return;
    if (m_map->indexOf(address) < 0)
        reportUnmapped(address);
    else
        arm();
}

void OnlineCycle::onNeededOnce(const ParameterAddress &address)
{
    if (!m_map)
        return;
    const qsizetype value = m_map->indexOf(address);
    if (value >= 0) {
        m_requests[std::size_t(value)].isWaitedFor = true;
        read({value});
        return;
    }
    const QPointer<OnlineCycle> guard(this);
    reportUnmapped(address);
    if (guard)
        cancelWaiting(placeOf(address));
}

void OnlineCycle::onRang(eOnlineAlarm alarm)
{
    if (alarm != eOnlineAlarm::Cycle || !m_map)
        return;
    for (const qsizetype value : m_cyclic.takeDue(m_clock.now()))
        m_reader.want(value);
    m_reader.send();
    arm();
}

void OnlineCycle::onBlockRead(
    const BlockPlan::Block &block, const QByteArray &bytes, quint32 request)
{
    const QPointer<QObject> guard(this);
    const RegisterMap *const map = m_map;
    const milliseconds now = m_clock.now();
    QList<Ended> news;
    news.reserve(block.values.size());
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = map->values().at(value);
        bool hasChanged = false;
        // What is being written, or was written meanwhile, is newer here than what was read.
        if (!m_writer.isUnderWay(value) && request > m_writer.lastReadBack(value)) {
            hasChanged = m_values.adopt(mapped,
                RegisterBytes::valueAt(bytes, mapped.span.first - block.span.first, *mapped.type),
                guard);
        }
        // A run that was ended has reported the value already.
        if (!guard || m_map != map)
            break;
        m_cyclic.done(value, now);
        if (std::exchange(m_requests[std::size_t(value)], {}).isOnce)
            news.append(ended(value, mapped, hasChanged ? eKind::Changed : eKind::Unchanged));
    }
    if (!guard)
        return;
    arm();
    if (!news.isEmpty())
        Q_EMIT finished(news);
}

void OnlineCycle::onBlockFailed(const BlockPlan::Block &block, const OnlineAnswer &answer)
{
    const milliseconds now = m_clock.now();
    const bool isRefused = answer.kind == OnlineAnswer::eKind::Refused;
    QList<Ended> news;
    QList<ValuePlace> waiting;
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = m_map->values().at(value);
        const bool isCyclic = m_cyclic.contains(value);
        m_cyclic.done(value, now);
        Request &request = m_requests[std::size_t(value)];
        if (request.isOnce || (isCyclic && !request.hasFailed)) {
            news.append(
                ended(value, mapped, isRefused ? eKind::Refused : eKind::Lost, answer.reason));
        }
        const ValuePlace place {mapped.place.coordinate, mapped.place.livingSpace, 0};
        if (request.isWaitedFor && !waiting.contains(place))
            waiting.append(place);
        request = {false, false, isCyclic};
    }
    const QPointer<OnlineCycle> guard(this);
    arm();
    if (!news.isEmpty())
        Q_EMIT finished(news);
    for (const ValuePlace &place : std::as_const(waiting)) {
        if (guard)
            cancelWaiting(place);
    }
}

void OnlineCycle::arm()
{
    if (!m_map)
        return;
    // Not sent at once: what is asked for value by value goes out in blocks.
    if (m_reader.hasUnsent())
        m_clock.setAlarm(eOnlineAlarm::Cycle, m_clock.now());
    else if (const auto due = m_cyclic.nextDue())
        m_clock.setAlarm(eOnlineAlarm::Cycle, *due);
}

ValuePlace OnlineCycle::placeOf(const ParameterAddress &address) const
{
    const bool isGlobal = m_container.isGlobalParameter(address.coordinate());
    return {address.coordinate(),
        isGlobal ? eLivingSpace::Global : eLivingSpace(address.axis() + 1), address.element()};
}

void OnlineCycle::reportUnmapped(const ParameterAddress &address)
{
    const ValuePlace place = placeOf(address);
    Q_EMIT finished({{-1,
        {place, address.toText(place.livingSpace == eLivingSpace::Global, true), eKind::Unmapped,
            {}, {}, tr("der Antrieb hat kein Register dafür")}}});
}

void OnlineCycle::cancelWaiting(const ValuePlace &place)
{
    // Its other elements wait for nothing then.
    for (std::size_t i = 0; m_map && i < m_requests.size(); ++i) {
        const ValuePlace &other = m_map->values().at(qsizetype(i)).place;
        if (other.coordinate == place.coordinate && other.livingSpace == place.livingSpace)
            m_requests[i].isWaitedFor = false;
    }
    if (const auto parameter = m_container.parameterInformation(place.coordinate))
        parameter->cancelAllElementsConsistenceOnce(place.livingSpace);
}

OnlineCycle::Ended OnlineCycle::ended(
    qsizetype value, const MappedValue &mapped, eKind kind, const QString &reason)
{
    return {value, {mapped.place, mapped.addressText, kind, {}, {}, reason}};
}
