#include "apps/import/WholeFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

std::optional<QByteArray> WholeFile::read(const QString &fileName, QString &error)
{
    if (QFileInfo(fileName).isDir()) {
        error = QStringLiteral("is a folder");
        return std::nullopt;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return std::nullopt;
    }
    // One byte more than allowed shows a longer file also where its size is not known beforehand.
    const QByteArray bytes = file.read(MaximumSize + 1);
    if (file.error() != QFileDevice::NoError) {
        error = file.errorString();
        return std::nullopt;
    }
    if (bytes.size() > MaximumSize) {
        error = QStringLiteral("is longer than 64 MiB");
        return std::nullopt;
    }
    return bytes;
}

QString WholeFile::replace(const QString &fileName, const QByteArray &bytes)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    const bool isComplete = file.write(bytes) == bytes.size() && file.flush()
        && file.error() == QFileDevice::NoError && file.size() == bytes.size();
    if (!isComplete) {
        file.cancelWriting();
        return QStringLiteral("not every byte could be written");
    }
    if (!file.commit())
        return file.errorString();
    QFile stored(fileName);
    if (!stored.open(QIODevice::ReadOnly))
        return stored.errorString();
    return stored.read(bytes.size() + 1) == bytes ? QString()
                                                  : QStringLiteral("reads back differently");
}
