#include "apps/krparameter-desk/SpaciousDelegate.h"

namespace {

constexpr QSize Space(24, 7);

} // namespace

QSize SpaciousDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + Space;
}
