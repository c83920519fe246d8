#include "apps/krparameter-desk/DriveCommands.h"

#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/DriveChoice.h"
#include "apps/krparameter-desk/OnlineSwitch.h"

using eState = OnlineSwitch::eState;

DriveCommands::DriveCommands(DeskSession &session, DriveChoice &drive)
    : m_session(session)
    , m_drive(drive)
{
    connect(&session, &DeskSession::onlineChanged, this, &DriveCommands::onOnlineChanged);
}

void DriveCommands::turn(bool on)
{
    if (!m_session.onlineSwitch() || (on && !mayGoOnline()))
        return;
    m_session.onlineSwitch()->turn(on);
}

void DriveCommands::choose()
{
    const std::optional<DriveAddress> address = m_drive.ask();
    if (!address)
        return;
    OnlineSwitch *online = m_session.onlineSwitch();
    const bool isOffline = !online || online->state() == eState::Offline;
    if (!isOffline && !mayReplace(*address))
        return;
    // What the old connection still tells names its own drive.
    if (!isOffline)
        online->turn(false);
    m_drive.make(*address);
    if (!isOffline)
        online->turn(true);
}

void DriveCommands::onOnlineChanged()
{
    const eState state = m_session.onlineSwitch()->state();
    if (state == eState::Reading)
        m_readFrom.reset();
    else if (state == eState::Online)
        m_readFrom = m_drive.address();
}

bool DriveCommands::mayGoOnline()
{
    if (!m_drive.isMade()) {
        const std::optional<DriveAddress> address = m_drive.ask();
        if (!address)
            return false;
        m_drive.make(*address);
    }
    return mayReplace(m_drive.address());
}

bool DriveCommands::mayReplace(const DriveAddress &drive)
{
    // What the same drive has changed since is read anew.
    const bool isOfThisDrive = m_readFrom == drive && m_session.undoStack()->isClean();
    return isOfThisDrive || m_session.mayClose();
}
