#pragma once

#include "apps/krparameter/eExitCode.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

class CommandLine;
class CommandTable;
class Console;

/// Takes the words of the command line to the command that they name.
class Application {
    Q_DECLARE_TR_FUNCTIONS(Application)

public:
    /// Whether the command that the words name draws.
    static bool needsWidgets(const QStringList &words);

    explicit Application(Console &console)
        : m_console(console)
    {
    }

    /// `words` without the program's name.
    eExitCode run(const QStringList &words);

private:
    eExitCode runCommand(const CommandTable &table, const CommandLine &line);
    eExitCode refuse(const QString &reason);

    Console &m_console;
};
