#include "apps/krparameter/ReportCommand.h"

#include "apps/files/WholeFile.h"
#include "apps/host/SnapshotReport.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/OutputFiles.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/SnapshotSource.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

namespace {

constexpr QLatin1StringView Exact("exact");
constexpr QLatin1StringView Pdf("pdf");

struct Output {
    QString fileName;
    QByteArray bytes;
};

QList<Output> outputsOf(const CommandLine &line, const SnapshotReport &report)
{
    QList<Output> outputs;
    if (line.has(OptionName::Output)) {
        const QString html = line.has(Exact) ? report.exactDocument() : report.safeDocument();
        outputs.append({line.value(OptionName::Output), html.toUtf8()});
    }
    if (line.has(Pdf))
        outputs.append({line.value(Pdf), report.pdf()});
    return outputs;
}

} // namespace

QString ReportCommand::details() const
{
    return tr("A, B und weitere sind Projektordner oder Dateien von snapshot; ein --project steht "
              "vor\n"
              "ihnen. Gezeigt wird, was sich zwischen Nachbarn unterscheidet, von einem allein "
              "alles.\n"
              "Werte über der Zugriffsstufe bleiben leer. Das Dokument verbietet Skripte und\n"
              "Nachladen, und Namen darin sind maskiert; --exact schreibt es ohne beides.\n")
        + SnapshotSource::comparisonFilterDetails();
}

QList<Option> ReportCommand::options() const
{
    return {{OptionName::Output, tr("DATEI"), tr("HTML-Datei, die geschrieben wird"), u'o'},
        {Exact, {}, tr("Namen als HTML, ohne Schutz; so wie das Fenster exportiert")},
        {Pdf, tr("DATEI"), tr("der Bericht als PDF")}, SnapshotSource::filterOption()};
}

QStringList ReportCommand::unusedOptions() const
{
    return {OptionName::Axis, OptionName::Json, OptionName::AllowLoss};
}

eExitCode ReportCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    SnapshotSource source(line, console);
    const QStringList paths = source.paths();
    if (paths.isEmpty())
        return session.fail(eExitCode::Usage, tr("report braucht Projekte oder Snapshots"));
    if (line.value(OptionName::Output).isEmpty() && line.value(Pdf).isEmpty())
        return session.fail(eExitCode::Usage, tr("report braucht -o DATEI oder --pdf DATEI"));
    OutputFiles files;
    files.add(QStringLiteral("-o"), line.value(OptionName::Output));
    files.add(QStringLiteral("--pdf"), line.value(Pdf));
    if (const QString refusal = files.refusal(source.inputs()); !refusal.isEmpty())
        return session.fail(eExitCode::Usage, refusal);
    eExitCode code = source.open();
    if (code == eExitCode::Good)
        code = source.freezeToCompare(paths);
    if (code != eExitCode::Good)
        return code;
    QList<SnapshotReport::Column> columns;
    for (const TitledSnapshot &titled : source.snapshots())
        columns.append({titled.title, titled.snapshot.get()});
    const SnapshotReport report(
        columns.size() == 1 ? tr("Parameterwerte") : tr("Änderungen"), columns);
    for (const Output &output : outputsOf(line, report)) {
        const QString reason = WholeFile::replace(output.fileName, output.bytes);
        if (!reason.isEmpty())
            return session.fail(
                eExitCode::WriteFailed, output.fileName + QLatin1String(": ") + reason);
        console.report(tr("%1: geschrieben und zurückgelesen").arg(output.fileName));
    }
    return eExitCode::Good;
}
