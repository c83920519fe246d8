#include "apps/krparameter-desk/DeskPlaces.h"

#include "apps/krparameter-desk/ComparisonPage.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/MessagePane.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "apps/krparameter-desk/SnapshotPane.h"
#include "apps/krparameter-desk/TableColumns.h"

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTreeWidget>

namespace {

constexpr int FirstMessageHeight = 105;
constexpr int FirstSnapshotWidth = 150;

} // namespace

DeskPlaces::DeskPlaces(QMainWindow &window, const DeskActions &actions, const Views &views)
    : QObject(&window)
    , m_window(window)
    , m_actions(actions)
    , m_views(views)
    , m_pages(new QTabWidget(&window))
    , m_snapshotDock(new QDockWidget(&window))
    , m_messageDock(new QDockWidget(&window))
{
    window.addToolBar(&views.selectors);
    buildMiddle();
    buildDocks();
    connectActions();
    connectSearch();
}

void DeskPlaces::retranslate()
{
    m_pages->setTabText(0, tr("Parameter"));
    m_pages->setTabText(1, tr("Vergleich"));
    m_snapshotDock->setWindowTitle(tr("Snapshots"));
    m_messageDock->setWindowTitle(tr("Meldungen"));
}

void DeskPlaces::showTable()
{
    m_pages->setCurrentWidget(&m_views.table);
}

void DeskPlaces::goToTable()
{
    showTable();
    m_views.table.setFocus();
}

void DeskPlaces::goToComparison()
{
    m_pages->setCurrentWidget(&m_views.comparison);
    auto *tree = m_views.comparison.findChild<QTreeWidget *>();
    (tree ? tree : static_cast<QWidget *>(&m_views.comparison))->setFocus();
}

void DeskPlaces::buildMiddle()
{
    m_views.table.setObjectName(QStringLiteral("parameters"));
    m_pages->setDocumentMode(true);
    m_pages->addTab(&m_views.table, QString());
    m_pages->addTab(&m_views.comparison, QString());
    m_window.setCentralWidget(m_pages);
}

void DeskPlaces::buildDocks()
{
    m_snapshotDock->setObjectName(QStringLiteral("snapshotDock"));
    m_snapshotDock->setWidget(&m_views.snapshots);
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_snapshotDock);
    m_messageDock->setObjectName(QStringLiteral("messageDock"));
    m_views.messages.setObjectName(QStringLiteral("messages"));
    m_messageDock->setWidget(&m_views.messages);
    m_window.addDockWidget(Qt::BottomDockWidgetArea, m_messageDock);
    m_window.resizeDocks({m_messageDock}, {FirstMessageHeight}, Qt::Vertical);
    m_window.resizeDocks({m_snapshotDock}, {FirstSnapshotWidth}, Qt::Horizontal);
}

void DeskPlaces::connectActions()
{
    const auto on = [this](DeskActions::eAction action, auto function) {
        connect(m_actions[action], &QAction::triggered, this, function);
    };
    on(DeskActions::Search, &DeskPlaces::goToSearch);
    on(DeskActions::ShowParameters, &DeskPlaces::goToTable);
    on(DeskActions::ShowComparison, &DeskPlaces::goToComparison);
    on(DeskActions::GoToSnapshots, [this] {
        m_snapshotDock->show();
        m_views.snapshots.list()->setFocus();
    });
    on(DeskActions::GoToMessages, [this] {
        m_messageDock->show();
        m_views.messages.setFocus();
    });
    on(DeskActions::EditValue, [this] { m_views.table.editCurrentValue(); });
    // Nobody edits what is not to be seen.
    connect(m_pages, &QTabWidget::currentChanged, this, [this] {
        m_actions[DeskActions::EditValue]->setEnabled(m_pages->currentWidget() == &m_views.table);
    });
    // Delete and F2 mean something else in fields and in other lists.
    bindTo(*m_views.snapshots.list(), *m_actions[DeskActions::RemoveSnapshot]);
    bindTo(m_views.table, *m_actions[DeskActions::EditValue]);
    m_views.table.addAction(m_actions[DeskActions::StartAction]);
}

void DeskPlaces::connectSearch()
{
    connect(&m_views.selectors, &SelectorBar::searchLeft, this, [this] {
        ParameterTableView &table = m_views.table;
        if (!table.currentIndex().isValid())
            table.setCurrentIndex(table.model()->index(0, TableColumns::Value));
        goToTable();
    });
    // Who types wants to see what is found.
    connect(m_views.selectors.searchField(), &QLineEdit::textEdited, this, &DeskPlaces::showTable);
}

/// The key works in this widget alone.
void DeskPlaces::bindTo(QWidget &widget, QAction &action)
{
    m_window.removeAction(&action);
    action.setShortcutContext(Qt::WidgetShortcut);
    widget.addAction(&action);
}

void DeskPlaces::goToSearch()
{
    showTable();
    m_views.selectors.searchField()->setFocus();
    m_views.selectors.searchField()->selectAll();
}
