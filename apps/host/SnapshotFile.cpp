#include "apps/host/SnapshotFile.h"

#include "apps/files/WholeFile.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QFileInfo>

namespace {

QString named(const QString &fileName, const QString &reason)
{
    return reason.isEmpty() ? QString() : fileName + QLatin1String(": ") + reason;
}

} // namespace

QString SnapshotFile::read(const QString &fileName, ParameterValueSnapshot &snapshot)
{
    // A pipe or a device would never end.
    const QFileInfo place(fileName);
    if (place.exists() && !place.isFile() && !place.isDir())
        return named(fileName, tr("ist keine Datei"));
    QString reason;
    const std::optional<QByteArray> json = WholeFile::read(fileName, MaximumSize, reason);
    if (json)
        snapshot.fromJson(*json, &reason);
    return named(fileName, reason);
}

QString SnapshotFile::write(const QString &fileName, const ParameterValueSnapshot &snapshot)
{
    return named(fileName, WholeFile::replace(fileName, snapshot.toJson()));
}
