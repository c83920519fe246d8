#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <optional>

class Progress;

/// What the desk asks its user. An empty answer: the user gave up.
class DeskDialogs {
public:
    enum class eUnsaved { Save, Discard, Cancel };

    virtual ~DeskDialogs() = default;

    /// Starts where `folder` says.
    virtual QString descriptionFile(const QString &folder) = 0;
    virtual QString projectToLoad() = 0;
    virtual QString projectToSave() = 0;
    virtual std::optional<QString> snapshotName(const QString &suggestion) = 0;
    /// Where a drive is reached, as DriveAddress reads it.
    virtual std::optional<QString> driveAddress(const QString &suggestion) = 0;
    virtual eUnsaved unsavedChanges() = 0;
    /// To load what a report calls cut.
    virtual bool agreesToLoadCut(const QString &report) = 0;
    /// To save although these texts get lost.
    virtual bool agreesToLose(const QString &losses) = 0;
    /// To save over the project that this folder holds, which is another one.
    virtual bool agreesToReplace(const QString &folder) = 0;
    /// To save what `drive` gave over what the folder holds of `folderDrive`; that is empty where nobody
    /// knows it.
    virtual bool agreesToSaveFromDrive(
        const QString &folder, const QString &drive, const QString &folderDrive) = 0;
    virtual bool agreesToRemoveSnapshot(const QString &name) = 0;
    /// To close the desk, which does not keep these snapshots.
    virtual bool agreesToLoseSnapshots(const QStringList &names) = 0;
    /// Does the job; shows its progress with a way to cancel it where it takes long.
    virtual void run(const QString &title, const std::function<void(Progress &)> &job) = 0;
};
