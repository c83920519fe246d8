#include "apps/krparameter-desk/DeskWindow.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/ActionCommand.h"
#include "apps/krparameter-desk/ActionProgress.h"
#include "apps/krparameter-desk/AddressGuide.h"
#include "apps/krparameter-desk/ComparisonPage.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskDialogs.h"
#include "apps/krparameter-desk/DeskMenu.h"
#include "apps/krparameter-desk/DeskPlaces.h"
#include "apps/krparameter-desk/DeskStatus.h"
#include "apps/krparameter-desk/MessagePane.h"
#include "apps/krparameter-desk/OnlineDriveLink.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "apps/krparameter-desk/SnapshotPane.h"
#include "apps/krparameter-desk/TableNavigation.h"
#include "apps/krparameter-desk/ValueCommands.h"
#include "apps/krparameter-desk/WindowState.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtCore/QSettings>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

namespace {

constexpr QSize FirstSize(1280, 800);

} // namespace

DeskWindow::DeskWindow(DeskDialogs &dialogs)
    : m_dialogs(dialogs)
    , m_drive(dialogs)
    , m_session(dialogs)
    , m_commands(m_session, dialogs)
    , m_driveCommands(m_session, m_drive)
    , m_actions(new DeskActions(this))
    , m_menu(new DeskMenu(*menuBar(), *m_actions))
    , m_selectors(new SelectorBar(this))
    , m_tableView(new ParameterTableView(m_tableModel, this))
    , m_comparison(new ComparisonPage(this))
    , m_snapshotPane(new SnapshotPane(m_snapshots, *m_actions, this))
    , m_messagePane(new MessagePane(
          m_messages,
          [this](const ParameterAddress &address) { return m_navigation->isKnown(address); }, this))
    , m_places(new DeskPlaces(*this, *m_actions,
          {*m_tableView, *m_comparison, *m_snapshotPane, *m_messagePane, *m_selectors}))
    , m_navigation(new TableNavigation(
          m_tableModel, *m_tableView, [this] { m_selectors->showEverything(); }, this))
    , m_guide(new AddressGuide(
          *m_navigation, [this] { m_places->showTable(); }, *statusBar(), this))
    , m_status(new DeskStatus(*this, m_session, m_tableModel, *m_actions))
    , m_valueCommands(new ValueCommands(
          *m_actions, {m_session, m_commands, m_driveCommands, m_snapshots},
          [this] { return m_tableView->commitOpenField(); }, this))
    , m_actionProgress(new ActionProgress(this))
    , m_actionCommand(new ActionCommand(
          *(*m_actions)[DeskActions::StartAction], m_starter, m_tableModel, *m_tableView))
{
    System::instance()->setMainWindow(this);
    resize(FirstSize);
    connectCommands();
    connectViews();
    connectSelectors();
    connectSession();
    connectStarter();
    m_selectors->setAccessLevel(System::information()->userAccessLevel());
    retranslate();
    onChanged();
}

DeskWindow::~DeskWindow()
{
    // The members go before the widgets that show them.
    System::information()->disconnect(this);
    m_session.undoStack()->disconnect(m_status);
    m_language.disconnect(this);
    m_session.disconnect(this);
    m_session.disconnect(m_status);
    m_snapshots.disconnect(this);
    onAboutToChange();
    m_comparison->clear();
}

ParameterNavigationHost &DeskWindow::navigation()
{
    return *m_navigation;
}

void DeskWindow::setAccessLevel(quint32 level)
{
    if (level > SelectorBar::GreatestAccessLevel)
        return;
    System::information()->setUserAccessLevel(level);
    m_selectors->setAccessLevel(level);
    m_status->updateCount();
}

void DeskWindow::restoreState(const QString &language)
{
    QSettings settings;
    const WindowState state(settings);
    state.restore(*this, m_tableView->columns());
    // Also after a state that lacks it: nothing else would bring it back.
    m_selectors->show();
    if (const auto level = state.accessLevel())
        setAccessLevel(*level);
    m_language.choose(language.isEmpty() ? state.language() : language);
}

void DeskWindow::saveState()
{
    QSettings settings;
    WindowState state(settings);
    state.save(*this, m_tableView->columns());
    state.setAccessLevel(System::information()->userAccessLevel());
    state.setLanguage(m_language.language());
}

void DeskWindow::showComparison()
{
    compareChecked();
    m_places->goToComparison();
}

void DeskWindow::closeEvent(QCloseEvent *event)
{
    if (!m_tableView->commitOpenField() || !m_session.mayClose()) {
        event->ignore();
        return;
    }
    if (!m_commands.mayLose(m_snapshots)) {
        event->ignore();
        return;
    }
    saveState();
    QMainWindow::closeEvent(event);
}

