#pragma once

#include "apps/host/BlockManifest.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

/// A folder that keeps a project: one file for each named block, and a manifest of them.
class ProjectFolder {
    Q_DECLARE_TR_FUNCTIONS(ProjectFolder)

public:
    /// Longer files are refused. **Unit** bytes.
    static constexpr qint64 MaximumBlockSize = qint64(512) * 1024 * 1024;
    static QString parameterBlockName();
    /// Letters, digits, "_", "-" and "." (not first); no path, no hidden file, not the manifest.
    static bool isBlockName(const QString &name);

    struct Content {
        QMap<QString, QByteArray> blocks;
        BlockManifest manifest;
    };

    explicit ProjectFolder(const QString &path);

    QString path() const { return m_directory.path(); }
    /// Has a parameter block or a manifest.
    bool holdsProject() const;
    /// A project may begin here: the folder is missing, or it can be looked into and holds none.
    bool isFree() const;
    /// One of the files that read() takes; compared without a link on the way.
    bool holdsFile(const QString &canonicalName) const;
    /// The parameter block and every block of the manifest, as far as their files are there.
    /// Empty where the folder or a file cannot be read; `error` then says which and why.
    std::optional<Content> read(QString &error) const;
    /// Creates the folder where it is missing and replaces the files of these blocks; others stay.
    /// No file is touched before all bytes of all blocks are on the disk; each is read back.
    /// Answers what went wrong, empty where nothing did.
    QString write(const QMap<QString, QByteArray> &blocks);

private:
    QString filePath(const QString &name) const { return m_directory.filePath(name); }
    QString reasonNotRead() const;
    std::optional<QByteArray> readFile(const QString &name, QString &error) const;
    BlockManifest manifestWith(const QMap<QString, QByteArray> &blocks) const;

    QDir m_directory;
};
