#include "apps/krparameter-desk/SnapshotPane.h"

#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/SnapshotListModel.h"
#include "apps/krparameter-desk/SpaciousDelegate.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QListView>
#include <QtWidgets/QToolButton>

SnapshotPane::SnapshotPane(SnapshotListModel &model, const DeskActions &actions, QWidget *parent)
    : QWidget(parent)
    , m_list(new QListView(this))
{
    m_list->setObjectName(QStringLiteral("snapshots"));
    m_list->setModel(&model);
    m_list->setItemDelegate(new SpaciousDelegate(m_list, SpaciousDelegate::eShape::List));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    for (const DeskActions::eAction action :
        {DeskActions::TakeSnapshot, DeskActions::CompareSnapshots, DeskActions::RemoveSnapshot}) {
        auto *button = new QToolButton(this);
        button->setDefaultAction(actions[action]);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        layout->addWidget(button);
    }
}

int SnapshotPane::currentRow() const
{
    return m_list->currentIndex().row();
}
