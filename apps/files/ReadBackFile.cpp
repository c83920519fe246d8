#include "apps/files/ReadBackFile.h"

#include "apps/files/FilePlace.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <filesystem>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

/// From here on a power failure leaves the bytes where they are.
bool isOnDisk([[maybe_unused]] const QFile &file)
{
#ifdef Q_OS_UNIX
    return fsync(file.handle()) == 0;
#else
    return true;
#endif
}

bool holds(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && isOnDisk(file) && file.read(bytes.size() + 1) == bytes;
}

/// Over a file that is there, unlike QFile's.
QString moved(const QString &from, const QString &to)
{
    const QFileInfo earlier(to);
    if (earlier.exists())
        QFile::setPermissions(from, earlier.permissions());
    std::error_code error;
    std::filesystem::rename(
        QFile::encodeName(from).constData(), QFile::encodeName(to).constData(), error);
    return error ? QString::fromStdString(error.message()) : QString();
}

} // namespace

QString ReadBackFile::replace(
    const QString &fileName, const QByteArray &expected, const Write &write)
{
    const FilePlace behindLinks(fileName);
    if (QString reason = behindLinks.error(); !reason.isEmpty())
        return reason;
    const QString place = behindLinks.path();
    if (QString reason = refusal(place); !reason.isEmpty())
        return reason;
    const QTemporaryDir beside(
        QFileInfo(place).absolutePath() + QLatin1String("/.krparameter-XXXXXX"));
    if (!beside.isValid())
        return tr("in den Ordner kann nicht geschrieben werden");
    const QString written = beside.filePath(QFileInfo(place).fileName());
    if (!write(written))
        return tr("kann nicht geöffnet werden");
    if (!holds(written, expected))
        return tr("wurde nicht vollständig geschrieben");
    return moved(written, place);
}

QString ReadBackFile::refusal(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (file.exists() && !file.isFile())
        return file.isDir() ? tr("ist ein Ordner") : tr("ist keine Datei");
    if (file.exists() && !file.isWritable())
        return tr("darf nicht geschrieben werden");
    if (!QFileInfo(file.absolutePath()).isDir())
        return tr("der Ordner ist nicht vorhanden");
    return {};
}
