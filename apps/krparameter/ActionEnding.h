#pragma once

#include "apps/krparameter/eExitCode.h"
#include "apps/online/ActionRun.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// What the end of an action means for the program and its user.
class ActionEnding {
    Q_DECLARE_TR_FUNCTIONS(ActionEnding)

public:
    /// `end` is empty where it still runs.
    static eExitCode codeOf(std::optional<ActionRun::eEnd> end);
    /// `address` is the action's. Empty where it is done, and where the drive is gone.
    static QString sentence(std::optional<ActionRun::eEnd> end, const QString &address);
};
