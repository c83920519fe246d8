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

constexpr QLatin1StringView Suffix(".json");

QList<QDir> folders()
{
    const QDir program(QCoreApplication::applicationDirPath());
    QList<QDir> found;
    for (const QLatin1StringView folder : Folders)
        found.append(QDir(program.filePath(folder)));
    return found;
}

} // namespace

QString ShippedDescriptions::filePath(const QString &name)
{
    // A name, never a path out of the folder.
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return {};
    for (const QDir &folder : folders()) {
        const QFileInfo file(folder.filePath(name + Suffix));
        if (file.isFile())
            return QDir::cleanPath(file.filePath());
    }
    return {};
}

QStringList ShippedDescriptions::names()
{
    QStringList names;
    for (const QDir &folder : folders()) {
        for (const QString &file : folder.entryList({u'*' + Suffix}, QDir::Files))
            names.append(file.chopped(Suffix.size()));
    }
    // The schema of descriptions lies beside them.
    names.removeIf([](const QString &name) { return name.contains(u'.'); });
    names.sort();
    names.removeDuplicates();
    return names;
}
