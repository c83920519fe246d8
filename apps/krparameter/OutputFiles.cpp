#include "apps/krparameter/OutputFiles.h"

#include "apps/files/FilePlace.h"
#include "apps/host/ProjectFolder.h"

#include <QtCore/QFileInfo>

namespace {

/// False for names that lead nowhere: writing them fails for its own reason.
bool areOnePlace(const FilePlace &a, const FilePlace &b)
{
    return a.error().isEmpty() && a == b;
}

bool isRead(const FilePlace &place, const QString &input)
{
    return QFileInfo(input).isDir() ? ProjectFolder(input).holdsFile(place.path())
                                    : areOnePlace(place, FilePlace(input));
}

} // namespace

void OutputFiles::add(const QString &option, const QString &fileName)
{
    if (!fileName.isEmpty())
        m_files.append({option, fileName});
}

QString OutputFiles::refusal(const QStringList &inputs) const
{
    for (const File &file : m_files) {
        const FilePlace place(file.name);
        for (const QString &input : inputs) {
            if (isRead(place, input))
                return tr("%1 %2: die Datei wird gelesen").arg(file.option, file.name);
        }
    }
    return refusalOfOnePlace();
}

QString OutputFiles::refusalOfOnePlace() const
{
    for (qsizetype i = 0; i < m_files.size(); ++i) {
        for (qsizetype k = i + 1; k < m_files.size(); ++k) {
            if (areOnePlace(FilePlace(m_files.at(i).name), FilePlace(m_files.at(k).name))) {
                return tr("%1 und %2 brauchen verschiedene Dateien")
                    .arg(m_files.at(i).option, m_files.at(k).option);
            }
        }
    }
    return {};
}
