#include "apps/krparameter/SnapshotCommand.h"

#include "apps/host/SnapshotFile.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/OutputFiles.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/SnapshotSource.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

QString SnapshotCommand::details() const
{
    return tr("Schreibt die Texte aller Werte, so wie sie jetzt gelten, in eine Datei, die diff,\n"
              "export und report wie ein Projekt lesen. Sie braucht dann kein Gerät mehr.\n"
              "A ist ein Projektordner oder eine solche Datei; ohne A und --project gelten die\n"
              "Defaultwerte.\n")
        + tr("Sie enthält alle Werte, auch die über der Zugriffsstufe.\n")
        + SnapshotSource::filterDetails();
}

QList<Option> SnapshotCommand::options() const
{
    return {{OptionName::Output, tr("DATEI"), tr("Datei, die geschrieben wird; sonst die Ausgabe"),
                u'o'},
        SnapshotSource::filterOption()};
}

QStringList SnapshotCommand::unusedOptions() const
{
    return {OptionName::Axis, OptionName::AllowLoss};
}

eExitCode SnapshotCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    SnapshotSource source(line, console);
    if (source.paths().size() > 1)
        return session.fail(
            eExitCode::Usage, tr("snapshot nimmt höchstens ein Projekt oder einen Snapshot"));
    OutputFiles files;
    files.add(QStringLiteral("-o"), line.value(OptionName::Output));
    if (const QString refusal = files.refusal(source.inputs()); !refusal.isEmpty())
        return session.fail(eExitCode::Usage, refusal);
    eExitCode code = source.open();
    if (code == eExitCode::Good)
        code = source.paths().isEmpty() ? source.freezeDefaults() : source.freeze(source.paths());
    if (code != eExitCode::Good)
        return code;
    ParameterValueSnapshot &snapshot = *source.snapshots().front().snapshot;
    if (!line.has(OptionName::Output)) {
        console.write(QString::fromUtf8(snapshot.toJson()));
        return eExitCode::Good;
    }
    const QString fileName = line.value(OptionName::Output);
    if (const QString error = SnapshotFile::write(fileName, snapshot); !error.isEmpty())
        return session.fail(eExitCode::WriteFailed, error);
    console.report(
        tr("%1: %2 Parameter eingefroren").arg(fileName).arg(snapshot.parameterList().size()));
    return eExitCode::Good;
}
