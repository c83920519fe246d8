#pragma once

#include <QtCore/QObject>

class DeskActions;
class DeskSession;
class OnlineSwitch;
class ParameterTableModel;
class ReadingProgress;
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
    /// How the desk stands to its drive.
    void updateOnline();
    /// How many values are shown.
    void updateCount();

private:
    static QString stateText(const OnlineSwitch *link);
    void updateUndo();

    QMainWindow &m_window;
    DeskSession &m_session;
    const ParameterTableModel &m_tableModel;
    const DeskActions &m_actions;
    QLabel *m_count;
    ReadingProgress *m_reading;
    QLabel *m_onlineState;
};
