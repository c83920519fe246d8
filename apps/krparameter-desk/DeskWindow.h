#pragma once

#include "apps/krparameter-desk/ActionStarter.h"
#include "apps/krparameter-desk/DeskLanguage.h"
#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/DriveChoice.h"
#include "apps/krparameter-desk/DriveCommands.h"
#include "apps/krparameter-desk/MessageListModel.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/SessionCommands.h"
#include "apps/krparameter-desk/SnapshotListModel.h"

#include <QtWidgets/QMainWindow>

class ActionCommand;
class ActionProgress;
class AddressGuide;
class ComparisonPage;
class DeskActions;
class DeskDialogs;
class DeskMenu;
class DeskPlaces;
class DeskStatus;
class MessagePane;
class ParameterNavigationHost;
class ParameterTableView;
class SelectorBar;
class SnapshotPane;
class TableNavigation;
class ValueCommands;

/// The desk: table and comparison in the middle, snapshots on the right, messages below.
class DeskWindow : public QMainWindow {
    Q_OBJECT

public:
    /// **Owner** of the dialogs the caller; they outlive the window.
    explicit DeskWindow(DeskDialogs &dialogs);
    ~DeskWindow() override;

    DeskSession &session() { return m_session; }
    DeskLanguage &language() { return m_language; }
    DeskActions &actions() { return *m_actions; }
    SelectorBar &selectors() { return *m_selectors; }
    ParameterTableModel &tableModel() { return m_tableModel; }
    ParameterTableView &tableView() { return *m_tableView; }
    SnapshotListModel &snapshots() { return m_snapshots; }
    ParameterNavigationHost &navigation();
    /// Which drive goOnline reaches.
    DriveChoice &drive() { return m_drive; }

    /// **Refused** a level above the greatest there is.
    void setAccessLevel(quint32 level);
    /// As it was left, but in a language that was asked for.
    void restoreState(const QString &language = {});
    void saveState();
    void showComparison();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectCommands();
    void connectViews();
    void connectSelectors();
    void connectSession();
    void connectStarter();
    void retranslate();

    void onAboutToChange();
    void onChanged();
    void compareChecked();

    DeskDialogs &m_dialogs;
    DeskLanguage m_language;
    DriveChoice m_drive;
    DeskSession m_session;
    SessionCommands m_commands;
    DriveCommands m_driveCommands;
    ParameterTableModel m_tableModel;
    SnapshotListModel m_snapshots;
    MessageListModel m_messages;
    ActionStarter m_starter;
    DeskActions *m_actions;
    DeskMenu *m_menu;
    SelectorBar *m_selectors;
    ParameterTableView *m_tableView;
    ComparisonPage *m_comparison;
    SnapshotPane *m_snapshotPane;
    MessagePane *m_messagePane;
    DeskPlaces *m_places;
    TableNavigation *m_navigation;
    AddressGuide *m_guide;
    DeskStatus *m_status;
    ValueCommands *m_valueCommands;
    ActionProgress *m_actionProgress;
    ActionCommand *m_actionCommand;
};
