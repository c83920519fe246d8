#pragma once

#include "snapshot/SnapshotRow.h"

/// Hides the rows that are equal in all columns.
class SnapshotRowComparison {
public:
    /// Compares the undecorated texts, so that a cell without one counts as empty. A row above
    /// elements is hidden with the last of them. Rows of fewer than two columns are left alone.
    static void hideEqualRows(QList<SnapshotRow> &rows, qsizetype columnCount);
};
