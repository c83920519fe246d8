#pragma once

#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

class Session;

/// Tells what a description describes and what a project holds.
class InfoCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(InfoCommand)

public:
    QString name() const override { return QStringLiteral("info"); }
    QString arguments() const override { return {}; }
    QString summary() const override { return tr("Gerät und Projekt in Zahlen"); }
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;

private:
    static void writeText(Session &session, Console &console);
    static void writeJson(Session &session, Console &console);
};
