#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class DriveServer;
class SimulatedDrive;

/// Orders to a simulated drive, one text line each; docs/formats/register-map.md lists them.
class DriveOrders : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller of both; they outlive this.
    DriveOrders(SimulatedDrive &drive, DriveServer &server);

    /// Follows the order. Answers "ok", "ok" and what was asked for, or "error" and what is wrong.
    /// **Emits** quitOrdered.
    QString follow(const QString &line);

Q_SIGNALS:
    void quitOrdered();

private:
    QString count(const QStringList &words);
    QString tick(const QString &text);
    QString access(const QStringList &words);

    SimulatedDrive &m_drive;
    DriveServer &m_server;
};
