#pragma once

#include "apps/host/LoadReport.h"
#include "apps/host/LossReport.h"
#include "apps/host/ProjectFolder.h"

#include <QtCore/QCoreApplication>

#include <functional>

class DriveProject;

/// Moves a device's values between its container and a project folder.
class ProjectStorage {
    Q_DECLARE_TR_FUNCTIONS(ProjectStorage)

public:
    enum class eCutBlock { Refuse, Load };
    enum class eLoss { Refuse, Allow };

    struct LoadResult {
        enum class eStatus { Loaded, Unreadable, Cut, Cancelled };

        eStatus status = eStatus::Unreadable;
        /// Empty when loaded.
        QString error;
        /// Filled as soon as the folder could be read.
        LoadReport report;
        /// Of judge(): what the container is filled with, also where the status is Cut.
        QMap<QString, QByteArray> blocks;
    };

    struct SaveResult {
        enum class eStatus { Saved, WouldLose, WriteFailed, Cancelled };

        eStatus status = eStatus::WriteFailed;
        /// Empty when saved.
        QString error;
        LossReport losses;
    };

    using Announce = std::function<void(const LoadReport &)>;

    explicit ProjectStorage(const QString &folder)
        : m_folder(folder)
    {
    }

    ProjectFolder &folder() { return m_folder; }

    /// What load() would answer; the container stays as it is. A cut block is Cut.
    LoadResult judge(DriveProject &project, Progress *progress = nullptr) const;
    /// **Refused** a folder that cannot be read or holds no project, and a cut block unless it is to
    /// be loaded nevertheless; the container stays as it is.
    /// `announce` is told the report when it is complete and the container still as it was.
    LoadResult load(DriveProject &project, eCutBlock cutBlock, const Announce &announce = {},
        Progress *progress = nullptr) const;
    /// **Refused** texts that the block cannot hold unless their loss is allowed; nothing is written.
    SaveResult save(DriveProject &project, eLoss loss, Progress *progress = nullptr);

private:
    ProjectFolder m_folder;
};
