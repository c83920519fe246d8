#pragma once

#include <QtCore/QString>

/// Knows which drive the values on the desk were read from, and which one those of the project folder.
class ValueOrigin {
public:
    /// The values are those of a description, or of a project of which nobody knows the drive.
    void forget();
    /// The drive's values begin to replace those on the desk.
    void readFrom(const QString &drive) { m_drive = drive; }
    /// The folder holds what the desk has.
    void saved() { m_folderDrive = m_drive; }

    /// Empty: of none.
    const QString &drive() const { return m_drive; }
    /// Empty: of none, or of one that nobody knows.
    const QString &folderDrive() const { return m_folderDrive; }
    /// Saving them would put values of another drive into the folder.
    bool isForeignToFolder() const { return !m_drive.isEmpty() && m_drive != m_folderDrive; }

private:
    QString m_drive;
    QString m_folderDrive;
};
