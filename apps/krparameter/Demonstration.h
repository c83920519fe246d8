#pragma once

#include "apps/host/DriveProject.h"
#include "apps/host/ProjectStorage.h"
#include "apps/host/ValuePlace.h"
#include "apps/krparameter/eExitCode.h"

#include <QtCore/QCoreApplication>

#include <memory>

class Console;
class ParameterSetup;

/// The main job, step by step, each with what is done and what came of it.
class Demonstration {
    Q_DECLARE_TR_FUNCTIONS(Demonstration)

public:
    /// **Owner** the caller of the console, which outlives this.
    Demonstration(const QString &description, const QString &folder, Console &console);

    /// The first step that fails ends it.
    eExitCode run();

private:
    eExitCode open();
    eExitCode read();
    eExitCode write();
    eExitCode beRefused();
    eExitCode switchAxis();
    eExitCode save();
    eExitCode loadAndCompare();

    void startStep(const QString &title);
    void tell(const QString &line);
    eExitCode fail(eExitCode code, const QString &reason);
    ParameterSetup *parameter(const ValuePlace &place);
    void tellValue(const ValuePlace &place);
    /// Writes a display text and tells before and after. **Refused** what does not change the value.
    bool writeAndTell(const ValuePlace &place, const QString &text);

    QString m_description;
    Console &m_console;
    ProjectStorage m_storage;
    std::unique_ptr<DriveProject> m_project;
    int m_step = 0;
};
