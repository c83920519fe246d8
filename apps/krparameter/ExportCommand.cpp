#include "apps/krparameter/ExportCommand.h"

#include "apps/files/FilePlace.h"
#include "apps/files/ReadBackFile.h"
#include "apps/files/WholeFile.h"
#include "apps/host/ExportIssue.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/SnapshotSource.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QJsonArray>

namespace {

constexpr QLatin1StringView Rfc4180("rfc4180");

/// Living space 0 and the axis, or all that there are.
QList<eLivingSpace> livingSpacesOf(const CommandLine &line)
{
    if (line.has(OptionName::Axis))
        return {eLivingSpace::Global, eLivingSpace(line.value(OptionName::Axis).toInt())};
    return {eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2, eLivingSpace::Axis3,
        eLivingSpace::Axis4};
}

} // namespace

QString ExportCommand::details() const
{
    return tr("A ist ein Projektordner oder eine Datei von snapshot; ohne A und --project gelten "
              "die\n"
              "Defaultwerte. Die Datei wird neben ihrem Platz geschrieben, zurückgelesen und dann\n"
              "umbenannt. Texte, die sie nicht trägt (Anführungszeichen, Zeilenenden, Formeln), "
              "werden\n"
              "mit Adresse genannt; --rfc4180 schreibt eine zweite Datei, die sie trägt.\n")
        + tr("Sie enthält alle Werte, auch die über der Zugriffsstufe.\n")
        + SnapshotSource::filterDetails();
}

QList<Option> ExportCommand::options() const
{
    return {{OptionName::Output, tr("DATEI"), tr("Datei, die geschrieben wird"), u'o'},
        {Rfc4180, tr("DATEI"), tr("dazu als Tabelle mit Kommas, in der alles maskiert ist")},
        SnapshotSource::filterOption()};
}

QStringList ExportCommand::unusedOptions() const
{
    return {OptionName::AllowLoss};
}

eExitCode ExportCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    SnapshotSource source(line, console);
    if (source.paths().size() > 1)
        return session.fail(
            eExitCode::Usage, tr("export nimmt höchstens ein Projekt oder einen Snapshot"));
    if (line.value(OptionName::Output).isEmpty())
        return session.fail(eExitCode::Usage, tr("export braucht -o DATEI"));
    if (line.has(Rfc4180)
        && FilePlace(line.value(Rfc4180)) == FilePlace(line.value(OptionName::Output)))
        return session.fail(eExitCode::Usage, tr("-o und --rfc4180 brauchen verschiedene Dateien"));
    eExitCode code = source.open();
    if (code == eExitCode::Good)
        code = source.paths().isEmpty() ? source.freezeDefaults() : source.freeze(source.paths());
    if (code != eExitCode::Good)
        return code;
    ParameterValueSnapshot &snapshot = *source.snapshots().front().snapshot;
    const QList<eLivingSpace> livingSpaces = livingSpacesOf(line);
    const QList<ExportLine> lines = ExportLine::allOf(snapshot, livingSpaces);
    const QString error = write(line, snapshot, livingSpaces, lines);
    if (!error.isEmpty())
        return session.fail(eExitCode::WriteFailed, error);
    tell(line, lines, console);
    return eExitCode::Good;
}

QString ExportCommand::write(const CommandLine &line, ParameterValueSnapshot &snapshot,
    const QList<eLivingSpace> &livingSpaces, const QList<ExportLine> &lines)
{
    const QString fileName = line.value(OptionName::Output);
    const QString reason = ReadBackFile::replace(
        fileName, ExportLine::semicolonText(lines), [&](const QString &writtenName) {
            return snapshot.saveToTextFile(writtenName, snapshot.parameterList(), livingSpaces);
        });
    if (!reason.isEmpty())
        return fileName + QLatin1String(": ") + reason;
    if (!line.has(Rfc4180))
        return {};
    const QString tableName = line.value(Rfc4180);
    const QString tableReason = WholeFile::replace(tableName, ExportLine::rfc4180Text(lines));
    return tableReason.isEmpty() ? QString() : tableName + QLatin1String(": ") + tableReason;
}

void ExportCommand::tell(const CommandLine &line, const QList<ExportLine> &lines, Console &console)
{
    const QString fileName = line.value(OptionName::Output);
    QJsonArray array;
    for (const ExportIssue &issue : ExportIssue::allOf(lines)) {
        console.report(issue.toText());
        array.append(issue.toJson());
    }
    if (line.has(OptionName::Json)) {
        console.writeLine(QJsonObject {{QStringLiteral("file"), fileName},
            {QStringLiteral("lines"), qint64(lines.size())}, {QStringLiteral("issues"), array}});
    }
    console.report(
        tr("%1: %2 Zeilen geschrieben und zurückgelesen").arg(fileName).arg(lines.size()));
}
