#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Writes snapshots side by side as an HTML report.
class ReportCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(ReportCommand)

public:
    QString name() const override { return QStringLiteral("report"); }
    QString arguments() const override { return tr("A [B...]"); }
    QString summary() const override { return tr("Bericht der Unterschiede als HTML und PDF"); }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    bool needsWidgets() const override { return true; }
    eExitCode run(const CommandLine &line, Console &console) override;
};
