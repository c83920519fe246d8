#pragma once

#include "apps/krparameter-desk/DeskDialogs.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

/// Asks in dialogs over the main window.
class WindowDialogs : public DeskDialogs {
    Q_DECLARE_TR_FUNCTIONS(WindowDialogs)

public:
    /// **Owner** the caller. Null: over nothing.
    void setParent(QWidget *parent) { m_parent = parent; }

    QString descriptionFile(const QString &folder) override;
    QString projectToLoad() override;
    QString projectToSave() override;
    std::optional<QString> snapshotName(const QString &suggestion) override;
    std::optional<QString> driveAddress(const QString &suggestion) override;
    eUnsaved unsavedChanges() override;
    bool agreesToLoadCut(const QString &report) override;
    bool agreesToLose(const QString &losses) override;
    bool agreesToReplace(const QString &folder) override;
    bool agreesToSaveFromDrive(
        const QString &folder, const QString &drive, const QString &folderDrive) override;
    bool agreesToRemoveSnapshot(const QString &name) override;
    bool agreesToLoseSnapshots(const QStringList &names) override;
    void run(const QString &title, const std::function<void(Progress &)> &job) override;

private:
    /// A text that is not empty.
    std::optional<QString> text(
        const QString &title, const QString &label, const QString &suggestion, const QString &yes);
    bool agrees(const QString &question, const QString &details, const QString &yes);

    QPointer<QWidget> m_parent;
};
