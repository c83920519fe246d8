#include "apps/online/DriveReader.h"

#include "apps/online/OnlineAnswer.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

DriveReader::DriveReader(RequestExchange &exchange)
    : m_exchange(exchange)
{
    connect(&exchange, &RequestExchange::finished, this, &DriveReader::onFinished);
}

void DriveReader::start(const RegisterMap &map)
{
    stop();
    m_map = &map;
    m_isAwaited.assign(std::size_t(map.values().size()), false);
}

void DriveReader::stop()
{
    m_map = nullptr;
    m_wanted.clear();
    m_isAwaited.clear();
    m_blocks.clear();
}

void DriveReader::want(qsizetype value)
{
    if (isAwaited(value))
        return;
    m_isAwaited[std::size_t(value)] = true;
    m_wanted.append(value);
}

void DriveReader::want(const QList<qsizetype> &values)
{
    m_wanted.reserve(m_wanted.size() + values.size());
    for (const qsizetype value : values) {
        if (!isAwaited(value))
            m_wanted.append(value);
        m_isAwaited[std::size_t(value)] = true;
    }
}

void DriveReader::send()
{
    if (!m_map)
        return;
    const auto blocks = BlockPlan::blocksOf(*m_map, std::exchange(m_wanted, {}));
    for (const BlockPlan::Block &block : blocks)
        request(block);
}

void DriveReader::request(const BlockPlan::Block &block)
{
    milliseconds additional {0};
    for (const qsizetype value : block.values)
        additional = std::max(additional, m_map->values().at(value).additionalReadTime);
    m_blocks.insert(m_exchange.read(block.span, additional), block);
}

void DriveReader::onFinished(quint32 request, const OnlineAnswer &answer)
{
    const auto found = m_blocks.constFind(request);
    if (found == m_blocks.cend())
        return;
    const BlockPlan::Block block = *found;
    m_blocks.erase(found);
    const bool isGood = answer.kind == OnlineAnswer::eKind::Good;
    if (answer.kind == OnlineAnswer::eKind::Refused && block.values.size() > 1) {
        for (const qsizetype value : block.values)
            this->request({m_map->values().at(value).span, {value}});
        return;
    }
    for (const qsizetype value : block.values)
        m_isAwaited[std::size_t(value)] = false;
    if (isGood && answer.registers.size() == block.span.count)
        Q_EMIT blockRead(block, RegisterBytes::flat(answer.registers), request);
    else if (isGood)
        Q_EMIT blockFailed(block, {OnlineAnswer::eKind::Lost, {}, tr("unlesbare Antwort")});
    else
        Q_EMIT blockFailed(block, answer);
}
