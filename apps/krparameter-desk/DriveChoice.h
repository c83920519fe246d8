#pragma once

#include "apps/krparameter-desk/DriveAddress.h"

#include <QtCore/QCoreApplication>

class DeskDialogs;

/// Which drive the desk goes online with.
class DriveChoice {
    Q_DECLARE_TR_FUNCTIONS(DriveChoice)

public:
    /// **Owner** of the dialogs the caller; they outlive the choice.
    explicit DriveChoice(DeskDialogs &dialogs);

    bool isMade() const { return m_isMade; }
    const DriveAddress &address() const { return m_address; }
    void make(const DriveAddress &address);
    /// Asks the user; the choice stays as it was. Empty where the user gives up. **Reports** critical what
    /// is no address.
    std::optional<DriveAddress> ask();

private:
    DeskDialogs &m_dialogs;
    DriveAddress m_address;
    bool m_isMade = false;
};
