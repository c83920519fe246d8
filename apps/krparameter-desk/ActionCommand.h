#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>

#include <optional>

class ActionStarter;
class ParameterTableModel;
class ParameterTableView;
class QAction;

/// Starts the action of the drive that the current row of the table belongs to, and says why it cannot
/// be started now.
class ActionCommand : public QObject {
    Q_OBJECT

public:
    /// **Owner** of all the caller; they outlive the command.
    ActionCommand(QAction &action, ActionStarter &starter, const ParameterTableModel &model,
        ParameterTableView &view);

    /// Also in another language.
    void update();

private:
    std::optional<ValuePlace> currentPlace() const;
    void start();

    QAction &m_action;
    ActionStarter &m_starter;
    const ParameterTableModel &m_model;
    ParameterTableView &m_view;
};
