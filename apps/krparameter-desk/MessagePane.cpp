#include "apps/krparameter-desk/MessagePane.h"

#include "apps/krparameter-desk/AddressInText.h"
#include "apps/krparameter-desk/MessageDelegate.h"
#include "apps/krparameter-desk/MessageListModel.h"

MessagePane::MessagePane(MessageListModel &model, QWidget *parent)
    : QListView(parent)
{
    setModel(&model);
    setItemDelegate(new MessageDelegate(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &QListView::scrollToBottom);
    connect(this, &QListView::activated, this, &MessagePane::onActivated);
}

void MessagePane::onActivated(const QModelIndex &index)
{
    const auto *model = static_cast<const MessageListModel *>(this->model());
    const ParameterAddress address = AddressInText::find(model->messageAt(index).text);
    if (!address.isValid())
        return;
    if (model->isOfThisDevice(index))
        Q_EMIT addressActivated(address);
    else
        Q_EMIT leadsNowhere(tr("Die Meldung gehört zu einem Gerät, das nicht mehr offen ist."));
}
