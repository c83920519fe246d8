#include "apps/files/StagedFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <utility>

StagedFile::StagedFile(const QString &fileName, std::unique_ptr<QSaveFile> device)
    : m_place(fileName)
    , m_file(std::move(device))
{
    m_file->setFileName(m_place.path());
}

QString StagedFile::stage(const QByteArray &bytes)
{
    m_bytes = bytes;
    if (const QString reason = m_place.error(); !reason.isEmpty())
        return reason;
    // Taking the place of a device or a pipe would remove it.
    const QFileInfo place(m_file->fileName());
    if (place.exists() && !place.isFile())
        return place.isDir() ? tr("ist ein Ordner") : tr("ist keine Datei");
    if (!m_file->open(QIODevice::WriteOnly))
        return reasonNotOpened();
    // A full disk may cut a write without an error that commit() would see: only the length tells.
    const bool isComplete = m_file->write(bytes) == bytes.size() && m_file->flush()
        && m_file->error() == QFileDevice::NoError && m_file->size() == bytes.size();
    if (isComplete)
        return {};
    const QString reason = m_file->error() == QFileDevice::NoError
        ? tr("nicht alle Bytes konnten geschrieben werden")
        : m_file->errorString();
    m_file->cancelWriting();
    return reason;
}

QString StagedFile::commit()
{
    if (!m_file->commit())
        return m_file->errorString();
    QFile stored(m_file->fileName());
    if (!stored.open(QIODevice::ReadOnly))
        return stored.errorString();
    return stored.read(m_bytes.size() + 1) == m_bytes
        ? QString()
        : tr("das Gelesene unterscheidet sich vom Geschriebenen");
}

/// The usual reasons in the user's language, any other as the system words it.
QString StagedFile::reasonNotOpened() const
{
    const QFileInfo file(m_file->fileName());
    const QFileInfo folder(file.absolutePath());
    if (!folder.exists())
        return tr("der Ordner ist nicht vorhanden");
    const bool mayWrite = folder.isWritable() && (!file.exists() || file.isWritable());
    return mayWrite ? m_file->errorString() : tr("darf nicht geschrieben werden");
}
