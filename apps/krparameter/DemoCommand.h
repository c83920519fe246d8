#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Shows the main job on a shipped description.
class DemoCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(DemoCommand)

public:
    QString name() const override { return QStringLiteral("demo"); }
    QString arguments() const override { return {}; }
    QString summary() const override { return tr("die Hauptaufgabe an einem Beispielgerät"); }
    QString details() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
