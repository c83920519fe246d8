#pragma once

#include "apps/krparameter-desk/RowTexts.h"

#include <QtCore/QPointer>
#include <QtWidgets/QStyledItemDelegate>

/// Paints and edits values: marks those that differ from their default, shows what cannot be written
/// more quietly, offers choices as lists. A refused text stays in its editor.
class ValueDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Writes what stands in the editor that is open, and closes it. False where it was refused and stays
    /// open.
    bool commitOpenEditor();

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
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
    QWidget *createField(QWidget *parent) const;
    QWidget *createChoice(const QList<RowTexts::Choice> &choices, QWidget *parent) const;
    bool commit(QWidget *editor);

    mutable QPointer<QWidget> m_editor;
    bool m_isCommitting = false;
    /// Of the last text that an editor gave to the model.
    mutable bool m_isAccepted = false;
};
