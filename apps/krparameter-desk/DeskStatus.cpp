#include "apps/krparameter-desk/DeskStatus.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/ReadingProgress.h"

#include <QtCore/QDir>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QStatusBar>

DeskStatus::DeskStatus(QMainWindow &window, DeskSession &session,
    const ParameterTableModel &tableModel, const DeskActions &actions)
    : QObject(&window)
    , m_window(window)
    , m_session(session)
    , m_tableModel(tableModel)
    , m_actions(actions)
    , m_count(new QLabel(&window))
    , m_reading(new ReadingProgress(&window))
    , m_onlineState(new QLabel(&window))
{
    window.statusBar()->addWidget(m_count);
    window.statusBar()->addPermanentWidget(m_reading);
    // What is added stands there visible.
    m_reading->end();
    window.statusBar()->addPermanentWidget(m_onlineState);
    connect(&session, &DeskSession::onlineChanged, this, &DeskStatus::updateSwitches);
    connect(&session, &DeskSession::readingProgressed, this, &DeskStatus::updateOnline);
    connect(m_reading, &ReadingProgress::cancelled, this, [&session] {
        if (session.onlineSwitch())
            session.onlineSwitch()->turn(false);
    });
}

void DeskStatus::update()
{
    m_reading->retranslate();
    updateTitle();
    updateSwitches();
    updateCount();
}

void DeskStatus::updateTitle()
{
    QStringList parts;
    if (!m_session.folder().isEmpty())
        parts.append(QDir(m_session.folder()).dirName());
    if (m_session.project())
        parts.append(m_session.deviceName());
    parts.append(QStringLiteral("krparameter-desk"));
    m_window.setWindowTitle(parts.join(QStringLiteral(" – ")).prepend(QStringLiteral("[*]")));
    m_window.setWindowModified(m_session.isModified());
}

void DeskStatus::updateSwitches()
{
    const bool hasDevice = m_session.project() != nullptr;
    const OnlineSwitch *link = m_session.onlineSwitch();
    const auto state = link ? link->state() : OnlineSwitch::eState::Offline;
    for (const DeskActions::eAction action :
        {DeskActions::LoadProject, DeskActions::SaveProject, DeskActions::SaveProjectAs,
            DeskActions::TakeSnapshot, DeskActions::GoOnline, DeskActions::ReadOnly})
        m_actions[action]->setEnabled(hasDevice);
    updateUndo();
    m_actions[DeskActions::GoOnline]->setChecked(state != OnlineSwitch::eState::Offline);
    m_actions[DeskActions::ReadOnly]->setChecked(m_session.isReadOnly());
    updateOnline();
}

void DeskStatus::updateOnline()
{
    const OnlineSwitch *link = m_session.onlineSwitch();
    const bool isReading = link && link->state() == OnlineSwitch::eState::Reading;
    if (isReading)
        m_reading->set(link->readCount(), link->countToRead());
    else
        m_reading->end();
    QString text = stateText(link);
    if (m_session.isReadOnly())
        text += tr(", nur lesen");
    m_onlineState->setText(text);
}

QString DeskStatus::stateText(const OnlineSwitch *link)
{
    switch (link ? link->state() : OnlineSwitch::eState::Offline) {
    case OnlineSwitch::eState::Offline:
        break;
    case OnlineSwitch::eState::Opening:
        return tr("verbindet …");
    case OnlineSwitch::eState::Reading:
        return tr("liest %1 von %2 Werten …").arg(link->readCount()).arg(link->countToRead());
    case OnlineSwitch::eState::Online:
        return tr("online");
    }
    return tr("offline");
}

/// The commands bear the addresses of what was written.
void DeskStatus::updateUndo()
{
    const QString undone = m_session.undoStack()->undoText();
    const QString redone = m_session.undoStack()->redoText();
    QAction *undo = m_actions[DeskActions::Undo];
    QAction *redo = m_actions[DeskActions::Redo];
    undo->setEnabled(m_session.canUndo());
    redo->setEnabled(m_session.canRedo());
    undo->setText(undone.isEmpty() ? tr("&Rückgängig") : tr("&Rückgängig: %1").arg(undone));
    redo->setText(redone.isEmpty() ? tr("&Wiederholen") : tr("&Wiederholen: %1").arg(redone));
}

void DeskStatus::updateCount()
{
    m_count->setText(m_session.project()
            ? tr("%1 von %2 Werten")
                  .arg(m_tableModel.rowCount())
                  .arg(m_tableModel.searchableCount())
            : tr("Kein Gerät offen: Strg+O öffnet eine Gerätebeschreibung"));
}
