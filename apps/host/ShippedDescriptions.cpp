#include "apps/host/ShippedDescriptions.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

/// From the folder of the program: installed, and in the build tree.
constexpr QLatin1StringView Folders[] = {
    QLatin1StringView("../share/KrParameterInstance/devices"),
    QLatin1StringView("../../share/KrParameterInstance/devices"),
};

} // namespace

QString ShippedDescriptions::filePath(const QString &name)
{
    // A name, never a path out of the folder.
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return {};
    const QDir program(QCoreApplication::applicationDirPath());
    for (const QLatin1StringView folder : Folders) {
        const QFileInfo file(
            program.filePath(folder) + QLatin1Char('/') + name + QLatin1String(".json"));
        if (file.isFile())
            return QDir::cleanPath(file.filePath());
    }
    return {};
}
