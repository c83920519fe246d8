#include "apps/krparameter-desk/MessageDelegate.h"

#include <KrSystem/SystemMessage.h>

#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

namespace {

constexpr int SignSize = 14;

QStyle::StandardPixmap signOf(SystemMessage::eSeverity severity)
{
    switch (severity) {
    case SystemMessage::eSeverity::Information:
        return QStyle::SP_MessageBoxInformation;
    case SystemMessage::eSeverity::Warning:
        return QStyle::SP_MessageBoxWarning;
    case SystemMessage::eSeverity::Critical:
        break;
    }
    return QStyle::SP_MessageBoxCritical;
}

} // namespace

void MessageDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    SpaciousDelegate::initStyleOption(option, index);
    const auto severity = SystemMessage::eSeverity(index.data(Qt::UserRole).toInt());
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = option->widget->style()->standardIcon(signOf(severity), nullptr, option->widget);
    option->decorationSize = QSize(SignSize, SignSize);
}
