#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Runs a simulated drive until it is told to quit.
class SimulateCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(SimulateCommand)

public:
    QString name() const override { return QStringLiteral("simulate"); }
    QString arguments() const override { return {}; }
    QString summary() const override
    {
        return tr("einen Antrieb simulieren, der Modbus TCP spricht");
    }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
