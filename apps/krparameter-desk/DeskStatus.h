#pragma once

#include <QtCore/QObject>

class DeskActions;
class DeskSession;
class ParameterTableModel;
class QLabel;
class QMainWindow;

/// Says in title, status bar and actions how the desk is doing.
class DeskStatus : public QObject {
    Q_OBJECT

public:
    /// **Owner** of all the caller.
    DeskStatus(QMainWindow &window, DeskSession &session, const ParameterTableModel &tableModel,
        const DeskActions &actions);

    void update();
    /// Device and project.
    void updateTitle();
    /// What can be done now, online and read-only.
    void updateSwitches();
    /// How many values are shown.
    void updateCount();

private:
    QMainWindow &m_window;
    DeskSession &m_session;
    const ParameterTableModel &m_tableModel;
    const DeskActions &m_actions;
    QLabel *m_count;
    QLabel *m_onlineState;
};
