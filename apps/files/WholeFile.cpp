#include "apps/files/WholeFile.h"

#include "apps/files/StagedFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace {

/// The usual reasons in the user's language, any other as the system words it.
QString reasonNotOpened(const QFile &file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return WholeFile::tr("ist nicht vorhanden");
    return info.isReadable() ? file.errorString() : WholeFile::tr("darf nicht gelesen werden");
}

} // namespace

std::optional<QByteArray> WholeFile::read(
    const QString &fileName, qint64 maximumSize, QString &error)
{
    if (QFileInfo(fileName).isDir()) {
        error = tr("ist ein Ordner");
        return std::nullopt;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        error = reasonNotOpened(file);
        return std::nullopt;
    }
    // One byte more than allowed shows a longer file also where its size is not known beforehand.
    const QByteArray bytes = file.read(maximumSize + 1);
    if (file.error() != QFileDevice::NoError) {
        error = file.errorString();
        return std::nullopt;
    }
    if (bytes.size() > maximumSize) {
        error = tr("ist länger als %1 MiB").arg(maximumSize / Mebibyte);
        return std::nullopt;
    }
    return bytes;
}

QString WholeFile::replace(const QString &fileName, const QByteArray &bytes)
{
    StagedFile file(fileName);
    const QString reason = file.stage(bytes);
    return reason.isEmpty() ? file.commit() : reason;
}
