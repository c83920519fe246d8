#include "snapshot/SnapshotItem.h"

#include <utility>

SnapshotItem::SnapshotItem(std::shared_ptr<const SnapshotRow> row, const QBrush &missing)
    : m_row(std::move(row))
{
    for (qsizetype i = 0; i < m_row->cells.size(); ++i) {
        if (m_row->cells.at(i).isMissing())
            setForeground(static_cast<int>(i) + 1, missing);
    }
}

QVariant SnapshotItem::data(int column, int role) const
{
    // As in every item of a tree widget, the text to edit is the text that is shown.
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!isText && role != Qt::UserRole)
        return QTreeWidgetItem::data(column, role);
    if (column == 0)
        return isText ? QVariant(m_row->title) : QVariant();
    if (column < 0 || column > m_row->cells.size())
        return {};
    const SnapshotCell &cell = m_row->cells.at(column - 1);
    if (isText)
        return cell.text();
    return cell.isHeld() ? cell.undecorated() : QVariant();
}

CoordinateItem *CoordinateItem::clone() const
{
    auto *copy = new CoordinateItem(*this);
    for (int i = 0; i < childCount(); ++i)
        copy->addChild(child(i)->clone());
    return copy;
}
