#include "apps/krparameter-desk/MessageListModel.h"

#include <KrSystem/System.h>

MessageListModel::MessageListModel(QObject *parent)
    : QAbstractListModel(parent)
{
    connect(System::instance(), &System::messageAdded, this, &MessageListModel::append);
}

void MessageListModel::clear()
{
    beginResetModel();
    m_messages.clear();
    m_foreignCount = 0;
    endResetModel();
}

SystemMessage MessageListModel::messageAt(const QModelIndex &index) const
{
    return m_messages.value(index.row());
}

void MessageListModel::endDevice()
{
    m_foreignCount = m_messages.size();
}

bool MessageListModel::isOfThisDevice(const QModelIndex &index) const
{
    return index.isValid() && index.row() >= m_foreignCount;
}

int MessageListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_messages.size());
}

QVariant MessageListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const SystemMessage message = messageAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return message.title.isEmpty() ? message.text
                                       : QStringLiteral("%1: %2").arg(message.title, message.text);
    case Qt::ToolTipRole:
        return message.text;
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1: %2").arg(severityText(message.severity), message.text);
    case Qt::UserRole:
        return int(message.severity);
    default:
        return {};
    }
}

void MessageListModel::append(const SystemMessage &message)
{
    if (m_messages.size() >= System::MessageBound) {
        beginRemoveRows({}, 0, 0);
        m_messages.removeFirst();
        m_foreignCount = qMax(m_foreignCount - 1, qsizetype(0));
        endRemoveRows();
    }
    const int row = int(m_messages.size());
    beginInsertRows({}, row, row);
    m_messages.append(message);
    endInsertRows();
}

QString MessageListModel::severityText(SystemMessage::eSeverity severity)
{
    switch (severity) {
    case SystemMessage::eSeverity::Information:
        return tr("Hinweis");
    case SystemMessage::eSeverity::Warning:
        return tr("Warnung");
    case SystemMessage::eSeverity::Critical:
        return tr("Fehler");
    }
    return {};
}
