#include "apps/krparameter/ExportCommand.h"

#include "apps/files/ReadBackFile.h"
#include "apps/files/WholeFile.h"
#include "apps/host/ExportIssue.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/OutputFiles.h"
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
    OutputFiles files;
    files.add(QStringLiteral("-o"), line.value(OptionName::Output));
    files.add(QStringLiteral("--rfc4180"), line.value(Rfc4180));
    if (const QString refusal = files.refusal(source.inputs()); !refusal.isEmpty())
        return session.fail(eExitCode::Usage, refusal);
    eExitCode code = source.open();
    if (code == eExitCode::Good)
        code = source.paths().isEmpty() ? source.freezeDefaults() : source.freeze(source.paths());
    if (code != eExitCode::Good)
        return code;
    ParameterValueSnapshot &snapshot = *source.snapshots().front().snapshot;
    const QList<eLivingSpace> livingSpaces = livingSpacesOf(line);
    const QList<ExportLine> lines = ExportLine::allOf(snapshot, livingSpaces);
    QString error = write(line.value(OptionName::Output), snapshot, livingSpaces, lines);
    if (!error.isEmpty())
        return session.fail(eExitCode::WriteFailed, error);
    // The text stands in its place, whatever comes of the table.
    tell(line, lines, console);
    if (line.has(Rfc4180))
        error = writeTable(line.value(Rfc4180), lines);
    return error.isEmpty() ? eExitCode::Good : session.fail(eExitCode::WriteFailed, error);
}

QString ExportCommand::write(const QString &fileName, ParameterValueSnapshot &snapshot,
    const QList<eLivingSpace> &livingSpaces, const QList<ExportLine> &lines)
{
    const QString reason = ReadBackFile::replace(
        fileName, ExportLine::semicolonText(lines), [&](const QString &writtenName) {
            return snapshot.saveToTextFile(writtenName, snapshot.parameterList(), livingSpaces);
        });
    return reason.isEmpty() ? QString() : fileName + QLatin1String(": ") + reason;
}

QString ExportCommand::writeTable(const QString &fileName, const QList<ExportLine> &lines)
{
    const QString reason = WholeFile::replace(fileName, ExportLine::rfc4180Text(lines));
    return reason.isEmpty() ? QString() : fileName + QLatin1String(": ") + reason;
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
