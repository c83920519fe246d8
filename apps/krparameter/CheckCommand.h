#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Tells what a description says that cannot be meant.
class CheckCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(CheckCommand)

public:
    QString name() const override { return QStringLiteral("check"); }
    QString arguments() const override { return {}; }
    QString summary() const override { return tr("Eine Gerätebeschreibung prüfen"); }
    QString details() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
