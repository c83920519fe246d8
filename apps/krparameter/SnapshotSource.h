#pragma once

#include "apps/krparameter/Option.h"
#include "apps/krparameter/eExitCode.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <vector>

class CommandLine;
class Console;
class Filter;
class ParameterValueSnapshot;
class Session;

/// A frozen state, and what it is called.
struct TitledSnapshot {
    QString title;
    std::unique_ptr<ParameterValueSnapshot> snapshot;
    /// What was frozen; null unless it is a project, or the defaults, and is kept.
    std::unique_ptr<Session> session;
};

/// Freezes what the words of a command name: project folders, snapshot files, and the defaults of
/// the device.
class SnapshotSource {
    Q_DECLARE_TR_FUNCTIONS(SnapshotSource)

public:
    static Option filterOption();
    /// For the help of commands with the option.
    static QString filterDetails();

    /// Whether what is frozen stays open.
    enum class eSession { Close, Keep };

    /// **Owner** the caller of both, which outlive the source.
    SnapshotSource(
        const CommandLine &line, Console &console, eSession afterwards = eSession::Close);
    ~SnapshotSource();

    /// The project of the options first, then the arguments.
    QStringList paths() const;
    /// All that is read: the paths and the device.
    QStringList inputs() const;
    /// Reads the options; everything but Good ends the command, as with the others below.
    eExitCode open();
    /// Freezes all paths.
    eExitCode freeze(const QStringList &paths);
    /// Freezes the device's defaults.
    eExitCode freezeDefaults();

    /// In the order in which they were frozen.
    std::vector<TitledSnapshot> &snapshots() { return m_snapshots; }

private:
    eExitCode freezePath(const QString &path);
    eExitCode freezeDevice(const std::optional<QString> &folder, const QString &title);
    eExitCode fail(eExitCode code, const QString &reason);

    const CommandLine &m_line;
    Console &m_console;
    const eSession m_afterwards;
    std::unique_ptr<Filter> m_filter;
    std::vector<TitledSnapshot> m_snapshots;
};
