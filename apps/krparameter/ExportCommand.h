#pragma once

#include "apps/host/ExportLine.h"
#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

class SnapshotSource;

/// Writes values as semicolon text.
class ExportCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(ExportCommand)

public:
    QString name() const override { return QStringLiteral("export"); }
    QString arguments() const override { return tr("[A]"); }
    QString summary() const override { return tr("Werte als Text mit Semikolons schreiben"); }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;

private:
    /// What went wrong, like writeTable(); empty where the file was written in full.
    static QString write(const QString &fileName, ParameterValueSnapshot &snapshot,
        const QList<eLivingSpace> &livingSpaces, const QList<ExportLine> &lines);
    static QString writeTable(const QString &fileName, const QList<ExportLine> &lines);
    static void tell(const CommandLine &line, const QList<ExportLine> &lines, Console &console);
};
