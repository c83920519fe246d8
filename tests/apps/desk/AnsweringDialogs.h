#pragma once

#include "apps/host/Progress.h"
#include "apps/krparameter-desk/DeskDialogs.h"

#include <QtCore/QStringList>

/// Answers as a test chooses and records what was asked.
class AnsweringDialogs final : public DeskDialogs {
public:
    QString descriptionFile(const QString &) override { return said("device", fileAnswer); }
    QString projectToLoad() override { return said("load", folderAnswer); }
    QString projectToSave() override { return said("save", folderAnswer); }
    std::optional<QString> snapshotName(const QString &suggestion) override
    {
        asked.append(QStringLiteral("snapshot: ") + suggestion);
        return takesSuggestedName ? std::optional(suggestion) : std::nullopt;
    }
    std::optional<QString> driveAddress(const QString &suggestion) override
    {
        asked.append(QStringLiteral("drive: ") + suggestion);
        return driveAnswer;
    }
    eUnsaved unsavedChanges() override
    {
        asked.append(QStringLiteral("unsaved"));
        return unsavedAnswer;
    }
    bool agreesToLoadCut(const QString &report) override
    {
        asked.append(QStringLiteral("cut: ") + report);
        return agrees;
    }
    bool agreesToLose(const QString &losses) override
    {
        asked.append(QStringLiteral("lose: ") + losses);
        return agrees;
    }
    bool agreesToReplace(const QString &folder) override
    {
        asked.append(QStringLiteral("replace: ") + folder);
        return agrees;
    }
    bool agreesToSaveFromDrive(
        const QString &folder, const QString &drive, const QString &folderDrive) override
    {
        asked.append(QStringLiteral("from drive: %1, %2, %3").arg(folder, drive, folderDrive));
        return agrees;
    }
    bool agreesToRemoveSnapshot(const QString &name) override
    {
        asked.append(QStringLiteral("remove: ") + name);
        return losesSnapshots;
    }
    bool agreesToLoseSnapshots(const QStringList &names) override
    {
        asked.append(QStringLiteral("snapshots: ") + names.join(QStringLiteral(", ")));
        return losesSnapshots;
    }
    void run(const QString &, const std::function<void(Progress &)> &job) override
    {
        struct Silent final : Progress {
            bool isCancelled = false;
            bool advance(qsizetype, qsizetype) override { return !isCancelled; }
        } progress;
        progress.isCancelled = cancels;
        job(progress);
    }

    QStringList asked;
    QString fileAnswer;
    QString folderAnswer;
    std::optional<QString> driveAnswer;
    eUnsaved unsavedAnswer = eUnsaved::Cancel;
    bool takesSuggestedName = true;
    bool agrees = false;
    bool losesSnapshots = true;
    bool cancels = false;

private:
    QString said(const char *what, const QString &answer)
    {
        asked.append(QString::fromLatin1(what));
        return answer;
    }
};
