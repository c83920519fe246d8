#include "apps/online/ValueWriter.h"

#include "apps/online/ContainerValues.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <QtCore/QPointer>

using eKind = OnlineOutcome::eKind;

ValueWriter::ValueWriter(RequestExchange &exchange, ContainerValues &values)
    : m_exchange(exchange)
    , m_values(values)
{
    connect(&exchange, &RequestExchange::finished, this, &ValueWriter::onFinished);
}

void ValueWriter::start(const RegisterMap &map)
{
    stop();
    m_map = &map;
}

QList<qsizetype> ValueWriter::stop()
{
    m_map = nullptr;
    m_requests.clear();
    m_lastReadBacks.clear();
    return std::exchange(m_pending, {}).keys();
}

void ValueWriter::write(qsizetype value)
{
    const auto found = m_pending.find(value);
    if (found != m_pending.end())
        found->isToBeRepeated = true;
    else
        send(value);
}

void ValueWriter::send(qsizetype value)
{
    const MappedValue &mapped = m_map->values().at(value);
    const QList<quint16> registers = m_values.registers(mapped);
    if (registers.isEmpty()) {
        Q_EMIT finished(value,
            {mapped.place, mapped.addressText, eKind::Lost, {}, {},
                tr("es gibt den Wert nicht mehr")});
        return;
    }
    m_pending.insert(value, {m_values.nativeText(mapped), {}, false, false});
    const auto repeat =
        mapped.isStored ? RequestExchange::eRepeat::Allowed : RequestExchange::eRepeat::Never;
    m_requests.insert(
        m_exchange.write(mapped.span, registers, mapped.additionalWriteTime, repeat), value);
}

void ValueWriter::onFinished(quint32 request, const OnlineAnswer &answer)
{
    const auto found = m_requests.constFind(request);
    if (found == m_requests.cend())
        return;
    const qsizetype value = *found;
    m_requests.erase(found);
    Pending &pending = m_pending[value];
    if (pending.isReadBack) {
        conclude(value, answer);
        return;
    }
    pending.answer = answer;
    pending.isReadBack = true;
    // Also where the drive refused, and where its answer is missing: it tells what arrived.
    const MappedValue &mapped = m_map->values().at(value);
    const quint32 number = m_exchange.read(mapped.span, mapped.additionalReadTime);
    m_requests.insert(number, value);
    m_lastReadBacks.insert(value, number);
}

void ValueWriter::conclude(qsizetype value, const OnlineAnswer &answer)
{
    const Pending pending = m_pending.take(value);
    if (pending.isToBeRepeated) {
        send(value);
        return;
    }
    const MappedValue &mapped = m_map->values().at(value);
    if (answer.kind != OnlineAnswer::eKind::Good || answer.registers.size() != mapped.span.count) {
        const bool isRefused = pending.answer.kind == OnlineAnswer::eKind::Refused;
        Q_EMIT finished(value,
            {mapped.place, mapped.addressText, isRefused ? eKind::Refused : eKind::Lost,
                pending.sent, {},
                isRefused ? pending.answer.reason
                          : tr("nicht zurückgelesen: %1").arg(answer.reason)});
        return;
    }
    // Its listeners may end the run.
    const MappedValue copy = mapped;
    const QPointer<QObject> guard(this);
    m_values.adopt(
        copy, RegisterBytes::valueAt(RegisterBytes::flat(answer.registers), 0, *copy.type), guard);
    if (guard)
        Q_EMIT finished(value, outcomeOf(copy, pending));
}

OnlineOutcome ValueWriter::outcomeOf(const MappedValue &value, const Pending &pending) const
{
    OnlineOutcome outcome {value.place, value.addressText, eKind::Written, pending.sent,
        m_values.nativeText(value), pending.answer.reason};
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
