#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Paints and edits values: marks those that differ from their default, shows what cannot be written
/// more quietly, offers choices as lists. A refused text stays in its editor.
class ValueDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(
        QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

Q_SIGNALS:
    /// Something else is typed than what was refused.
    void typed();

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QWidget *createChoice(QWidget *parent, const QModelIndex &index) const;
    bool commit(QWidget *editor);

    /// Of the last text that an editor gave to the model.
    mutable bool m_isAccepted = false;
};
