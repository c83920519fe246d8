#pragma once

#include "snapshot/SnapshotRecord.h"

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QHash>

#include <utility>

/// Gives equal parts of the records of one snapshot the same object.
class SnapshotPool {
public:
    using Units = QExplicitlySharedDataPointer<const SnapshotUnits>;
    using Layout = QExplicitlySharedDataPointer<const SnapshotLayout>;

    /// Null where both are empty.
    Units units(const QString &scaled, const QString &native);
    Layout layout(const SnapshotLayout &layout);

private:
    /// Neighbours are mostly alike.
    Units m_lastUnits;
    Layout m_lastLayout;
    /// By scaled and native unit.
    QHash<std::pair<QString, QString>, Units> m_units;
    /// By hash of the content.
    QMultiHash<size_t, Layout> m_layouts;
};
