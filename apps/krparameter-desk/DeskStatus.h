#pragma once

#include <QtCore/QObject>

class DeskActions;
class DeskWindow;
class QLabel;

/// Says in title, status bar and actions how the desk is doing.
class DeskStatus : public QObject {
    Q_OBJECT

public:
    /// **Owner** of both the caller.
    DeskStatus(DeskWindow &window, const DeskActions &actions);

    void update();
    /// Device and project.
    void updateTitle();
    /// What can be done now, online and read-only.
    void updateSwitches();
    /// How many values are shown.
    void updateCount();

private:
    DeskWindow &m_window;
    const DeskActions &m_actions;
    QLabel *m_count;
    QLabel *m_onlineState;
};
