#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

class Session;

/// Reads from and writes to a drive.
class OnlineCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(OnlineCommand)

public:
    QString name() const override { return QStringLiteral("online"); }
    QString arguments() const override { return tr("AUFTRAG [ADRESSE [WERT]...]"); }
    QString summary() const override { return tr("mit einem Antrieb über Modbus TCP arbeiten"); }
    QString details() const override;
    QList<Option> options() const override;
    eExitCode run(const CommandLine &line, Console &console) override;

private:
    static QString usageError(const CommandLine &line);
};
