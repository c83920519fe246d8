#include "apps/krparameter/DemoCommand.h"

#include "apps/host/ShippedDescriptions.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Demonstration.h"

namespace {

const QString DefaultFolder = QStringLiteral("demo-project");
const QString DescriptionName = QStringLiteral("two-axis-drive");

} // namespace

QString DemoCommand::details() const
{
    return tr(
        "Legt die Parameter des mitgelieferten Zweiachsreglers an, liest, schreibt, lässt einen\n"
        "Wert abweisen, schaltet die Achse um, speichert, lädt neu und vergleicht. Das Projekt\n"
        "bleibt in --project, sonst in ./demo-project. Ein Projekt, das dort schon liegt, wird\n"
        "nur mit --force ersetzt.\n");
}

QStringList DemoCommand::unusedOptions() const
{
    // It brings its description along.
    return {OptionName::Device, OptionName::Axis, OptionName::AccessLevel, OptionName::Json,
        OptionName::AllowLoss};
}

eExitCode DemoCommand::run(const CommandLine &line, Console &console)
{
    const auto refuse = [&console](eExitCode code, const QString &reason) {
        console.report(tr("krparameter: %1").arg(reason));
        return code;
    };
    if (!line.arguments().isEmpty())
        return refuse(eExitCode::Usage, tr("demo nimmt keine Argumente"));
    const QString folder =
        line.has(OptionName::Project) ? line.value(OptionName::Project) : DefaultFolder;
    if (ProjectFolder(folder).holdsProject() && !line.has(OptionName::Force))
        return refuse(
            eExitCode::Usage, tr("in %1 liegt schon ein Projekt; --force ersetzt es").arg(folder));
    const QString description = ShippedDescriptions::filePath(DescriptionName);
    if (description.isEmpty())
        return refuse(eExitCode::UnreadableInput,
            tr("die mitgelieferte Beschreibung %1 fehlt").arg(DescriptionName));
    return Demonstration(description, folder, console).run();
}
