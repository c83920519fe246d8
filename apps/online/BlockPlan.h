#pragma once

#include "apps/online/RegisterSpan.h"

#include <QtCore/QList>

class RegisterMap;

/// Parts values into the blocks that one request each reads: a pure function.
namespace BlockPlan {

struct Block {
    RegisterSpan span;
    /// Positions in RegisterMap::values(), in the order in which they are to be taken: as they are read,
    /// but element 0 of a record behind its other elements, so that who hears of it finds these.
    QList<qsizetype> values;
};

/// **Unit** registers; the longest that one request can read.
constexpr int LongestBlock = 125;
/// **Unit** registers; reading so many for nothing costs less than another request.
constexpr int LongestGap = 8;

/// Ascending by property 45, equal ones by unit and register.
QList<qsizetype> inOnlineOrder(const RegisterMap &map, QList<qsizetype> values);
/// In that order. A block goes on as long as the next value lies in its unit behind it, near enough. The
/// elements of a record that one block can hold are not parted.
QList<Block> blocksOf(const RegisterMap &map, const QList<qsizetype> &values);
/// The elements of a record that do not come before its element 0 in the block.
QList<qsizetype> othersOfRecord(const RegisterMap &map, const Block &block, qsizetype leader);

} // namespace BlockPlan
