#include "snapshot/SnapshotRowComparison.h"

#include <algorithm>

namespace {

/// Texts are put together with their units only where the units differ.
bool areEqual(const SnapshotCell &a, const SnapshotCell &b)
{
    return a.value->units == b.value->units || a.value->scaledUnit() == b.value->scaledUnit()
        ? a.value->undecorated == b.value->undecorated
        : a.undecorated() == b.undecorated();
}

bool isEqualInAllColumns(const SnapshotRow &row)
{
    return std::all_of(row.cells.cbegin(), row.cells.cend(),
        [&](const SnapshotCell &cell) { return areEqual(cell, row.cells.first()); });
}

void hideIfEqual(SnapshotRow &row)
{
    if (row.children.isEmpty()) {
        row.isHidden = isEqualInAllColumns(row);
        return;
    }
    row.isHidden = true;
    for (SnapshotRow &child : row.children) {
        child.isHidden = isEqualInAllColumns(child);
        row.isHidden = row.isHidden && child.isHidden;
    }
}

} // namespace

void SnapshotRowComparison::hideEqualRows(QList<SnapshotRow> &rows, qsizetype columnCount)
{
    if (columnCount < 2)
        return;
    for (SnapshotRow &row : rows)
        hideIfEqual(row);
}
