#include "snapshot/SnapshotTreeFilling.h"

#include "snapshot/FillingProgress.h"
#include "snapshot/SnapshotItem.h"

#include <QtWidgets/QTreeWidget>

namespace {

using Table = std::shared_ptr<const SnapshotTable>;

/// A pointer to the row that holds the table.
std::shared_ptr<const SnapshotRow> heldRow(const Table &table, const SnapshotRow &row)
{
    return {table, &row};
}

CoordinateItem *coordinateItem(const Table &table, const SnapshotRow &row, const QBrush &missing)
{
    auto *item = new CoordinateItem(heldRow(table, row), missing);
    if (row.children.isEmpty())
        return item;
    QList<QTreeWidgetItem *> children;
    children.reserve(row.children.size());
    for (const SnapshotRow &child : row.children)
        children.append(new ElementTreeWidgetItem(heldRow(table, child), missing));
    item->addChildren(children);
    return item;
}

/// By row number: an item would have to look for itself among its neighbours.
void hideRows(QTreeWidget &tree, const QList<SnapshotRow> &rows, const QModelIndex &parent)
{
    for (int i = 0; i < rows.size(); ++i) {
        const SnapshotRow &row = rows.at(i);
        if (row.isHidden)
            tree.setRowHidden(i, parent, true);
        if (!row.children.isEmpty())
            hideRows(tree, row.children, tree.model()->index(i, 0, parent));
    }
}

} // namespace

CoordinateItems SnapshotTreeFilling::fill(
    QTreeWidget &tree, const Table &table, FillingProgress &progress)
{
    const QList<SnapshotRow> &rows = table->rows;
    const QBrush missing(tree.palette().color(QPalette::Disabled, QPalette::ButtonText));
    CoordinateItems items;
    items.reserve(rows.size());
    QList<QTreeWidgetItem *> topLevel;
    topLevel.reserve(rows.size());
    for (const SnapshotRow &row : rows) {
        if (!progress.advance(FillingProgress::MakingItems, topLevel.size(), rows.size())) {
            qDeleteAll(topLevel);
            return {};
        }
        CoordinateItem *item = coordinateItem(table, row, missing);
        items.insert({row.livingSpace, row.coordinate}, item);
        topLevel.append(item);
    }
    tree.addTopLevelItems(topLevel);
    hideRows(tree, rows, QModelIndex());
    for (int column = 0; column < tree.columnCount(); ++column)
        tree.resizeColumnToContents(column);
    return items;
}
