#pragma once

#include "snapshot/SnapshotRow.h"

#include <deque>

/// A cell of which no snapshot holds the value; it is held until the test ends.
inline SnapshotCell snapshotCell(
    const QString &display, const QString &undecorated, const QString &unit = {})
{
    static std::deque<SnapshotValue> values;
    SnapshotValue &value = values.emplace_back();
    value.display = display;
    value.undecorated = undecorated;
    auto *units = new SnapshotUnits;
    units->scaled = unit;
    value.units.reset(units);
    return {&value, SnapshotCell::eState::Held};
}
