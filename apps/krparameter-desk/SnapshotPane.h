#pragma once

#include <QtWidgets/QWidget>

class DeskActions;
class QListView;
class SnapshotListModel;

/// The named snapshots, with what can be done with them.
class SnapshotPane : public QWidget {
    Q_OBJECT

public:
    /// **Owner** of both the caller.
    SnapshotPane(SnapshotListModel &model, const DeskActions &actions, QWidget *parent);

    QListView *list() const { return m_list; }
    /// -1 where none is.
    int currentRow() const;

private:
    QListView *m_list;
};
