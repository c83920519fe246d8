#include "apps/krparameter/HelpText.h"

#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/CommandTable.h"

#include <algorithm>

namespace {

struct Row {
    QString left;
    QString right;
};

QString table(const QList<Row> &rows)
{
    qsizetype width = 0;
    for (const Row &row : rows)
        width = std::max(width, row.left.size());
    QString text;
    for (const Row &row : rows)
        text += QLatin1String("  ") + row.left.leftJustified(width + 2) + row.right + u'\n';
    return text;
}

QString optionTable(const QList<Option> &options)
{
    QList<Row> rows;
    for (const Option &option : options) {
        QString left = QLatin1String("--") + option.name;
        if (!option.letter.isNull())
            left.prepend(QStringLiteral("-%1, ").arg(option.letter));
        if (option.takesValue())
            left += u' ' + option.valueName;
        rows.append({left, option.help});
    }
    return table(rows);
}

QString withArguments(const Command &command)
{
    return command.arguments().isEmpty() ? command.name()
                                         : command.name() + u' ' + command.arguments();
}

} // namespace

QString HelpText::ofProgram(const CommandTable &commands)
{
    QList<Row> rows;
    for (const auto &command : commands.commands())
        rows.append({withArguments(*command), command->summary()});
    return tr("Aufruf: krparameter --device DATEI [--project ORDNER] BEFEHL ...\n\n"
              "Liest und schreibt die Parameter eines Servoantriebs.\n\nBefehle:\n")
        + table(rows) + tr("\nOptionen, vor oder nach dem Befehl:\n")
        + optionTable(CommandOptions::all()) + u'\n' + exitCodes();
}

QString HelpText::ofCommand(const Command &command)
{
    QString text = tr("Aufruf: krparameter [OPTIONEN] %1\n\n%2\n")
                       .arg(withArguments(command), command.summary());
    if (!command.details().isEmpty())
        text += u'\n' + command.details();
    if (!command.options().isEmpty())
        text += tr("\nOptionen des Befehls:\n") + optionTable(command.options());
    QList<Option> common = CommandOptions::all();
    common.removeIf([unused = command.unusedOptions()](
                        const Option &option) { return unused.contains(option.name); });
    return text + tr("\nAllgemeine Optionen:\n") + optionTable(common);
}

QString HelpText::exitCodes()
{
    return tr(
        "Rückgabewerte: 0 gut, 1 Unterschiede, 2 falscher Aufruf, 3 Eingabe nicht lesbar,\n"
        "4 Wert abgewiesen, 5 für diesen Benutzer nicht schreibbar, 6 Schreiben fehlgeschlagen\n");
}
