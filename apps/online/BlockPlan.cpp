#include "apps/online/BlockPlan.h"

#include "apps/online/RegisterMap.h"

#include <algorithm>
#include <utility>

namespace {

bool continues(const RegisterSpan &block, const RegisterSpan &next)
{
    return next.unit == block.unit && next.first >= block.end()
        && next.first - block.end() <= BlockPlan::LongestGap
        && next.end() - block.first <= BlockPlan::LongestBlock;
}

bool isReadWith(const MappedValue &leader, const MappedValue &value)
{
    return value.span.unit == leader.span.unit && value.place.coordinate == leader.place.coordinate
        && value.onlineOrder == leader.onlineOrder;
}

/// The registers from element 0 of a record to the last element of the same order; of any other value its
/// own ones.
RegisterSpan spanTogether(const RegisterMap &map, const QList<qsizetype> &values, qsizetype index)
{
    const MappedValue &first = map.values().at(values.at(index));
    RegisterSpan span = first.span;
    if (!first.leadsRecord)
        return span;
    for (qsizetype i = index + 1; i < values.size(); ++i) {
        const MappedValue &next = map.values().at(values.at(i));
        if (!isReadWith(first, next))
            break;
        span.count = quint16(next.span.end() - span.first);
    }
    return span;
}

void putLeadersLast(const RegisterMap &map, QList<qsizetype> &values)
{
    for (auto leader = values.begin(); leader != values.end(); ++leader) {
        const MappedValue &first = map.values().at(*leader);
        if (!first.leadsRecord)
            continue;
        const auto end = std::find_if(leader + 1, values.end(),
            [&](qsizetype value) { return !isReadWith(first, map.values().at(value)); });
        leader = std::rotate(leader, leader + 1, end);
    }
}

} // namespace

QList<qsizetype> BlockPlan::inOnlineOrder(const RegisterMap &map, QList<qsizetype> values)
{
    const QList<MappedValue> &all = map.values();
    // Positions ascend by unit and register.
    const auto comesBefore = [&all](qsizetype a, qsizetype b) {
        const quint32 orderA = all.at(a).onlineOrder;
        const quint32 orderB = all.at(b).onlineOrder;
        return orderA != orderB ? orderA < orderB : a < b;
    };
    if (!std::is_sorted(values.begin(), values.end(), comesBefore))
        std::sort(values.begin(), values.end(), comesBefore);
    return values;
}

QList<BlockPlan::Block> BlockPlan::blocksOf(const RegisterMap &map, const QList<qsizetype> &values)
{
    QList<Block> blocks;
    Block block;
    const auto endBlock = [&map, &blocks, &block] {
        if (block.values.isEmpty())
            return;
        putLeadersLast(map, block.values);
        blocks.append(std::exchange(block, {}));
    };
    const QList<qsizetype> sorted = inOnlineOrder(map, values);
    for (qsizetype i = 0; i < sorted.size(); ++i) {
        const MappedValue &value = map.values().at(sorted.at(i));
        const bool isFirst = block.values.isEmpty();
        if (isFirst || !continues(block.span, spanTogether(map, sorted, i))) {
            endBlock();
            block.span = value.span;
            block.values.reserve(std::min<qsizetype>(LongestBlock, sorted.size() - i));
        }
        block.span.count = quint16(value.span.end() - block.span.first);
        block.values.append(sorted.at(i));
    }
    endBlock();
    return blocks;
}

QList<qsizetype> BlockPlan::othersOfRecord(
    const RegisterMap &map, const Block &block, qsizetype leader)
{
    const ValuePlace &place = map.values().at(leader).place;
    const QList<qsizetype> before = block.values.first(block.values.indexOf(leader));
    const auto [first, last] = map.positionsOf(place.coordinate, place.livingSpace);
    QList<qsizetype> others;
    for (qsizetype other = first; other <= last; ++other) {
        if (other != leader && !before.contains(other))
            others.append(other);
    }
    return others;
}
