#include "apps/krparameter/CommandTable.h"

#include "apps/krparameter/CheckCommand.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/DemoCommand.h"
#include "apps/krparameter/DiffCommand.h"
#include "apps/krparameter/ExportCommand.h"
#include "apps/krparameter/GetCommand.h"
#include "apps/krparameter/ImportEdsCommand.h"
#include "apps/krparameter/InfoCommand.h"
#include "apps/krparameter/ListCommand.h"
#include "apps/krparameter/OnlineCommand.h"
#include "apps/krparameter/ReportCommand.h"
#include "apps/krparameter/SetCommand.h"
#include "apps/krparameter/SimulateCommand.h"
#include "apps/krparameter/SnapshotCommand.h"

#include <algorithm>

CommandTable::CommandTable()
{
    m_commands.push_back(std::make_unique<InfoCommand>());
    m_commands.push_back(std::make_unique<CheckCommand>());
    m_commands.push_back(std::make_unique<ListCommand>());
    m_commands.push_back(std::make_unique<GetCommand>());
    m_commands.push_back(std::make_unique<SetCommand>());
    m_commands.push_back(std::make_unique<SnapshotCommand>());
    m_commands.push_back(std::make_unique<DiffCommand>());
    m_commands.push_back(std::make_unique<ExportCommand>());
    m_commands.push_back(std::make_unique<ReportCommand>());
    m_commands.push_back(std::make_unique<OnlineCommand>());
    m_commands.push_back(std::make_unique<SimulateCommand>());
    m_commands.push_back(std::make_unique<ImportEdsCommand>());
    m_commands.push_back(std::make_unique<DemoCommand>());
}

Command *CommandTable::find(const QString &name) const
{
    const auto found = std::find_if(m_commands.begin(), m_commands.end(),
        [&name](const auto &command) { return command->name() == name; });
    return found == m_commands.end() ? nullptr : found->get();
}

QList<Option> CommandTable::options() const
{
    QList<Option> options = CommandOptions::all();
    for (const auto &command : m_commands)
        options += command->options();
    return options;
}
