#include "apps/host/StagedFile.h"

#include <QtCore/QFile>

StagedFile::StagedFile(const QString &fileName)
    : m_file(fileName)
{
}

QString StagedFile::stage(const QByteArray &bytes)
{
    m_bytes = bytes;
    if (!m_file.open(QIODevice::WriteOnly))
        return m_file.errorString();
    // A full disk may cut a write without an error that commit() would see: only the length tells.
    const bool isComplete = m_file.write(bytes) == bytes.size() && m_file.flush()
        && m_file.error() == QFileDevice::NoError && m_file.size() == bytes.size();
    if (isComplete)
        return {};
    const QString reason = m_file.error() == QFileDevice::NoError
        ? tr("nicht alle Bytes konnten geschrieben werden")
        : m_file.errorString();
    m_file.cancelWriting();
    return reason;
}

QString StagedFile::commit()
{
    if (!m_file.commit())
        return m_file.errorString();
    QFile stored(m_file.fileName());
    if (!stored.open(QIODevice::ReadOnly))
        return stored.errorString();
    return stored.read(m_bytes.size() + 1) == m_bytes
        ? QString()
        : tr("das Gelesene unterscheidet sich vom Geschriebenen");
}
