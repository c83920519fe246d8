#pragma once

#include "apps/krparameter-desk/AddressInText.h"

#include <QtWidgets/QListView>

class MessageListModel;

/// The messages of the sink, the last one in view. A click twice or Return leads to the parameter that
/// a message is about.
class MessagePane : public QListView {
    Q_OBJECT

public:
    /// `isKnown` says whether the device that is open has a parameter of the address. **Owner** of the
    /// model the caller.
    MessagePane(MessageListModel &model, const AddressInText::IsKnown &isKnown, QWidget *parent);

Q_SIGNALS:
    void addressActivated(const ParameterAddress &address);
    /// For the user: why a message that names a parameter does not lead to it.
    void leadsNowhere(const QString &reason);

private:
    void onActivated(const QModelIndex &index);

    AddressInText::IsKnown m_isKnown;
};
