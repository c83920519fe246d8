#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Gives rows air above and below, and columns between them.
class SpaciousDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
