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
    /// For the help of commands with the option that filter one state.
    static QString filterDetails();
    /// For the help of those that filter several to compare them.
    static QString comparisonFilterDetails();

    /// Whether what is frozen stays open.
    enum class eSession { Close, Keep };
    /// Whether the device's defaults stand before the paths.
    enum class eDefaults { Omit, Prepend };

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
    /// Freezes the same elements of all sides: those that pass the filter on some axis of some side, on
    /// all axes. What each side answers for itself would make differences out of the filter.
    eExitCode freezeToCompare(const QStringList &paths, eDefaults defaults = eDefaults::Omit);

    /// In the order in which they were frozen.
    std::vector<TitledSnapshot> &snapshots() { return m_snapshots; }

private:
    static QString filterRules();
    static QString filterProperties();

    eExitCode openSide(const QString &path, const QString &title);
    eExitCode openDefaults();
    eExitCode openDevice(const std::optional<QString> &folder, const QString &title);
    eExitCode openFile(const QString &fileName, const QString &title);
    /// Takes the texts of an opened side. Filter null: all.
    void take(TitledSnapshot &side, const Filter *filter);
    /// Takes all sides, which are open, by what the filter accepts of any.
    void takeSelected();
    eExitCode fail(eExitCode code, const QString &reason);

    const CommandLine &m_line;
    Console &m_console;
    const eSession m_afterwards;
    std::unique_ptr<Filter> m_filter;
    std::vector<TitledSnapshot> m_snapshots;
};
