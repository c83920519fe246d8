#include "apps/files/FilePlace.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

/// As many as the system follows.
constexpr int MaximumLinks = 40;

QString withoutLinkedFolders(const QFileInfo &file)
{
    const QString folder = QDir(file.absolutePath()).canonicalPath();
    return folder.isEmpty() ? QDir::cleanPath(file.absoluteFilePath())
                            : QDir(folder).filePath(file.fileName());
}

} // namespace

FilePlace::FilePlace(const QString &fileName)
{
    QFileInfo file(fileName);
    if (file.fileName().isEmpty()) {
        m_error = tr("ist der Name eines Ordners");
        return;
    }
    for (int i = 0; i < MaximumLinks && file.isSymLink(); ++i)
        file.setFile(file.symLinkTarget());
    if (file.isSymLink())
        m_error = tr("die Verweise führen im Kreis");
    else
        m_path = withoutLinkedFolders(file);
}
