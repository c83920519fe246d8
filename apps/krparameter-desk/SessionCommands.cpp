#include "apps/krparameter-desk/SessionCommands.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ShippedDescriptions.h"
#include "apps/krparameter-desk/DeskDialogs.h"
#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/SnapshotListModel.h"

#include <QtCore/QFileInfo>

SessionCommands::SessionCommands(DeskSession &session, DeskDialogs &dialogs)
    : m_session(session)
    , m_dialogs(dialogs)
{
}

void SessionCommands::openDevice()
{
    const QString shipped = ShippedDescriptions::filePath(QStringLiteral("two-axis-drive"));
    const QString file = m_dialogs.descriptionFile(QFileInfo(shipped).path());
    if (!file.isEmpty() && m_session.mayClose())
        m_session.open(file);
}

void SessionCommands::loadProject()
{
    if (!m_session.project())
        return;
    const QString folder = m_dialogs.projectToLoad();
    if (!folder.isEmpty() && m_session.mayClose())
        m_session.load(folder);
}

void SessionCommands::saveProject()
{
    save(m_session.folder());
}

void SessionCommands::saveProjectElsewhere()
{
    save(QString());
}

void SessionCommands::save(const QString &folder)
{
    if (!m_session.project())
        return;
    const QString chosen = folder.isEmpty() ? m_dialogs.projectToSave() : folder;
    if (!chosen.isEmpty())
        m_session.save(chosen);
}

void SessionCommands::takeSnapshot(SnapshotListModel &snapshots)
{
    if (!m_session.project())
        return;
    const auto name = m_dialogs.snapshotName(snapshots.suggestedName());
    if (!name)
        return;
    m_dialogs.run(tr("Snapshot aufnehmen"), [&](Progress &progress) {
        snapshots.take(m_session.project()->container(), *name, &progress);
    });
}

void SessionCommands::removeSnapshot(SnapshotListModel &snapshots, int row)
{
    const QStringList names = snapshots.names();
    if (row >= 0 && row < names.size() && m_dialogs.agreesToRemoveSnapshot(names.at(row)))
        snapshots.removeAt(row);
}

bool SessionCommands::mayLose(const SnapshotListModel &snapshots)
{
    const QStringList names = snapshots.names();
    return names.isEmpty() || m_dialogs.agreesToLoseSnapshots(names);
}
