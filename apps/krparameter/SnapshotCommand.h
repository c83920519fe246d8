#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Writes the frozen texts of a project as JSON.
class SnapshotCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(SnapshotCommand)

public:
    QString name() const override { return QStringLiteral("snapshot"); }
    QString arguments() const override { return tr("[A]"); }
    QString summary() const override { return tr("Texte einfrieren und als JSON schreiben"); }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
