#include "apps/krparameter/CheckCommand.h"

#include "apps/host/ContentCheck.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"

#include <KrFirmware/ServoDriveFirmware.h>

namespace {

void write(const QList<ContentCheck::Finding> &findings, bool asJson, Console &console)
{
    for (const ContentCheck::Finding &finding : findings) {
        if (asJson) {
            console.writeLine(QJsonObject {
                {QStringLiteral("place"), finding.place}, {QStringLiteral("text"), finding.text}});
        } else {
            console.writeLine(finding.place.isEmpty()
                    ? finding.text
                    : finding.place + QLatin1String(": ") + finding.text);
        }
    }
}

} // namespace

QString CheckCommand::details() const
{
    return tr(
        "Liest die Beschreibung und jeden ihrer Werte und zeigt, was nicht gemeint sein kann:\n"
        "Funktionen, die kein Programm sind, scheitern oder fehlen, Abhängigkeiten, die zu\n"
        "nichts führen, Grenzen und Defaults, die nicht zueinander oder zum Datentyp passen.\n"
        "Rückgabewert 1, wenn es etwas zu zeigen gibt.\n");
}

QStringList CheckCommand::unusedOptions() const
{
    return {OptionName::Project, OptionName::Axis, OptionName::AccessLevel, OptionName::AllowLoss,
        OptionName::Force};
}

eExitCode CheckCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    if (!line.arguments().isEmpty())
        return session.fail(eExitCode::Usage, tr("check nimmt keine Argumente"));
    const bool asJson = line.has(OptionName::Json);
    QString file;
    if (const eExitCode code = session.findDevice(file); code != eExitCode::Good)
        return code;
    // What is refused at a place inside the file is its content; all else is no description.
    DescriptionError error;
    if (!ServoDriveFirmware::loadFromFile(file, &error) && !error.path.isEmpty()) {
        write({{error.path, error.reason}}, asJson, console);
        return eExitCode::Differences;
    }
    if (const eExitCode code = session.open(); code != eExitCode::Good)
        return code;
    const QList<ContentCheck::Finding> findings = ContentCheck::findings(session.project());
    write(findings, asJson, console);
    return findings.isEmpty() ? eExitCode::Good : eExitCode::Differences;
}
