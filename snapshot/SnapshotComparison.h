#pragma once

#include "snapshot/SnapshotRecord.h"

#include <QtCore/QList>

/// Tells how two snapshots differ.
class SnapshotComparison {
public:
    /// The coordinates that only one of the two holds, then those of both whose records differ;
    /// within each group in no particular order.
    static QList<ParameterCoordinate> differentCoordinates(
        const SnapshotRecords &records, const SnapshotRecords &others);

    /// Whether living spaces or elements differ, or some value differs with unit in its display and
    /// in its native text.
    /// Deliberate: a value whose display alone differs counts as equal.
    static bool areDifferent(const SnapshotRecord &record, const SnapshotRecord &other);
};
