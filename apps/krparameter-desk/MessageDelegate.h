#pragma once

#include "apps/krparameter-desk/SpaciousDelegate.h"

/// Shows a message with the sign of its severity.
class MessageDelegate : public SpaciousDelegate {
    Q_OBJECT

public:
    using SpaciousDelegate::SpaciousDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
