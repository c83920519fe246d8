#include "apps/online/DriveWriter.h"

#include "apps/online/BlockPlan.h"
#include "apps/online/CarriedText.h"
#include "apps/online/ContainerValues.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <QtCore/QPointer>

#include <utility>

using eKind = OnlineOutcome::eKind;

namespace {

/// State of an action that does not run.
bool isResting(const QByteArray &state)
{
    return state.count('\0') == state.size();
}

} // namespace

DriveWriter::DriveWriter(RequestExchange &exchange, ContainerValues &values)
    : m_exchange(exchange)
    , m_values(values)
{
    connect(&exchange, &RequestExchange::finished, this, &DriveWriter::onFinished);
}

void DriveWriter::start(const RegisterMap &map)
{
    stop();
    m_map = &map;
}

QList<qsizetype> DriveWriter::stop()
{
    ++m_runs;
    m_map = nullptr;
    m_requests.clear();
    m_lastReadBacks.clear();
    m_queue.clear();
    m_turn.clear();
    return std::exchange(m_pending, {}).keys();
}

void DriveWriter::write(qsizetype value)
{
    const auto found = m_pending.find(value);
    if (found == m_pending.end())
        send(value);
    else if (found->step != eStep::WaitingForItsTurn)
        found->isToBeRepeated = m_values.nativeText(m_map->values().at(value)) != found->sent;
}

void DriveWriter::writeInOrder(const QList<qsizetype> &values)
{
    for (const qsizetype value : BlockPlan::inOnlineOrder(*m_map, values)) {
        if (m_pending.contains(value)) {
            write(value);
            continue;
        }
        m_pending.insert(value, {eStep::WaitingForItsTurn, {}, {}, false});
        m_queue.push_back(value);
    }
    sendNext();
}

void DriveWriter::sendNext()
{
    // What cannot be sent ends at once and asks for the next one.
    if (m_isSending)
        return;
    m_isSending = true;
    const QPointer<QObject> guard(this);
    while (m_turn.isEmpty() && !m_queue.empty()) {
        const quint32 order = m_map->values().at(m_queue.front()).onlineOrder;
        QList<qsizetype> next;
        for (; !m_queue.empty() && m_map->values().at(m_queue.front()).onlineOrder == order;
             m_queue.pop_front())
            next.append(m_queue.front());
        m_turn = QSet<qsizetype>(next.cbegin(), next.cend());
        for (const qsizetype value : std::as_const(next)) {
            // A listener may end the run.
            if (m_turn.contains(value))
                send(value);
            if (!guard)
                return;
        }
    }
    m_isSending = false;
}

void DriveWriter::send(qsizetype value)
{
    const MappedValue &mapped = m_map->values().at(value);
    const QList<quint16> registers = m_values.registers(mapped);
    if (registers.isEmpty()) {
        m_pending.remove(value);
        finish(value,
            OnlineOutcome::ofWrite(
                mapped, eKind::Unmapped, OnlineOutcome::tr("das Projekt hat den Wert nicht")));
        return;
    }
    const QString text = m_values.nativeText(mapped);
    if (!CarriedText::isCarried(text, *mapped.type)) {
        // Nothing is sent; what the drive has comes back as behind a refusal of its own.
        m_pending.insert(value,
            {eStep::ReadBack, text,
                {OnlineAnswer::eKind::Refused, {},
                    tr("\"%1\" passt nicht, erwartet wird %2")
                        .arg(text, CarriedText::wanted(*mapped.type))}});
        readBack(value, mapped.span);
        return;
    }
    m_pending.insert(value, {eStep::Sent, text, {}, false});
    const auto repeat =
        mapped.isStored ? RequestExchange::eRepeat::Allowed : RequestExchange::eRepeat::Never;
    m_requests.insert(
        m_exchange.write(mapped.span, registers, mapped.additionalWriteTime, repeat), value);
}

void DriveWriter::onFinished(quint32 request, const OnlineAnswer &answer)
{
    const auto found = m_requests.constFind(request);
    if (found == m_requests.cend())
        return;
    const qsizetype value = *found;
    m_requests.erase(found);
    Pending &pending = m_pending[value];
    if (pending.step == eStep::ReadBack) {
        conclude(value, request, answer);
        return;
    }
    pending.answer = answer;
    pending.step = eStep::ReadBack;
    // Also where the drive refused, and where its answer is missing: it tells what arrived.
    readBack(value, readBackSpan(m_map->values().at(value)));
}

void DriveWriter::readBack(qsizetype value, const RegisterSpan &span)
{
    m_pending[value].readBack = span;
    const quint32 number = m_exchange.read(span, m_map->values().at(value).additionalReadTime);
    m_requests.insert(number, value);
    m_lastReadBacks.insert(value, number);
}

RegisterSpan DriveWriter::readBackSpan(const MappedValue &value) const
{
    RegisterSpan span = value.span;
    if (!value.leadsRecord || value.isStored)
        return span;
    const auto [first, last] = m_map->positionsOf(value.place.coordinate, value.place.livingSpace);
    const int count = m_map->values().at(last).span.end() - span.first;
    if (count <= BlockPlan::LongestBlock)
        span.count = quint16(count);
    return span;
}

