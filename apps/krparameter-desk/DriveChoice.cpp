#include "apps/krparameter-desk/DriveChoice.h"

#include "apps/krparameter-desk/DeskDialogs.h"

#include <KrSystem/System.h>

DriveChoice::DriveChoice(DeskDialogs &dialogs)
    : m_dialogs(dialogs)
{
}

void DriveChoice::make(const DriveAddress &address)
{
    m_address = address;
    m_isMade = true;
}

std::optional<DriveAddress> DriveChoice::ask()
{
    const std::optional<QString> text = m_dialogs.driveAddress(m_address.toText());
    if (!text)
        return {};
    const std::optional<DriveAddress> address = DriveAddress::of(*text);
    if (!address)
        System::addCriticalMessage(
            *text, tr("keine Adresse eines Antriebs, wie zum Beispiel 10.0.0.7:502"));
    return address;
}
