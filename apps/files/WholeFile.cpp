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

/// In pieces: a read of so much at once takes that much memory, however short the file is. One byte
/// more than allowed shows a longer file also where its size is not known beforehand.
QByteArray readUpTo(QFile &file, qint64 mostBytes)
{
    constexpr qint64 PieceSize = qint64(256) * 1024;
    QByteArray bytes;
    while (bytes.size() < mostBytes) {
        const QByteArray piece = file.read(qMin(PieceSize, mostBytes - bytes.size()));
        if (piece.isEmpty())
            break;
        bytes.append(piece);
    }
    return bytes;
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
    const QByteArray bytes = readUpTo(file, maximumSize + 1);
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
