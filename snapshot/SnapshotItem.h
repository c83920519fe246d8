#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtGui/QBrush>
#include <QtWidgets/QTreeWidgetItem>

#include <memory>

/// Shows a row of the comparison, whose texts it reads instead of storing them once more: a cell's
/// text, and under Qt::UserRole its undecorated text, nothing where there is no value to compare.
class SnapshotItem : public QTreeWidgetItem {
public:
    /// Holds the row, and with it the table in which it stands. Cells of a snapshot that lacks the value
    /// are painted with `missing`.
    SnapshotItem(std::shared_ptr<const SnapshotRow> row, const QBrush &missing);

    eLivingSpace livingSpace() const { return m_row->livingSpace; }
    ParameterCoordinate coordinate() const { return m_row->coordinate; }
    QVariant data(int column, int role) const override;
    /// As it was filled in, whatever became of the item since.
    const SnapshotRow &row() const { return *m_row; }

private:
    std::shared_ptr<const SnapshotRow> m_row;
};

/// A parameter in one living space.
class CoordinateItem : public SnapshotItem {
public:
    using SnapshotItem::SnapshotItem;

    /// With the items below it. **Owner** the caller.
    CoordinateItem *clone() const override;
};

/// An element of a record, below its CoordinateItem.
class ElementTreeWidgetItem : public SnapshotItem {
public:
    using SnapshotItem::SnapshotItem;

    /// **Owner** the caller.
    ElementTreeWidgetItem *clone() const override { return new ElementTreeWidgetItem(*this); }
    quint16 element() const { return row().element; }
};
