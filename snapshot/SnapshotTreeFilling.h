#pragma once

#include "snapshot/SnapshotTable.h"

#include <QtCore/QHash>

#include <memory>

class CoordinateItem;
class FillingProgress;
class QTreeWidget;

/// Names the item of a parameter in one living space.
struct CoordinateItemKey {
    friend bool operator==(const CoordinateItemKey &, const CoordinateItemKey &) = default;
    friend size_t qHash(const CoordinateItemKey &key, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, static_cast<qint32>(key.livingSpace), key.coordinate);
    }

    eLivingSpace livingSpace;
    ParameterCoordinate coordinate;
};

/// **Owner** of the items the tree.
using CoordinateItems = QHash<CoordinateItemKey, CoordinateItem *>;

/// Fills an empty tree with rows.
class SnapshotTreeFilling {
public:
    /// The rows stand in the order in which they are shown; column widths follow the contents.
    /// The items are made detached and inserted at once: a tree that is told of each cell takes
    /// several times as long. Inserts none where the progress is ended.
    static CoordinateItems fill(QTreeWidget &tree,
        const std::shared_ptr<const SnapshotTable> &table, FillingProgress &progress);
};
