#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtCore/QList>

#include <memory>

/// The rows of a comparison, with all that their cells point to: snapshots may change and go while
/// the rows are shown.
struct SnapshotTable {
    /// Ascending by title, as the children of each are.
    QList<SnapshotRow> rows;
    /// Shared with the snapshots.
    QList<SnapshotRecords> records;
    /// Shown where a snapshot lacks a value.
    std::shared_ptr<const SnapshotValue> missing;
};
