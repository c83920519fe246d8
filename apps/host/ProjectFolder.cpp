#include "apps/host/ProjectFolder.h"

#include "apps/files/StagedFile.h"
#include "apps/files/WholeFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr qsizetype MaximumNameLength = 100;

bool isNameCharacter(QChar c)
{
    const char16_t u = c.unicode();
    return (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9')
        || u == u'_' || u == u'-' || u == u'.';
}

QString problem(const QString &fileName, const QString &reason)
{
    return QDir::toNativeSeparators(fileName) + QLatin1String(": ") + reason;
}

} // namespace

QString ProjectFolder::parameterBlockName()
{
    return QStringLiteral("Parameter.ini");
}

bool ProjectFolder::isBlockName(const QString &name)
{
    return !name.isEmpty() && name.size() <= MaximumNameLength && !name.startsWith(QLatin1Char('.'))
        && name.compare(BlockManifest::fileName(), Qt::CaseInsensitive) != 0
        && std::all_of(name.begin(), name.end(), isNameCharacter);
}

ProjectFolder::ProjectFolder(const QString &path)
    : m_directory(path)
{
}

bool ProjectFolder::holdsProject() const
{
    return QFileInfo::exists(filePath(parameterBlockName()))
        || QFileInfo::exists(filePath(BlockManifest::fileName()));
}

bool ProjectFolder::isFree() const
{
    return !QFileInfo::exists(path()) || (reasonNotRead().isEmpty() && !holdsProject());
}

bool ProjectFolder::holdsFile(const QString &canonicalName) const
{
    const QFileInfo file(canonicalName);
    if (file.absolutePath() != m_directory.canonicalPath())
        return false;
    const QString name = file.fileName();
    return name == parameterBlockName() || name == BlockManifest::fileName()
        || manifestWith({}).blockNames().contains(name);
}

std::optional<ProjectFolder::Content> ProjectFolder::read(QString &error) const
{
    if (const QString reason = reasonNotRead(); !reason.isEmpty()) {
        error = problem(path(), reason);
        return std::nullopt;
    }
    Content content;
    if (QFileInfo::exists(filePath(BlockManifest::fileName()))) {
        const auto bytes = readFile(BlockManifest::fileName(), error);
        if (!bytes)
            return std::nullopt;
        content.manifest = BlockManifest::fromBytes(*bytes);
    }
    QStringList names = content.manifest.blockNames();
    if (!names.contains(parameterBlockName()))
        names.append(parameterBlockName());
    for (const QString &name : std::as_const(names)) {
        if (!isBlockName(name) || !QFileInfo::exists(filePath(name)))
            continue;
        const auto bytes = readFile(name, error);
        if (!bytes)
            return std::nullopt;
        content.blocks.insert(name, *bytes);
    }
    return content;
}

QString ProjectFolder::write(const QMap<QString, QByteArray> &blocks)
{
    for (auto it = blocks.begin(); it != blocks.end(); ++it) {
        if (!isBlockName(it.key()))
            return tr("\"%1\" ist kein Blockname").arg(it.key());
    }
    if (!m_directory.mkpath(QStringLiteral(".")))
        return problem(path(), tr("der Ordner kann nicht angelegt werden"));

    QMap<QString, QByteArray> files = blocks;
    files.insert(BlockManifest::fileName(), manifestWith(blocks).toBytes());
    std::vector<std::pair<QString, std::unique_ptr<StagedFile>>> staged;
    for (auto it = files.begin(); it != files.end(); ++it) {
        staged.emplace_back(it.key(), std::make_unique<StagedFile>(filePath(it.key())));
        if (const QString reason = staged.back().second->stage(*it); !reason.isEmpty())
            return problem(filePath(it.key()), reason);
    }

    // The old manifest goes first and the new one comes last: a break in between leaves blocks
    // without a manifest, never blocks with a wrong one.
    QFile::remove(filePath(BlockManifest::fileName()));
    std::stable_partition(staged.begin(), staged.end(),
        [](const auto &file) { return file.first != BlockManifest::fileName(); });
    for (const auto &[name, file] : staged) {
        if (const QString reason = file->commit(); !reason.isEmpty())
            return problem(filePath(name), reason);
    }
    return {};
}

/// Empty for a folder whose files can be looked for.
QString ProjectFolder::reasonNotRead() const
{
    const QFileInfo folder(path());
    if (!folder.exists())
        return tr("der Ordner ist nicht vorhanden");
    if (!folder.isDir())
        return tr("ist kein Ordner");
    return folder.isExecutable() ? QString() : tr("der Ordner darf nicht gelesen werden");
}

std::optional<QByteArray> ProjectFolder::readFile(const QString &name, QString &error) const
{
    const QString fileName = filePath(name);
    // A pipe or a device would never end.
    if (!QFileInfo(fileName).isFile()) {
        error = problem(fileName, tr("ist keine Datei"));
        return std::nullopt;
    }
    QString reason;
    auto bytes = WholeFile::read(fileName, MaximumBlockSize, reason);
    if (!bytes)
        error = problem(fileName, reason);
    return bytes;
}

/// Keeps what is noted about other blocks.
BlockManifest ProjectFolder::manifestWith(const QMap<QString, QByteArray> &blocks) const
{
    QString unreadable;
    const auto bytes = readFile(BlockManifest::fileName(), unreadable);
    BlockManifest manifest = bytes ? BlockManifest::fromBytes(*bytes) : BlockManifest();
    for (auto it = blocks.begin(); it != blocks.end(); ++it)
        manifest.note(it.key(), *it);
    return manifest;
}
