#include "apps/online/BlockPlan.h"

#include "apps/online/RegisterMap.h"

#include <algorithm>

namespace {

bool continues(const RegisterSpan &block, const RegisterSpan &next)
{
    return next.unit == block.unit && next.first >= block.end()
        && next.first - block.end() <= BlockPlan::LongestGap
        && next.end() - block.first <= BlockPlan::LongestBlock;
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
    for (const qsizetype value : inOnlineOrder(map, values)) {
        const RegisterSpan &span = map.values().at(value).span;
        if (blocks.isEmpty() || !continues(blocks.constLast().span, span)) {
            blocks.append({span, {value}});
            continue;
        }
        Block &block = blocks.last();
        block.span.count = quint16(span.end() - block.span.first);
        block.values.append(value);
    }
    return blocks;
}
