#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtGui/QBrush>
#include <QtWidgets/QTreeWidgetItem>

/// Shows a row of the comparison, whose texts it shares instead of storing them once more: a cell's
/// text, and under Qt::UserRole its undecorated text.
class SnapshotItem : public QTreeWidgetItem {
public:
    /// Cells of a snapshot that lacks the value are painted with `missing`.
    SnapshotItem(const SnapshotRow &row, const QBrush &missing);

    eLivingSpace livingSpace() const { return m_row.livingSpace; }
    ParameterCoordinate coordinate() const { return m_row.coordinate; }
    QVariant data(int column, int role) const override;

protected:
    const SnapshotRow &row() const { return m_row; }

private:
    QVariant cellData(const SnapshotCell &cell, int role) const;

    SnapshotRow m_row;
};

/// A parameter in one living space.
class CoordinateItem : public SnapshotItem {
public:
    using SnapshotItem::SnapshotItem;
};

/// An element of a record, below its CoordinateItem.
class ElementTreeWidgetItem : public SnapshotItem {
public:
    using SnapshotItem::SnapshotItem;

    quint16 element() const { return row().element; }
};
