#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class DeskDialogs;
class DeskSession;
class SnapshotListModel;

/// What the user does with device, project and snapshots, asked for what it needs. Without device there
/// is nothing to load, save or take.
class SessionCommands {
    Q_DECLARE_TR_FUNCTIONS(SessionCommands)

public:
    /// **Owner** of both the caller.
    SessionCommands(DeskSession &session, DeskDialogs &dialogs);

    void openDevice();
    void loadProject();
    /// Where it came from; elsewhere where it came from nowhere.
    void saveProject();
    void saveProjectElsewhere();
    void takeSnapshot(SnapshotListModel &snapshots);
    /// Asks before; nothing where there is no such row.
    void removeSnapshot(SnapshotListModel &snapshots, int row);
    /// Asks where there are any.
    bool mayLose(const SnapshotListModel &snapshots);

private:
    /// An empty folder: the user chooses one.
    void save(const QString &folder);

    DeskSession &m_session;
    DeskDialogs &m_dialogs;
};
