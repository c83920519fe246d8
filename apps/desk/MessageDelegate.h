#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Shows a message with the sign of its severity.
class MessageDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
