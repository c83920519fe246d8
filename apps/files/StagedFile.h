#pragma once

#include "apps/files/FilePlace.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QSaveFile>
#include <QtCore/QString>

#include <memory>

/// A file that is written in full beside its place first and then takes it.
class StagedFile {
    Q_DECLARE_TR_FUNCTIONS(StagedFile)

public:
    /// The device is what writes beside the file; it gets its name here.
    explicit StagedFile(
        const QString &fileName, std::unique_ptr<QSaveFile> device = std::make_unique<QSaveFile>());
    Q_DISABLE_COPY_MOVE(StagedFile)

    /// Writes the bytes beside the file, which stays as it is.
    /// Empty: every byte is there; otherwise what went wrong.
    QString stage(const QByteArray &bytes);
    /// Puts them in the file's place and reads them back. Empty: the file holds them; otherwise what
    /// went wrong.
    QString commit();

private:
    QString reasonNotOpened() const;

    FilePlace m_place;
    std::unique_ptr<QSaveFile> m_file;
    QByteArray m_bytes;
};
