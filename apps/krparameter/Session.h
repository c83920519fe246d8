#pragma once

#include "apps/host/LoadReport.h"
#include "apps/host/ValuePlace.h"
#include "apps/krparameter/eExitCode.h"

#include <QtCore/QCoreApplication>

#include <memory>
#include <optional>

class CommandLine;
class Console;
class DriveProject;

/// The device and the project that the common options name.
class Session {
    Q_DECLARE_TR_FUNCTIONS(Session)

public:
    /// Shown and written with where the options say nothing: of the levels 0 to 6 the highest that
    /// leaves out what is the maker's.
    static constexpr quint32 DefaultAccessLevel = 4;

    enum class eMissingProject { Refuse, Create };

    /// **Owner** the caller of both, which outlive the session.
    Session(const CommandLine &line, Console &console);
    ~Session();

    /// In the place of the project that the options name; empty: the defaults.
    void setFolder(const std::optional<QString> &folder) { m_folder = folder; }
    /// Checks the options and applies the access level; part of open().
    eExitCode readOptions();
    /// Opens the device, and the project where one is named. Reports what went wrong and, of a
    /// project, what loading it did. Everything but Good ends the command.
    eExitCode open(eMissingProject missing = eMissingProject::Refuse);
    /// The description's file, which may be a shipped one; part of open(). Reports why there is none.
    eExitCode findDevice(QString &file);
    /// Reports and answers with the code.
    eExitCode fail(eExitCode code, const QString &reason);

    DriveProject &project() { return *m_project; }
    bool hasFolder() const { return m_folder.has_value(); }
    QString folder() const { return m_folder.value_or(QString()); }
    /// Empty where no project was loaded.
    const std::optional<LoadReport> &loadReport() const { return m_loadReport; }
    /// The axis that was asked for; empty where none was.
    std::optional<int> axis() const { return m_axis; }
    /// The values that an address text names: every element where it names none. Empty where there
    /// are none; `error` then says why and what there is.
    QList<ValuePlace> find(const QString &addressText, QString &error);

private:
    eExitCode openDevice();
    static QString reasonNotRead(const QString &description);
    eExitCode loadProject(eMissingProject missing);
    QString axesText() const;

    const CommandLine &m_line;
    Console &m_console;
    std::optional<QString> m_folder;
    std::unique_ptr<DriveProject> m_project;
    std::optional<LoadReport> m_loadReport;
    std::optional<int> m_axis;
};
