#include "apps/krparameter-desk/ActionCommand.h"

#include "apps/krparameter-desk/ActionStarter.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/ParameterTableView.h"

#include <QtGui/QAction>

ActionCommand::ActionCommand(QAction &action, ActionStarter &starter,
    const ParameterTableModel &model, ParameterTableView &view)
    : QObject(&view)
    , m_action(action)
    , m_starter(starter)
    , m_model(model)
    , m_view(view)
{
    connect(&action, &QAction::triggered, this, &ActionCommand::start);
    connect(&starter, &ActionStarter::obstacleChanged, this, &ActionCommand::update);
    connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &ActionCommand::update);
    // A row that is no longer shown is not current any more, without telling.
    connect(&model, &QAbstractItemModel::layoutChanged, this, &ActionCommand::update);
    connect(&model, &QAbstractItemModel::modelReset, this, &ActionCommand::update);
}

void ActionCommand::update()
{
    const QString obstacle = m_starter.obstacle(currentPlace());
    m_action.setEnabled(obstacle.isEmpty());
    m_action.setToolTip(obstacle);
    m_action.setStatusTip(obstacle);
}

std::optional<ValuePlace> ActionCommand::currentPlace() const
{
    return m_model.placeAt(m_view.currentIndex());
}

void ActionCommand::start()
{
    const std::optional<ValuePlace> place = currentPlace();
    // What is typed may be a value of the action.
    if (place && m_view.commitOpenField())
        m_starter.start(*place);
}
