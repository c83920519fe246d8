#pragma once

#include "apps/online/RegisterSpan.h"

#include <QtCore/QList>

class RegisterMap;

/// Parts values into the blocks that one request each reads: a pure function.
namespace BlockPlan {

struct Block {
    RegisterSpan span;
    /// Positions in RegisterMap::values(), in the order of reading.
    QList<qsizetype> values;
};

/// **Unit** registers; the longest that one request can read.
constexpr int LongestBlock = 125;
/// **Unit** registers; reading so many for nothing costs less than another request.
constexpr int LongestGap = 8;

/// Ascending by property 45, equal ones by unit and register.
QList<qsizetype> inOnlineOrder(const RegisterMap &map, QList<qsizetype> values);
/// In that order. A block goes on as long as
/// the next value lies in its unit behind it, near enough.
QList<Block> blocksOf(const RegisterMap &map, const QList<qsizetype> &values);

} // namespace BlockPlan
