#include "apps/krparameter-desk/SpaciousDelegate.h"

namespace {

constexpr int BetweenColumns = 24;
constexpr int BetweenRows = 7;

} // namespace

QSize SpaciousDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int between = m_shape == eShape::Columns ? BetweenColumns : 0;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(between, BetweenRows);
}
