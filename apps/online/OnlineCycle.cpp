#include "apps/online/OnlineCycle.h"

#include "apps/online/OnlineClock.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <utility>

using eKind = OnlineOutcome::eKind;

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
    connect(&m_reader, &ValueReader::valueRead, this, &OnlineCycle::onValueRead);
    connect(&m_reader, &ValueReader::valueFailed, this, &OnlineCycle::onValueFailed);
    connect(&m_reader, &ValueReader::requestDone, this, &OnlineCycle::arm);
    connect(&m_writer, &ValueWriter::finished, this, &OnlineCycle::finished);
}

void OnlineCycle::start(const RegisterMap &map)
{
    m_map = &map;
    m_reader.start(map);
    m_writer.start(map);
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
    m_failed.clear();
    QList<qsizetype> lost = m_writer.stop() + std::exchange(m_once, {}).values();
    std::sort(lost.begin(), lost.end());
    QList<MappedValue> lostValues;
    for (const qsizetype value : std::as_const(lost))
        lostValues.append(map->values().at(value));
    QList<ValuePlace> waiting;
    for (const qsizetype value : std::exchange(m_waitedFor, {})) {
        ValuePlace place = map->values().at(value).place;
        place.element = 0;
        if (!waiting.contains(place))
            waiting.append(place);
    }
    const QPointer<OnlineCycle> guard(this);
    for (qsizetype i = 0; i < lost.size() && guard; ++i)
        report(lost.at(i), lostValues.at(i), eKind::Lost, reason);
    for (const ValuePlace &place : std::as_const(waiting)) {
        if (guard)
            cancelWaiting(place);
    }
}

void OnlineCycle::read(const QList<qsizetype> &values)
{
    for (const qsizetype value : values) {
        m_once.insert(value);
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
        m_waitedFor.insert(value);
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

void OnlineCycle::onValueRead(qsizetype value, const QByteArray &bytes, quint32 request)
{
    const QPointer<OnlineCycle> guard(this);
    const MappedValue &mapped = m_map->values().at(value);
    bool hasChanged = false;
    // What is being written, or was written meanwhile, is newer here than what was read.
    if (!m_writer.isUnderWay(value) && request > m_writer.lastReadBack(value))
        hasChanged = m_values.adopt(mapped, bytes);
    if (!guard || !m_map)
        return;
    m_cyclic.done(value, m_clock.now());
    m_failed.remove(value);
    m_waitedFor.remove(value);
    if (m_once.remove(value))
        report(value, mapped, hasChanged ? eKind::Changed : eKind::Unchanged);
}

void OnlineCycle::onValueFailed(qsizetype value, const OnlineAnswer &answer)
{
    const MappedValue mapped = m_map->values().at(value);
    const bool isCyclic = m_cyclic.contains(value);
    m_cyclic.done(value, m_clock.now());
    const bool isNews = m_once.remove(value) || (isCyclic && !m_failed.contains(value));
    if (isCyclic)
        m_failed.insert(value);
    const bool isWaitedFor = m_waitedFor.remove(value);
    const bool isRefused = answer.kind == OnlineAnswer::eKind::Refused;
    const QPointer<OnlineCycle> guard(this);
    if (isNews)
        report(value, mapped, isRefused ? eKind::Refused : eKind::Lost, answer.reason);
    if (guard && isWaitedFor)
        cancelWaiting(mapped.place);
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
    Q_EMIT finished(-1,
        {place, address.toText(place.livingSpace == eLivingSpace::Global, true), eKind::Unmapped,
            {}, {}, tr("der Antrieb hat kein Register dafür")});
}

void OnlineCycle::cancelWaiting(const ValuePlace &place)
{
    // Its other elements wait for nothing then.
    if (m_map) {
        m_waitedFor.removeIf([this, &place](qsizetype other) {
            const ValuePlace &at = m_map->values().at(other).place;
            return at.coordinate == place.coordinate && at.livingSpace == place.livingSpace;
        });
    }
    if (const auto parameter = m_container.parameterInformation(place.coordinate))
        parameter->cancelAllElementsConsistenceOnce(place.livingSpace);
}

void OnlineCycle::report(
    qsizetype value, const MappedValue &mapped, OnlineOutcome::eKind kind, const QString &reason)
{
    Q_EMIT finished(value, {mapped.place, mapped.addressText, kind, {}, {}, reason});
}
