#include "apps/host/ProjectStorage.h"

#include "apps/host/BlockComparison.h"
#include "apps/host/DriveProject.h"

#include <utility>

ProjectStorage::LoadResult ProjectStorage::judge(DriveProject &project, Progress *progress) const
{
    LoadResult result;
    std::optional<ProjectFolder::Content> content = m_folder.read(result.error);
    if (!content)
        return result;
    const QString name = ProjectFolder::parameterBlockName();
    const std::optional<BlockManifest::Entry> noted = content->manifest.entry(name);
    const bool isMissing = !content->blocks.contains(name);
    if (isMissing && !noted) {
        result.error = tr("%1 enthält kein Projekt: \"%2\" fehlt").arg(m_folder.path(), name);
        return result;
    }
    result.report =
        BlockComparison(content->blocks.value(name), project.container()).report(noted, progress);
    if (isMissing)
        result.report.cutSigns.prepend(eCutSign::Missing);
    if (result.report.wasCancelled) {
        result.status = LoadResult::eStatus::Cancelled;
        result.error = tr("abgebrochen");
        return result;
    }
    result.blocks = std::move(content->blocks);
    result.status = LoadResult::eStatus::Loaded;
    if (result.report.isCut()) {
        result.status = LoadResult::eStatus::Cut;
        result.error = tr("%1: der Block \"%2\" ist abgeschnitten").arg(m_folder.path(), name);
    }
    return result;
}

ProjectStorage::LoadResult ProjectStorage::load(
    DriveProject &project, eCutBlock cutBlock, const Announce &announce, Progress *progress) const
{
    LoadResult result = judge(project, progress);
    QMap<QString, QByteArray> blocks = std::exchange(result.blocks, {});
    if (result.status != LoadResult::eStatus::Loaded && result.status != LoadResult::eStatus::Cut)
        return result;
    if (announce)
        announce(result.report);
    if (result.status == LoadResult::eStatus::Cut && cutBlock == eCutBlock::Refuse)
        return result;
    project.container().loadFrom(blocks);
    result.status = LoadResult::eStatus::Loaded;
    result.error.clear();
    return result;
}

ProjectStorage::SaveResult ProjectStorage::save(
    DriveProject &project, eLoss loss, Progress *progress)
{
    SaveResult result;
    result.losses = LossReport::of(project.container(), progress);
    if (result.losses.wasCancelled) {
        result.status = SaveResult::eStatus::Cancelled;
        result.error = tr("abgebrochen");
        return result;
    }
    if (!result.losses.isEmpty() && loss == eLoss::Refuse) {
        result.status = SaveResult::eStatus::WouldLose;
        result.error =
            tr("nicht gespeichert: %1 Texte gingen verloren").arg(result.losses.losses.size());
        return result;
    }
    QMap<QString, QByteArray> blocks;
    project.container().saveTo(blocks);
    result.error = m_folder.write(blocks);
    if (result.error.isEmpty())
        result.status = SaveResult::eStatus::Saved;
    return result;
}
