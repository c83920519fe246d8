#pragma once

#include <KrSystem/KrSystemExport.h>
#include <KrSystem/SystemInformation.h>
#include <KrSystem/SystemMessage.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

/// The suite-wide message sink, the main window and the current user. One for the process.
class KrSystem_EXPORT System : public QObject {
    Q_OBJECT

public:
    /// The sink keeps this many messages; the oldest go first.
    static constexpr qsizetype MessageBound = 10000;

    static System *instance();
    static SystemInformation *information();
    static void addInformationMessage(const QString &title, const QString &text);
    static void addWarningMessage(const QString &title, const QString &text);
    static void addCriticalMessage(const QString &title, const QString &text);

    /// Oldest first.
    QList<SystemMessage> messages() const { return m_messages; }
    void clearMessages() { m_messages.clear(); }

    /// Parent of dialogs; null where the host has none. **Owner** the host.
    QWidget *mainWindow() const { return m_mainWindow; }
    void setMainWindow(QWidget *window) { m_mainWindow = window; }

Q_SIGNALS:
    /// After the message was stored.
    void messageAdded(const SystemMessage &message);

private:
    System() = default;
    void add(const SystemMessage &message);

    SystemInformation m_information;
    QList<SystemMessage> m_messages;
    QPointer<QWidget> m_mainWindow;
};
