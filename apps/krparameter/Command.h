#pragma once

#include "apps/krparameter/Option.h"
#include "apps/krparameter/eExitCode.h"

#include <QtCore/QStringList>

class CommandLine;
class Console;

/// One command of the program. Its texts are asked for after the language was chosen.
class Command {
public:
    virtual ~Command() = default;

    virtual QString name() const = 0;
    /// What follows the name, as the help shows it; empty for a command without arguments.
    virtual QString arguments() const = 0;
    /// One line.
    virtual QString summary() const = 0;
    /// Further lines of the command's own help, each with a line end.
    virtual QString details() const { return {}; }
    /// Beside the common ones. Commands that share an option's name agree on its form.
    virtual QList<Option> options() const { return {}; }
    /// Common options that would do nothing here; they are refused.
    virtual QStringList unusedOptions() const { return {}; }
    /// Draws, if off the screen: the program then is one with widgets.
    virtual bool needsWidgets() const { return false; }
    virtual eExitCode run(const CommandLine &line, Console &console) = 0;
};
