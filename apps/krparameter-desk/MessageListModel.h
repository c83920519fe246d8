#pragma once

#include <KrSystem/SystemMessage.h>

#include <QtCore/QAbstractListModel>
#include <QtCore/QList>

/// What the sink was told since construction, oldest first; as many as the sink itself keeps.
class MessageListModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit MessageListModel(QObject *parent = nullptr);

    void clear();
    SystemMessage messageAt(const QModelIndex &index) const;
    /// What is there is about a device that is no longer open.
    void endDevice();
    /// Came since the last endDevice().
    bool isOfThisDevice(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    /// Title and text; the severity shows as icon.
    QVariant data(const QModelIndex &index, int role) const override;

private:
    void append(const SystemMessage &message);
    static QString severityText(SystemMessage::eSeverity severity);

    QList<SystemMessage> m_messages;
    /// So many of them, the oldest, are about a device that is no longer open.
    qsizetype m_foreignCount = 0;
};
