#include "apps/krparameter-desk/DeskWindow.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/ActionCommand.h"
#include "apps/krparameter-desk/ActionProgress.h"
#include "apps/krparameter-desk/ComparisonPage.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskDialogs.h"
#include "apps/krparameter-desk/DeskMenu.h"
#include "apps/krparameter-desk/DeskStatus.h"
#include "apps/krparameter-desk/MessagePane.h"
#include "apps/krparameter-desk/OnlineDriveLink.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "apps/krparameter-desk/SnapshotPane.h"
#include "apps/krparameter-desk/TableNavigation.h"
#include "apps/krparameter-desk/WindowState.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtCore/QSettings>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTreeWidget>

#include <algorithm>

namespace {

constexpr QSize FirstSize(1280, 800);
constexpr int FirstMessageHeight = 105;
constexpr int FirstSnapshotWidth = 150;
/// Of a note in the status bar. **Unit** ms.
constexpr int NoticeSpan = 8000;

/// Those that are about the values as a whole: what is typed and not written yet belongs to them.
constexpr DeskActions::eAction CommandsOnValues[] = {
    DeskActions::OpenDevice,
    DeskActions::LoadProject,
    DeskActions::SaveProject,
    DeskActions::SaveProjectAs,
    DeskActions::Undo,
    DeskActions::Redo,
    DeskActions::TakeSnapshot,
    DeskActions::GoOnline,
    DeskActions::ChooseDrive,
    DeskActions::ReadOnly,
};

bool isOnValues(int action)
{
    return std::find(std::begin(CommandsOnValues), std::end(CommandsOnValues), action)
        != std::end(CommandsOnValues);
}

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
    , m_pages(new QTabWidget(this))
    , m_tableView(new ParameterTableView(m_tableModel, this))
    , m_comparison(new ComparisonPage(this))
    , m_snapshotDock(new QDockWidget(this))
    , m_snapshotPane(new SnapshotPane(m_snapshots, *m_actions, this))
    , m_messageDock(new QDockWidget(this))
    , m_messagePane(new MessagePane(
          m_messages,
          [this](const ParameterAddress &address) { return m_navigation->isKnown(address); }, this))
    , m_navigation(new TableNavigation(
          m_tableModel, *m_tableView, [this] { reveal(); }, this))
    , m_status(new DeskStatus(*this, m_session, m_tableModel, *m_actions))
    , m_actionProgress(new ActionProgress(this))
    , m_actionCommand(new ActionCommand(
          *(*m_actions)[DeskActions::StartAction], m_starter, m_tableModel, *m_tableView))
{
    System::instance()->setMainWindow(this);
    resize(FirstSize);
    addToolBar(m_selectors);
    buildMiddle();
    buildDocks();
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
    goToComparison();
}

/// Without comparison the page itself takes the keys.
void DeskWindow::goToComparison()
{
    m_pages->setCurrentWidget(m_comparison);
    auto *tree = m_comparison->findChild<QTreeWidget *>();
    (tree ? tree : static_cast<QWidget *>(m_comparison))->setFocus();
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

void DeskWindow::buildMiddle()
{
    m_tableView->setObjectName(QStringLiteral("parameters"));
    m_pages->setDocumentMode(true);
    m_pages->addTab(m_tableView, QString());
    m_pages->addTab(m_comparison, QString());
    setCentralWidget(m_pages);
    connect(m_comparison, &ComparisonPage::addressActivated, this, &DeskWindow::goToCompared);
}

void DeskWindow::buildDocks()
{
    m_snapshotDock->setObjectName(QStringLiteral("snapshotDock"));
    m_snapshotDock->setWidget(m_snapshotPane);
    addDockWidget(Qt::RightDockWidgetArea, m_snapshotDock);
    m_messageDock->setObjectName(QStringLiteral("messageDock"));
    m_messagePane->setObjectName(QStringLiteral("messages"));
    m_messageDock->setWidget(m_messagePane);
    addDockWidget(Qt::BottomDockWidgetArea, m_messageDock);
    resizeDocks({m_messageDock}, {FirstMessageHeight}, Qt::Vertical);
    resizeDocks({m_snapshotDock}, {FirstSnapshotWidth}, Qt::Horizontal);
    connect(m_messagePane, &MessagePane::addressActivated, this, &DeskWindow::goTo);
    connect(m_messagePane, &MessagePane::leadsNowhere, this,
        [this](const QString &reason) { statusBar()->showMessage(reason, NoticeSpan); });
}

void DeskWindow::on(int action, const std::function<void(bool)> &function)
{
    connect((*m_actions)[DeskActions::eAction(action)], &QAction::triggered, this,
        [this, action, function](bool isOn) {
            // A field whose text is refused stays open, and nothing else happens.
            if (!isOnValues(action) || m_tableView->commitOpenField())
                function(isOn);
            else
                m_status->updateSwitches();
        });
}

void DeskWindow::connectCommands()
{
    on(DeskActions::OpenDevice, [this](bool) { m_commands.openDevice(); });
    on(DeskActions::LoadProject, [this](bool) { m_commands.loadProject(); });
    on(DeskActions::SaveProject, [this](bool) { m_commands.saveProject(); });
    on(DeskActions::SaveProjectAs, [this](bool) { m_commands.saveProjectElsewhere(); });
    on(DeskActions::Quit, [this](bool) { close(); });
    on(DeskActions::Undo, [this](bool) {
        const QString address = m_session.undoStack()->undoText();
        m_session.undo();
        goTo(ParameterAddress(address, true));
    });
    on(DeskActions::Redo, [this](bool) {
        const QString address = m_session.undoStack()->redoText();
        m_session.redo();
        goTo(ParameterAddress(address, true));
    });
    on(DeskActions::TakeSnapshot, [this](bool) { m_commands.takeSnapshot(m_snapshots); });
    on(DeskActions::RemoveSnapshot,
        [this](bool) { m_commands.removeSnapshot(m_snapshots, m_snapshotPane->currentRow()); });
    on(DeskActions::ClearMessages, [this](bool) { m_messages.clear(); });
    on(DeskActions::GoOnline, [this](bool isOn) {
        m_driveCommands.turn(isOn);
        m_status->updateSwitches();
    });
    on(DeskActions::ChooseDrive, [this](bool) { m_driveCommands.choose(); });
    on(DeskActions::ReadOnly, [this](bool isOn) {
        if (m_session.project())
            m_session.project()->container().setReadOnly(isOn);
        m_status->updateSwitches();
    });
    const QUndoStack *stack = m_session.undoStack();
    connect(stack, &QUndoStack::indexChanged, m_status, &DeskStatus::updateSwitches);
}

void DeskWindow::connectViews()
{
    on(DeskActions::Search, [this](bool) {
        m_pages->setCurrentWidget(m_tableView);
        m_selectors->searchField()->setFocus();
        m_selectors->searchField()->selectAll();
    });
    on(DeskActions::EditValue, [this](bool) { m_tableView->editCurrentValue(); });
    on(DeskActions::CompareSnapshots, [this](bool) { showComparison(); });
    on(DeskActions::ShowParameters, [this](bool) {
        m_pages->setCurrentWidget(m_tableView);
        m_tableView->setFocus();
    });
    on(DeskActions::ShowComparison, [this](bool) { goToComparison(); });
    on(DeskActions::GoToSnapshots, [this](bool) {
        m_snapshotDock->show();
        m_snapshotPane->list()->setFocus();
    });
    on(DeskActions::GoToMessages, [this](bool) {
        m_messageDock->show();
        m_messagePane->setFocus();
    });
    // Nobody edits what is not to be seen.
    connect(m_pages, &QTabWidget::currentChanged, this, [this] {
        (*m_actions)[DeskActions::EditValue]->setEnabled(m_pages->currentWidget() == m_tableView);
    });
    // Delete and F2 mean something else in fields and in other lists.
    bindTo(*m_snapshotPane->list(), DeskActions::RemoveSnapshot);
    bindTo(*m_tableView, DeskActions::EditValue);
    m_tableView->addAction((*m_actions)[DeskActions::StartAction]);
}

/// The key works in this widget alone.
void DeskWindow::bindTo(QWidget &widget, int action)
{
    QAction *bound = (*m_actions)[DeskActions::eAction(action)];
    removeAction(bound);
    bound->setShortcutContext(Qt::WidgetShortcut);
    widget.addAction(bound);
}

void DeskWindow::connectSelectors()
{
    connect(m_selectors, &SelectorBar::searchChanged, &m_tableModel,
        &ParameterTableModel::setSearchedText);
    connect(
        m_selectors, &SelectorBar::searchChanged, m_tableView, &ParameterTableView::showCurrent);
    connect(m_selectors, &SelectorBar::searchLeft, this, [this] {
        if (!m_tableView->currentIndex().isValid())
            m_tableView->setCurrentIndex(m_tableModel.index(0, ParameterTableModel::Value));
        m_pages->setCurrentWidget(m_tableView);
        m_tableView->setFocus();
    });
    // Who types wants to see what is found.
    connect(m_selectors->searchField(), &QLineEdit::textEdited, this,
        [this] { m_pages->setCurrentWidget(m_tableView); });
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
    m_pages->setTabText(0, tr("Parameter"));
    m_pages->setTabText(1, tr("Vergleich"));
    m_snapshotDock->setWindowTitle(tr("Snapshots"));
    m_messageDock->setWindowTitle(tr("Meldungen"));
    m_tableModel.refresh();
    compareChecked();
    m_status->update();
}

/// A title may name a record as a whole, which has no value of its own.
void DeskWindow::goTo(const ParameterAddress &address)
{
    if (m_navigation->canNavigateToAddress(address)) {
        m_pages->setCurrentWidget(m_tableView);
        m_navigation->navigateToAddress(address);
    } else if (m_navigation->canNavigateToParameter(address.coordinate())) {
        m_pages->setCurrentWidget(m_tableView);
        m_navigation->navigateToParameter(address.coordinate());
    } else {
        statusBar()->showMessage(m_navigation->obstacle(address), NoticeSpan);
    }
}

/// What another device calls so is another parameter.
void DeskWindow::goToCompared(const ParameterAddress &address)
{
    const QStringList &devices = m_comparison->devices();
    if (!m_session.project() || devices.contains(m_session.deviceName())) {
        goTo(address);
        return;
    }
    statusBar()->showMessage(tr("Der Vergleich gehört zu %1; offen ist %2.")
                                 .arg(devices.join(QStringLiteral(", ")), m_session.deviceName()),
        NoticeSpan);
}

void DeskWindow::reveal()
{
    m_selectors->searchField()->clear();
    m_selectors->showAllAxes();
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
