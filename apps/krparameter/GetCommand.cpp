#include "apps/krparameter/GetCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/host/TrialCopy.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/ValueView.h"

QString GetCommand::details() const
{
    return tr(
        "ADRESSE ist zum Beispiel E84, E30[1] (Element 1) oder 2.B01 (Achse 2). Ohne Element\n"
        "werden alle Elemente gezeigt.\n");
}

QStringList GetCommand::unusedOptions() const
{
    return {OptionName::AllowLoss};
}

eExitCode GetCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    if (line.arguments().isEmpty())
        return session.fail(eExitCode::Usage, tr("get braucht mindestens eine Adresse"));
    if (const eExitCode code = session.open(); code != eExitCode::Good)
        return code;
    QList<ValuePlace> places;
    for (const QString &argument : line.arguments()) {
        QString error;
        const QList<ValuePlace> found = session.find(argument, error);
        if (found.isEmpty())
            return session.fail(eExitCode::Usage, error);
        places += found;
    }
    ParameterContainer &container = session.project().container();
    TrialCopy trial(session.project());
    for (const ValuePlace &place : std::as_const(places)) {
        const auto parameter = container.parameterInformation(place.coordinate);
        const ValueView view(*parameter, place);
        if (line.has(OptionName::Json))
            console.writeLine(view.toFullJson(trial));
        else
            console.write(view.toFullText(trial));
    }
    return eExitCode::Good;
}
