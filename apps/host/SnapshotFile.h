#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class ParameterValueSnapshot;

/// Keeps a snapshot in a file.
class SnapshotFile {
    Q_DECLARE_TR_FUNCTIONS(SnapshotFile)

public:
    /// Longer files are refused. **Unit** bytes.
    static constexpr qint64 MaximumSize = qint64(512) * 1024 * 1024;

    /// Replaces the content of the snapshot, which is connected to no container.
    /// Answers what went wrong with the file's name, empty where nothing did; the snapshot then
    /// stays as it is.
    static QString read(const QString &fileName, ParameterValueSnapshot &snapshot);
    /// An earlier file stays until the new one is written in full. Answers as read() does.
    static QString write(const QString &fileName, const ParameterValueSnapshot &snapshot);
};
