#include "apps/krparameter-desk/ValueCommands.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/DriveCommands.h"
#include "apps/krparameter-desk/SessionCommands.h"
#include "apps/krparameter-desk/SnapshotListModel.h"

#include <KrParameterDefinition/ParameterAddress.h>

ValueCommands::ValueCommands(const DeskActions &actions, const Receivers &receivers,
    const std::function<bool()> &commitField, QObject *parent)
    : QObject(parent)
    , m_actions(actions)
    , m_receivers(receivers)
    , m_commitField(commitField)
{
    connectProject();
    connectUndo();
    connectDrive();
}

void ValueCommands::connectProject()
{
    SessionCommands &project = m_receivers.project;
    on(DeskActions::OpenDevice, [&project](bool) { project.openDevice(); });
    on(DeskActions::LoadProject, [&project](bool) { project.loadProject(); });
    on(DeskActions::SaveProject, [&project](bool) { project.saveProject(); });
    on(DeskActions::SaveProjectAs, [&project](bool) { project.saveProjectElsewhere(); });
    on(DeskActions::TakeSnapshot,
        [this](bool) { m_receivers.project.takeSnapshot(m_receivers.snapshots); });
}

void ValueCommands::connectUndo()
{
    DeskSession &session = m_receivers.session;
    on(DeskActions::Undo, [this, &session](bool) {
        const QString address = session.undoStack()->undoText();
        session.undo();
        Q_EMIT undone(ParameterAddress(address, true));
    });
    on(DeskActions::Redo, [this, &session](bool) {
        const QString address = session.undoStack()->redoText();
        session.redo();
        Q_EMIT undone(ParameterAddress(address, true));
    });
}

void ValueCommands::connectDrive()
{
    on(DeskActions::GoOnline, [this](bool isOn) {
        m_receivers.drive.turn(isOn);
        Q_EMIT switched();
    });
    on(DeskActions::ChooseDrive, [this](bool) { m_receivers.drive.choose(); });
    on(DeskActions::ReadOnly, [this](bool isOn) { setReadOnly(isOn); });
}

void ValueCommands::on(DeskActions::eAction action, const std::function<void(bool)> &function)
{
    connect(m_actions[action], &QAction::triggered, this, [this, function](bool isOn) {
        if (m_commitField())
            function(isOn);
        else
            Q_EMIT switched();
    });
}

void ValueCommands::setReadOnly(bool isOn)
{
    if (DriveProject *project = m_receivers.session.project())
        project->container().setReadOnly(isOn);
    Q_EMIT switched();
}
