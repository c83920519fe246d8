#pragma once

#include "apps/krparameter-desk/DeskActions.h"

#include <functional>

class DeskSession;
class DriveCommands;
class ParameterAddress;
class SessionCommands;
class SnapshotListModel;

/// Does what the actions on the values as a whole say. What is typed and not written yet belongs to the
/// values: it is written first, and where it is refused nothing else happens.
class ValueCommands : public QObject {
    Q_OBJECT

public:
    struct Receivers {
        DeskSession &session;
        SessionCommands &project;
        DriveCommands &drive;
        SnapshotListModel &snapshots;
    };

    /// `commitField` writes what stands in the open field; false where it is refused. **Owner** of all the
    /// caller.
    ValueCommands(const DeskActions &actions, const Receivers &receivers,
        const std::function<bool()> &commitField, QObject *parent);

Q_SIGNALS:
    /// Also a redo.
    void undone(const ParameterAddress &address);
    /// Switches may say what did not come about.
    void switched();

private:
    void connectProject();
    void connectUndo();
    void connectDrive();
    void on(DeskActions::eAction action, const std::function<void(bool)> &function);
    void setReadOnly(bool isOn);

    const DeskActions &m_actions;
    const Receivers m_receivers;
    std::function<bool()> m_commitField;
};
