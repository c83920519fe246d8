#include "apps/krparameter/Application.h"

#include "apps/host/InterfaceLanguage.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/CommandTable.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/HelpText.h"
#include "apps/krparameter/SinkPrinter.h"

#include <algorithm>

namespace {

/// Asked for before anything is said, so that everything is said in it.
QString languageOf(const QStringList &words, const CommandTable &table)
{
    const CommandLine line(words, table.options());
    return line.has(OptionName::Language) ? line.value(OptionName::Language) : QStringLiteral("de");
}

bool contains(const QList<Option> &options, const QString &name)
{
    return std::any_of(options.begin(), options.end(),
        [&name](const Option &option) { return option.name == name; });
}

} // namespace

bool Application::needsWidgets(const QStringList &words)
{
    const CommandTable table;
    const Command *command = table.find(CommandLine(words, table.options()).command());
    return command && command->needsWidgets();
}

eExitCode Application::run(const QStringList &words)
{
    const CommandTable table;
    const QString languageName = languageOf(words, table);
    const InterfaceLanguage language(languageName);
    if (!language.isKnown())
        return refuse(tr("--lang nimmt de oder en, nicht \"%1\"").arg(languageName));
    const CommandLine line(words, table.options());
    if (!line.error().isEmpty())
        return refuse(line.error());
    if (line.has(OptionName::Version)) {
        m_console.writeLine(QStringLiteral("krparameter " KR_VERSION));
        return eExitCode::Good;
    }
    const SinkPrinter printer(m_console);
    const eExitCode code = runCommand(table, line);
    if (m_console.flush())
        return code;
    m_console.report(tr("die Ausgabe konnte nicht vollständig geschrieben werden"));
    const bool isDone = code == eExitCode::Good || code == eExitCode::Differences;
    return isDone ? eExitCode::WriteFailed : code;
}

eExitCode Application::runCommand(const CommandTable &table, const CommandLine &line)
{
    if (line.command().isEmpty()) {
        if (!line.has(OptionName::Help))
            return refuse(tr("es fehlt der Befehl"));
        m_console.write(HelpText::ofProgram(table));
        return eExitCode::Good;
    }
    Command *command = table.find(line.command());
    if (!command)
        return refuse(tr("unbekannter Befehl \"%1\"").arg(line.command()));
    if (line.has(OptionName::Help)) {
        m_console.write(HelpText::ofCommand(*command));
        return eExitCode::Good;
    }
    const QList<Option> options = CommandOptions::all() + command->options();
    for (const QString &name : line.optionNames()) {
        if (!contains(options, name) || command->unusedOptions().contains(name))
            return refuse(tr("%1 kennt die Option --%2 nicht").arg(command->name(), name));
    }
    return command->run(line, m_console);
}

eExitCode Application::refuse(const QString &reason)
{
    m_console.report(tr("krparameter: %1").arg(reason));
    m_console.report(tr("Hilfe: krparameter --help"));
    return eExitCode::Usage;
}
