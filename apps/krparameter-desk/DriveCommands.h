#pragma once

#include "apps/krparameter-desk/DriveAddress.h"

#include <QtCore/QObject>

#include <optional>

class DeskSession;
class DriveChoice;

/// What the user does with the drive: goes online and offline, chooses another one. Whatever nobody saved
/// is asked about before a drive's values replace it.
class DriveCommands : public QObject {
    Q_OBJECT

public:
    /// **Owner** of both the caller.
    DriveCommands(DeskSession &session, DriveChoice &drive);

    /// Asks for the drive where none was chosen. Without device nothing.
    void turn(bool on);
    /// Another drive is another connection. Where the user gives up, drive and connection stay.
    void choose();

private:
    void onOnlineChanged();
    bool mayGoOnline();
    bool mayReplace(const DriveAddress &drive);

    DeskSession &m_session;
    DriveChoice &m_drive;
    /// Whose values stand on the desk, as far as nobody has changed them. Empty where no drive was read to
    /// the end.
    std::optional<DriveAddress> m_readFrom;
};
