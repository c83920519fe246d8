#include "snapshot/SnapshotItem.h"

#include <utility>

SnapshotItem::SnapshotItem(std::shared_ptr<const SnapshotRow> row, const QBrush &missing)
    : m_row(std::move(row))
{
    for (qsizetype i = 0; i < m_row->cells.size(); ++i) {
        if (m_row->cells.at(i).isMissing)
            setForeground(static_cast<int>(i) + 1, missing);
    }
}

QVariant SnapshotItem::data(int column, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::UserRole)
        return QTreeWidgetItem::data(column, role);
    if (column == 0)
        return role == Qt::DisplayRole ? QVariant(m_row->title) : QVariant();
    const bool hasCell = column > 0 && column <= m_row->cells.size();
    return hasCell ? cellData(m_row->cells.at(column - 1), role) : QVariant();
}

QVariant SnapshotItem::cellData(const SnapshotCell &cell, int role) const
{
    if (role == Qt::DisplayRole)
        return cell.text();
    return cell.hasValue() ? cell.undecorated() : QVariant();
}
