#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>

class Session;
class TrialCopy;
class ValueView;

/// Writes values and saves the project when all of them were taken.
class SetCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(SetCommand)

public:
    QString name() const override { return QStringLiteral("set"); }
    QString arguments() const override { return tr("ADRESSE WERT..."); }
    QString summary() const override { return tr("Werte schreiben und das Projekt speichern"); }
    QString details() const override;
    eExitCode run(const CommandLine &line, Console &console) override;

private:
    struct Write {
        ValuePlace place;
        QString text;
    };

    static eExitCode writesOf(const CommandLine &line, Session &session, QList<Write> &writes);
    static eExitCode write(const Write &write, Session &session);
    static void show(const ValueView &view, const QJsonObject &before, TrialCopy &trial,
        bool asJson, Console &console);
    static eExitCode save(const CommandLine &line, Session &session, Console &console);
};
