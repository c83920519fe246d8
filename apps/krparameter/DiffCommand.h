#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Shows in which values two states differ.
class DiffCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(DiffCommand)

public:
    QString name() const override { return QStringLiteral("diff"); }
    QString arguments() const override { return tr("A [B]"); }
    QString summary() const override { return tr("Unterschiede zweier Zustände, einer je Zeile"); }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
