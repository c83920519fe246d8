#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Prints one value a line.
class ListCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(ListCommand)

public:
    QString name() const override { return QStringLiteral("list"); }
    QString arguments() const override { return tr("[MUSTER]"); }
    QString summary() const override { return tr("Werte zeigen, einen je Zeile"); }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