void DriveWriter::concludeUnknown(qsizetype value, const OnlineAnswer &answer)
{
    const MappedValue &mapped = m_map->values().at(value);
    // An element may be one that the drive lets nobody read.
    if (m_pending.value(value).readBack != mapped.span) {
        readBack(value, mapped.span);
        return;
    }
    const Pending pending = m_pending.take(value);
    const bool isRefused = pending.answer.kind == OnlineAnswer::eKind::Refused;
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    finish(value,
        OnlineOutcome::ofWrite(mapped, isRefused ? eKind::Refused : eKind::Lost,
            isRefused ? pending.answer.reason : tr("nicht zurückgelesen: %1").arg(answer.reason),
            pending.sent));
    if (guard && m_runs == run)
        Q_EMIT leftUnknown(value);
}

void DriveWriter::conclude(qsizetype value, quint32 request, const OnlineAnswer &answer)
{
    if (m_pending.value(value).isToBeRepeated) {
        send(value);
        return;
    }
    const RegisterSpan span = m_pending.value(value).readBack;
    if (answer.kind != OnlineAnswer::eKind::Good || answer.registers.size() != span.count) {
        concludeUnknown(value, answer);
        return;
    }
    // Listeners may end the run, and the map with it.
    const MappedValue mapped = m_map->values().at(value);
    const QByteArray bytes = RegisterBytes::flat(answer.registers);
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    if (span != mapped.span)
        takeOthers(value, span, bytes, request);
    // A run that was ended has reported the value.
    if (!guard || m_runs != run)
        return;
    if (m_pending.value(value).isToBeRepeated) {
        send(value);
        return;
    }
    // One that runs is taken at once, as behind any write.
    if (isHeadAlone(mapped, span) && isResting(bytes)) {
        concludeHead(value, request, bytes);
        return;
    }
    const ContainerValues::Adopted adopted =
        m_values.adopt(mapped, RegisterBytes::valueAt(bytes, 0, *mapped.type), guard);
    if (!guard || m_runs != run)
        return;
    const Pending pending = m_pending.take(value);
    finish(value, outcomeOf(mapped, pending, adopted.text));
    // A listener has written another value over the one that came back.
    if (guard && m_runs == run && pending.isToBeRepeated)
        write(value);
}

void DriveWriter::takeOthers(
    qsizetype value, const RegisterSpan &span, const QByteArray &bytes, quint32 request)
{
    const ValuePlace &place = m_map->values().at(value).place;
    const auto [first, last] = m_map->positionsOf(place.coordinate, place.livingSpace);
    BlockPlan::Block others {span, {}};
    for (qsizetype other = value + 1; other <= last; ++other)
        others.values.append(other);
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    Q_EMIT recordReadBack(others, bytes, request);
    if (!guard || m_runs != run)
        return;
    // What was asked for before and comes behind is older.
    for (const qsizetype other : std::as_const(others.values))
        m_lastReadBacks.insert(other, request);
}

bool DriveWriter::isHeadAlone(const MappedValue &value, const RegisterSpan &span) const
{
    const auto [first, last] = m_map->positionsOf(value.place.coordinate, value.place.livingSpace);
    return value.leadsRecord && !value.isStored && span == value.span && first < last;
}

void DriveWriter::concludeHead(qsizetype value, quint32 request, const QByteArray &bytes)
{
    const MappedValue mapped = m_map->values().at(value);
    const Pending pending = m_pending.take(value);
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    finish(value, outcomeOf(mapped, pending, ContainerValues::textOf(mapped, bytes)));
    if (guard && m_runs == run)
        Q_EMIT headReadBack({mapped.span, {value}}, bytes, request);
}

void DriveWriter::finish(qsizetype value, const OnlineOutcome &outcome)
{
    const QPointer<QObject> guard(this);
    const quint32 run = m_runs;
    Q_EMIT finished(value, outcome);
    if (guard && m_runs == run && m_turn.remove(value))
        sendNext();
}

OnlineOutcome DriveWriter::outcomeOf(
    const MappedValue &value, const Pending &pending, const QString &kept)
{
    OnlineOutcome outcome =
        OnlineOutcome::ofWrite(value, eKind::Written, pending.answer.reason, pending.sent, kept);
    const bool isSame = ContainerValues::isSame(value, outcome.sent, outcome.kept);
    if (pending.answer.kind == OnlineAnswer::eKind::Good) {
        // A command is done when it was taken; what stands there afterwards is the drive's news.
        outcome.kind = isSame || !value.isStored ? eKind::Written : eKind::Altered;
    } else if (pending.answer.kind == OnlineAnswer::eKind::Lost) {
        outcome.kind = isSame ? eKind::Written : eKind::Lost;
    } else {
        outcome.kind = eKind::Refused;
    }
    return outcome;
}
