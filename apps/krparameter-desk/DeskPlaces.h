#pragma once

#include <QtCore/QObject>

class ComparisonPage;
class DeskActions;
class MessagePane;
class ParameterTableView;
class QAction;
class QDockWidget;
class QMainWindow;
class QTabWidget;
class QWidget;
class SelectorBar;
class SnapshotPane;

/// Where everything stands on the desk, and the keys that lead there: table and comparison in the middle,
/// snapshots on the right, messages below, the search above.
class DeskPlaces : public QObject {
    Q_OBJECT

public:
    struct Views {
        ParameterTableView &table;
        ComparisonPage &comparison;
        SnapshotPane &snapshots;
        MessagePane &messages;
        SelectorBar &selectors;
    };

    /// **Owner** of all the caller; the window takes the views.
    DeskPlaces(QMainWindow &window, const DeskActions &actions, const Views &views);

    void retranslate();
    /// To the front; the keys stay where they are.
    void showTable();
    void goToTable();
    /// Without comparison the page itself takes the keys.
    void goToComparison();

private:
    void buildMiddle();
    void buildDocks();
    void connectActions();
    void connectSearch();
    void bindTo(QWidget &widget, QAction &action);
    void goToSearch();

    QMainWindow &m_window;
    const DeskActions &m_actions;
    const Views m_views;
    QTabWidget *m_pages;
    QDockWidget *m_snapshotDock;
    QDockWidget *m_messageDock;
};
