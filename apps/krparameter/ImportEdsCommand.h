#pragma once

#include "apps/import/ObjectDictionaryImport.h"
#include "apps/krparameter/Command.h"

#include <QtCore/QCoreApplication>

#include <optional>

/// Turns an object dictionary into a device description and, where the file configures values, into
/// a project.
class ImportEdsCommand final : public Command {
    Q_DECLARE_TR_FUNCTIONS(ImportEdsCommand)

public:
    QString name() const override { return QStringLiteral("import-eds"); }
    QString arguments() const override { return tr("DATEI.eds|DATEI.dcf"); }
    QString summary() const override
    {
        return tr("Gerätebeschreibung aus einem Objektverzeichnis");
    }
    QString details() const override;
    QList<Option> options() const override;
    QStringList unusedOptions() const override;
    eExitCode run(const CommandLine &line, Console &console) override;

private:
    /// Empty where the line asks for no import; it was reported why.
    static std::optional<ImportRequest> requestOf(const CommandLine &line, Console &console);
    /// Saves the configured values as a project.
    static eExitCode saveProject(const ImportRequest &request, const ImportResult &result,
        const QString &folder, const CommandLine &line, Console &console);
    /// Whether a project is there that the line does not want replaced.
    static bool isTaken(const QString &folder, const CommandLine &line);
    static QString takenText(const QString &folder);
    static eExitCode fail(eExitCode code, const QString &reason, Console &console);
};
