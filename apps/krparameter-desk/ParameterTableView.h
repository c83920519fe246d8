#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QPersistentModelIndex>
#include <QtWidgets/QTableView>

#include <optional>

class ColumnFitter;
class ParameterTableModel;
class RejectionNote;
class ValueDelegate;

/// The table of values. A current row that vanishes is current again when it comes back, unless another one
/// became current meanwhile. Keys: F2, Return or a typed letter edits, Tab goes on to the next value that can
/// be written, Escape gives up.
class ParameterTableView : public QTableView {
    Q_OBJECT

public:
    /// **Owner** of the model the caller.
    ParameterTableView(ParameterTableModel &model, QWidget *parent);

    /// Makes it the current row, with its value in view.
    void goTo(const QModelIndex &index);
    /// Scrolls to the current row where other rows are shown than before, to the top where none is current.
    void showCurrent();
    /// Of the current row; where it cannot be written, the reason stands beside it.
    void editCurrentValue();
    /// Writes what stands in the open field, and closes it. False where it was refused and stays open.
    bool commitOpenField();
    ColumnFitter &columns() { return *m_columns; }

    using QTableView::edit;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// What can be done with the current row: the actions of the view.
    void contextMenuEvent(QContextMenuEvent *event) override;
    /// Says beside a value that cannot be written why.
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    /// What scrolled a value into a narrower view leaves no address out of a wider one.
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void editFrom(int row, int step);
    void note(const QModelIndex &index, const QString &message);
    void moveNote();
    void returnToPlace();
    void onWriteAnswered(const QModelIndex &index, bool isAccepted, const QString &message);

    ValueDelegate *m_delegate;
    RejectionNote *m_note;
    /// At the last change of the size.
    int m_width = 0;
    ColumnFitter *m_columns = nullptr;
    /// That was current last, also while its row is not shown.
    std::optional<ValuePlace> m_place;
    /// Of which the note tells.
    QPersistentModelIndex m_noted;
    /// The note says what was corrected: it outlives the editor.
    bool m_hasCorrection = false;
};
