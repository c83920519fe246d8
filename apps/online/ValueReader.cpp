#include "apps/online/ValueReader.h"

#include "apps/online/OnlineAnswer.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

ValueReader::ValueReader(RequestExchange &exchange)
    : m_exchange(exchange)
{
    connect(&exchange, &RequestExchange::finished, this, &ValueReader::onFinished);
}

void ValueReader::start(const RegisterMap &map)
{
    stop();
    m_map = &map;
    m_isAwaited.assign(std::size_t(map.values().size()), false);
}

void ValueReader::stop()
{
    ++m_run;
    m_map = nullptr;
    m_wanted.clear();
    m_isAwaited.clear();
    m_blocks.clear();
}

void ValueReader::want(qsizetype value)
{
    if (isAwaited(value))
        return;
    m_isAwaited[std::size_t(value)] = true;
    m_wanted.append(value);
}

void ValueReader::send()
{
    if (!m_map)
        return;
    const auto blocks = BlockPlan::blocksOf(*m_map, std::exchange(m_wanted, {}));
    for (const BlockPlan::Block &block : blocks)
        request(block);
}

void ValueReader::request(const BlockPlan::Block &block)
{
    milliseconds additional {0};
    for (const qsizetype value : block.values)
        additional = std::max(additional, m_map->values().at(value).additionalReadTime);
    m_blocks.insert(m_exchange.read(block.span, additional), block);
}

void ValueReader::onFinished(quint32 request, const OnlineAnswer &answer)
{
    const auto found = m_blocks.constFind(request);
    if (found == m_blocks.cend())
        return;
    const BlockPlan::Block block = *found;
    m_blocks.erase(found);
    const QPointer<ValueReader> guard(this);
    const quint32 run = m_run;
    if (answer.kind == OnlineAnswer::eKind::Good && answer.registers.size() == block.span.count) {
        take(block, answer, request);
    } else if (answer.kind == OnlineAnswer::eKind::Refused && block.values.size() > 1) {
        for (const qsizetype value : block.values)
            this->request({m_map->values().at(value).span, {value}});
    } else {
        fail(block, answer);
    }
    if (guard && m_run == run)
        Q_EMIT requestDone();
}

void ValueReader::take(const BlockPlan::Block &block, const OnlineAnswer &answer, quint32 request)
{
    const QPointer<ValueReader> guard(this);
    const quint32 run = m_run;
    const QByteArray bytes = RegisterBytes::flat(answer.registers);
    for (const qsizetype value : block.values) {
        const MappedValue &mapped = m_map->values().at(value);
        m_isAwaited[std::size_t(value)] = false;
        Q_EMIT valueRead(value,
            RegisterBytes::valueAt(bytes, mapped.span.first - block.span.first, *mapped.type),
            request);
        if (!guard || m_run != run)
            return;
    }
}

void ValueReader::fail(const BlockPlan::Block &block, const OnlineAnswer &answer)
{
    const QPointer<ValueReader> guard(this);
    const quint32 run = m_run;
    // A good answer of another length is none.
    OnlineAnswer failure = answer;
    if (failure.kind == OnlineAnswer::eKind::Good)
        failure = {OnlineAnswer::eKind::Lost, {}, tr("unlesbare Antwort")};
    for (const qsizetype value : block.values) {
        m_isAwaited[std::size_t(value)] = false;
        Q_EMIT valueFailed(value, failure);
        if (!guard || m_run != run)
            return;
    }
}
