#include "apps/krparameter-desk/DeskStatus.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/OnlineSwitch.h"

#include <QtCore/QDir>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

DeskStatus::DeskStatus(DeskWindow &window, const DeskActions &actions)
    : QObject(&window)
    , m_window(window)
    , m_actions(actions)
    , m_count(new QLabel(&window))
    , m_onlineState(new QLabel(&window))
{
    window.statusBar()->addWidget(m_count);
    window.statusBar()->addPermanentWidget(m_onlineState);
}

void DeskStatus::update()
{
    updateTitle();
    updateSwitches();
    updateCount();
}

void DeskStatus::updateTitle()
{
    DeskSession &session = m_window.session();
    QStringList parts;
    if (!session.folder().isEmpty())
        parts.append(QDir(session.folder()).dirName());
    if (session.project())
        parts.append(session.deviceName());
    parts.append(QStringLiteral("krparameter-desk"));
    m_window.setWindowTitle(parts.join(QStringLiteral(" – ")).prepend(QStringLiteral("[*]")));
    m_window.setWindowModified(session.isModified());
}

void DeskStatus::updateSwitches()
{
    DeskSession &session = m_window.session();
    const bool hasDevice = session.project() != nullptr;
    const OnlineSwitch *link = session.onlineSwitch();
    const auto state = link ? link->state() : OnlineSwitch::eState::Offline;
    for (const DeskActions::eAction action :
        {DeskActions::LoadProject, DeskActions::SaveProject, DeskActions::SaveProjectAs,
            DeskActions::TakeSnapshot, DeskActions::GoOnline, DeskActions::ReadOnly})
        m_actions[action]->setEnabled(hasDevice);
    m_actions[DeskActions::Undo]->setEnabled(session.canUndo());
    m_actions[DeskActions::Redo]->setEnabled(session.canRedo());
    m_actions[DeskActions::GoOnline]->setChecked(state != OnlineSwitch::eState::Offline);
    const bool isReadOnly = hasDevice && session.project()->container().isReadOnly();
    m_actions[DeskActions::ReadOnly]->setChecked(isReadOnly);
    QString text = state == OnlineSwitch::eState::Online ? tr("online")
        : state == OnlineSwitch::eState::Opening         ? tr("verbindet …")
                                                         : tr("offline");
    if (isReadOnly)
        text += tr(", nur lesen");
    m_onlineState->setText(text);
}

void DeskStatus::updateCount()
{
    DeskSession &session = m_window.session();
    m_count->setText(session.project()
            ? tr("%1 von %2 Werten")
                  .arg(m_window.tableModel().rowCount())
                  .arg(m_window.tableModel().searchableCount())
            : tr("Kein Gerät offen: Strg+O öffnet eine Gerätebeschreibung"));
}
