#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

/// Shows everything about single values.
class GetCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(GetCommand)

public:
    QString name() const override { return QStringLiteral("get"); }
    QString arguments() const override { return tr("ADRESSE..."); }
    QString summary() const override
    {
        return tr("Werte in allen Formen, mit Grenzen und Auswahl");
    }
    QString details() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;
};
