#pragma once

#include "apps/krparameter/Command.h"

#include <memory>
#include <vector>

/// Every command, in the order of the help.
class CommandTable {
public:
    CommandTable();

    /// Null where there is none.
    Command *find(const QString &name) const;
    const std::vector<std::unique_ptr<Command>> &commands() const { return m_commands; }
    /// The common options and those of all commands.
    QList<Option> options() const;

private:
    std::vector<std::unique_ptr<Command>> m_commands;
};
