#include "apps/krparameter/ImportEdsCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ProjectStorage.h"
#include "apps/import/EdsNumber.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

constexpr QLatin1StringView Coordinates("coordinates");
constexpr QLatin1StringView NodeId("node-id");
constexpr quint32 LastNodeId = 127;

eExitCode codeOf(ImportResult::eStatus status)
{
    switch (status) {
    case ImportResult::eStatus::Good:
        return eExitCode::Good;
    case ImportResult::eStatus::BadRequest:
        return eExitCode::Usage;
    case ImportResult::eStatus::UnreadableInput:
        return eExitCode::UnreadableInput;
    case ImportResult::eStatus::WriteFailed:
        return eExitCode::WriteFailed;
    }
    return eExitCode::Usage;
}

/// As they come from a device: the file says what the device holds, allowed or not. Imported
/// parameters are global.
void store(const ConfiguredValues &values, ParameterContainer &container)
{
    for (const ConfiguredValue &value : values.list()) {
        container.writeValueNative(
            eLivingSpace::Global, value.coordinate, value.element, value.nativeText);
    }
}

/// "drive.project" beside "drive.json".
QString usualFolder(const QString &deviceFile)
{
    const QFileInfo file(deviceFile);
    return QDir::cleanPath(
        file.dir().filePath(file.completeBaseName() + QLatin1StringView(".project")));
}

} // namespace

QString ImportEdsCommand::details() const
{
    return tr(
        "Liest ein Objektverzeichnis nach CiA 306 und schreibt eine Gerätebeschreibung. Welche\n"
        "Koordinate ein Objekt hat, steht in der Tabelle; sie wird angelegt, wo sie fehlt, und\n"
        "nur erweitert. Die konfigurierten Werte einer DCF-Datei werden ein Projekt: in "
        "--project,\n"
        "ohne diese Angabe im Ordner NAME.project neben der Gerätebeschreibung NAME.json.\n");
}

QList<Option> ImportEdsCommand::options() const
{
    return {
        {Coordinates, tr("TABELLE"), tr("Tabelle der Koordinaten")},
        {OptionName::Output, tr("DATEI"), tr("Gerätebeschreibung, die geschrieben wird"), u'o'},
        {NodeId, QStringLiteral("N"), tr("Knotennummer von 1 bis 127 statt der in der Datei")},
    };
}

QStringList ImportEdsCommand::unusedOptions() const
{
    return {OptionName::Device, OptionName::Axis, OptionName::AccessLevel};
}

eExitCode ImportEdsCommand::run(const CommandLine &line, Console &console)
{
    const std::optional<ImportRequest> request = requestOf(line, console);
    if (!request)
        return eExitCode::Usage;
    const ImportResult result = importObjectDictionary(*request);
    if (result.isReportComplete && line.has(OptionName::Json))
        console.writeLine(result.report.toJson());
    else if (result.isReportComplete)
        console.write(result.report.toText());
    if (result.report.valuesWithoutNodeId > 0) {
        console.report(tr("%1 Werte hängen von der Knotennummer ab, die die Datei nicht nennt; "
                          "--node-id N gibt sie an.")
                           .arg(result.report.valuesWithoutNodeId));
    }
    if (result.status != ImportResult::eStatus::Good)
        return fail(codeOf(result.status), result.error, console);
    if (line.has(OptionName::Project))
        return saveProject(*request, result, line.value(OptionName::Project), line, console);
    if (result.configuredValues.isEmpty()) {
        if (result.isConfiguration)
            console.report(tr("Die Datei konfiguriert keinen brauchbaren Wert: kein Projekt."));
        return eExitCode::Good;
    }
    return saveProject(*request, result, usualFolder(request->outputFile), line, console);
}

std::optional<ImportRequest> ImportEdsCommand::requestOf(const CommandLine &line, Console &console)
{
    const auto refuse = [&console](const QString &reason) {
        fail(eExitCode::Usage, reason, console);
        return std::nullopt;
    };
    if (line.arguments().size() != 1)
        return refuse(tr("import-eds braucht genau eine Datei"));
    if (!line.has(Coordinates) || !line.has(OptionName::Output))
        return refuse(tr("import-eds braucht --coordinates TABELLE und -o DATEI"));
    ImportRequest request {line.arguments().constFirst(), line.value(Coordinates),
        line.value(OptionName::Output), std::nullopt};
    if (line.has(NodeId)) {
        const auto number = EdsNumber::parse(line.value(NodeId)).unsignedValue(LastNodeId);
        if (!number || *number == 0)
            return refuse(tr("--node-id nimmt eine Zahl von 1 bis 127 oder 0x1 bis 0x7F"));
        request.nodeId = quint8(*number);
    }
    if (!line.has(OptionName::Project)) {
        request.refusalOfConfiguredValues = [&line, folder = usualFolder(request.outputFile)] {
            return isTaken(folder, line) ? takenText(folder) : QString();
        };
    } else if (isTaken(line.value(OptionName::Project), line)) {
        return refuse(takenText(line.value(OptionName::Project)));
    }
    return request;
}

eExitCode ImportEdsCommand::saveProject(const ImportRequest &request, const ImportResult &result,
    const QString &folder, const CommandLine &line, Console &console)
{
    QString error;
    const std::unique_ptr<DriveProject> project = DriveProject::open(request.outputFile, error);
    if (!project)
        return fail(eExitCode::UnreadableInput, error, console);
    store(result.configuredValues, project->container());
    const auto loss = line.has(OptionName::AllowLoss) ? ProjectStorage::eLoss::Allow
                                                      : ProjectStorage::eLoss::Refuse;
    const ProjectStorage::SaveResult saved = ProjectStorage(folder).save(*project, loss);
    for (const QString &text : saved.losses.toText().split(u'\n', Qt::SkipEmptyParts))
        console.report(text);
    if (saved.status != ProjectStorage::SaveResult::eStatus::Saved)
        return fail(eExitCode::WriteFailed, saved.error, console);
    console.report(tr("Projekt %1: gespeichert und zurückgelesen").arg(folder));
    return eExitCode::Good;
}

bool ImportEdsCommand::isTaken(const QString &folder, const CommandLine &line)
{
    return !line.has(OptionName::Force) && ProjectFolder(folder).holdsProject();
}

QString ImportEdsCommand::takenText(const QString &folder)
{
    return tr("in %1 liegt schon ein Projekt; --force ersetzt es").arg(folder);
}

eExitCode ImportEdsCommand::fail(eExitCode code, const QString &reason, Console &console)
{
    console.report(tr("krparameter: %1").arg(reason));
    return code;
}
