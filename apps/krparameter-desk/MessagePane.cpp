#include "apps/krparameter-desk/MessagePane.h"

#include "apps/krparameter-desk/MessageDelegate.h"
#include "apps/krparameter-desk/MessageListModel.h"

MessagePane::MessagePane(
    MessageListModel &model, const AddressInText::IsKnown &isKnown, QWidget *parent)
    : QListView(parent)
    , m_isKnown(isKnown)
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
    const bool isOfThisDevice = model->isOfThisDevice(index);
    // Which parameters the other device had nobody knows any more.
    const AddressInText::IsKnown isKnown =
        isOfThisDevice ? m_isKnown : [](const ParameterAddress &) { return true; };
    const ParameterAddress address =
        AddressInText::ofMessage(model->messageAt(index).text, isKnown);
    if (!address.isValid())
        return;
    if (isOfThisDevice)
        Q_EMIT addressActivated(address);
    else
        Q_EMIT leadsNowhere(tr("Die Meldung gehört zu einem Gerät, das nicht mehr offen ist."));
}
