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

    /// What the online commands share.
    struct Write {
        ValuePlace place;
        QString text;
    };

    /// The pairs of the words; reports what is none.
    static eExitCode writesOf(const QStringList &words, Session &session, QList<Write> &writes);
    /// Reports a value that is refused or not writable.
    static eExitCode write(const Write &write, Session &session);
    /// Saves the project where one is named, and reports it.
    static eExitCode save(const CommandLine &line, Session &session, Console &console);

private:
    static void show(const ValueView &view, const QJsonObject &before, TrialCopy &trial,
        bool asJson, Console &console);
};