void DeskWindow::connectCommands()
{
    const auto on = [this](DeskActions::eAction action, const std::function<void()> &function) {
        connect((*m_actions)[action], &QAction::triggered, this, function);
    };
    on(DeskActions::Quit, [this] { close(); });
    on(DeskActions::CompareSnapshots, [this] { showComparison(); });
    on(DeskActions::RemoveSnapshot,
        [this] { m_commands.removeSnapshot(m_snapshots, m_snapshotPane->currentRow()); });
    on(DeskActions::ClearMessages, [this] { m_messages.clear(); });
    connect(m_valueCommands, &ValueCommands::undone, m_guide, &AddressGuide::goTo);
    connect(m_valueCommands, &ValueCommands::switched, m_status, &DeskStatus::updateSwitches);
    const QUndoStack *stack = m_session.undoStack();
    connect(stack, &QUndoStack::indexChanged, m_status, &DeskStatus::updateSwitches);
}

void DeskWindow::connectViews()
{
    connect(m_comparison, &ComparisonPage::addressActivated, m_guide,
        [this](const ParameterAddress &address) {
            m_guide->goToCompared(address, m_comparison->devices());
        });
    connect(m_messagePane, &MessagePane::addressActivated, m_guide, &AddressGuide::goTo);
    connect(m_messagePane, &MessagePane::leadsNowhere, m_guide, &AddressGuide::tell);
}

void DeskWindow::connectSelectors()
{
    connect(m_selectors, &SelectorBar::searchChanged, &m_tableModel,
        &ParameterTableModel::setSearchedText);
    connect(
        m_selectors, &SelectorBar::searchChanged, m_tableView, &ParameterTableView::showCurrent);
    connect(m_selectors, &SelectorBar::axisChosen, &m_tableModel, &ParameterTableModel::setAxis);
    connect(m_selectors, &SelectorBar::axisChosen, m_tableView, &ParameterTableView::showCurrent);
    connect(m_selectors, &SelectorBar::accessLevelChosen, this, &DeskWindow::setAccessLevel);
    connect(m_selectors, &SelectorBar::languageChosen, &m_language, &DeskLanguage::choose);
    connect(&m_language, &DeskLanguage::changed, this, &DeskWindow::retranslate);
    connect(&m_tableModel, &QAbstractItemModel::layoutChanged, m_status, &DeskStatus::updateCount);
    connect(&m_tableModel, &QAbstractItemModel::modelReset, m_status, &DeskStatus::updateCount);
}

void DeskWindow::connectSession()
{
    m_session.setMakeLink([this](ParameterContainer &container) {
        return std::make_unique<OnlineDriveLink>(container, m_drive.address());
    });
    connect(&m_session, &DeskSession::deviceReplaced, &m_messages, &MessageListModel::endDevice);
    connect(&m_session, &DeskSession::aboutToChange, this, &DeskWindow::onAboutToChange);
    connect(&m_session, &DeskSession::changed, this, &DeskWindow::onChanged);
    connect(&m_session, &DeskSession::saved, m_status, &DeskStatus::updateTitle);
    connect(&m_session, &DeskSession::modifiedChanged, this, &QWidget::setWindowModified);
    connect(&m_snapshots, &SnapshotListModel::checkedChanged, this, &DeskWindow::compareChecked);
    // Values above the level must not stay in sight, nor in the HTML; the text export asks no level.
    connect(
        System::information(), &SystemInformation::userAccessLevelParameterChanged, this, [this] {
            m_comparison->clear();
            compareChecked();
        });
}

void DeskWindow::connectStarter()
{
    // Behind the count.
    statusBar()->insertPermanentWidget(1, m_actionProgress);
    connect(&m_starter, &ActionStarter::started, m_actionProgress, &ActionProgress::add);
    connect(&m_starter, &ActionStarter::progressed, m_actionProgress, &ActionProgress::set);
    connect(&m_starter, &ActionStarter::ended, m_actionProgress, &ActionProgress::remove);
}

void DeskWindow::retranslate()
{
    m_actions->retranslate();
    m_menu->retranslate();
    m_actionCommand->update();
    m_selectors->retranslate();
    m_selectors->setLanguage(m_language.language());
    m_places->retranslate();
    m_tableModel.refresh();
    compareChecked();
    m_status->update();
}

void DeskWindow::onAboutToChange()
{
    m_starter.setDevice(nullptr, nullptr);
    m_tableModel.setDevice(nullptr, nullptr);
    m_navigation->setProject(nullptr);
}

void DeskWindow::onChanged()
{
    DriveProject *project = m_session.project();
    m_tableModel.setDevice(project, m_session.writer());
    m_starter.setDevice(project, m_session.onlineSwitch());
    m_navigation->setProject(project);
    const QList<int> axes = project ? project->firmware().axes() : QList<int>();
    m_selectors->setAxes(axes);
    m_tableModel.setAxis({});
    if (project) {
        connect(&project->container(), &ParameterContainer::readOnlyChanged, m_status,
            &DeskStatus::updateSwitches, Qt::UniqueConnection);
    }
    if (m_tableModel.rowCount() > 0)
        m_tableView->setCurrentIndex(m_tableModel.index(0, ParameterTableModel::Value));
    m_status->update();
}

void DeskWindow::compareChecked()
{
    m_dialogs.run(tr("Snapshots vergleichen"), [this](Progress &progress) {
        m_comparison->compare(m_snapshots.checkedSnapshots(), m_snapshots.checkedNames(),
            m_snapshots.checkedDevices(), &progress);
    });
}
