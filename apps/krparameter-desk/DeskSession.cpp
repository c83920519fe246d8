#include "apps/krparameter-desk/DeskSession.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/DeskDialogs.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ValueWriter.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

using LoadStatus = ProjectStorage::LoadResult::eStatus;
using SaveStatus = ProjectStorage::SaveResult::eStatus;

QString titleOf(const QString &folder)
{
    return QFileInfo(QDir::cleanPath(folder)).fileName();
}

/// The drive keeps it and somebody may write it. Anything else changes by itself.
bool isSetting(const ParameterInformation &parameter, quint16 element)
{
    const auto of = [&](eParameterProperty property) {
        return parameter.elementProperty(element, property).asInt32();
    };
    return of(eParameterProperty::MemoryAllocation) == 0 && of(eParameterProperty::NoWrite) == 0;
}

/// The first line says what was read, every further one what was not.
void report(const QString &title, const LoadReport &report)
{
    const QStringList lines = report.toText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    System::addInformationMessage(title, lines.value(0));
    for (const QString &line : lines.mid(1))
        System::addWarningMessage(title, line);
}

} // namespace

DeskSession::DeskSession(DeskDialogs &dialogs)
    : m_dialogs(dialogs)
{
    connect(&m_undoStack, &QUndoStack::cleanChanged, this, &DeskSession::tellModified);
}

DeskSession::~DeskSession()
{
    m_undoStack.disconnect(this);
}

QString DeskSession::deviceName() const
{
    return m_project ? m_project->firmware().deviceFamilyName() : QString();
}

bool DeskSession::isModified() const
{
    return m_hasOtherChanges || !m_undoStack.isClean();
}

bool DeskSession::isReadOnly() const
{
    return m_project && m_project->container().isReadOnly();
}

bool DeskSession::mayClose()
{
    if (!isModified())
        return true;
    switch (m_dialogs.unsavedChanges()) {
    case DeskDialogs::eUnsaved::Discard:
        return true;
    case DeskDialogs::eUnsaved::Cancel:
        return false;
    case DeskDialogs::eUnsaved::Save:
        break;
    }
    const QString folder = m_folder.isEmpty() ? m_dialogs.projectToSave() : m_folder;
    return !folder.isEmpty() && save(folder);
}

bool DeskSession::open(const QString &descriptionFile)
{
    QString error;
    std::unique_ptr<DriveProject> project;
    m_dialogs.run(tr("Gerät öffnen"), [&](Progress &progress) {
        project = DriveProject::open(descriptionFile, error, &progress);
    });
    if (!project) {
        System::addCriticalMessage(QFileInfo(descriptionFile).fileName(), error);
        return false;
    }
    adopt(std::move(project));
    for (const QString &warning : m_project->firmware().warnings())
        System::addWarningMessage(deviceName(), warning);
    return true;
}

void DeskSession::adopt(std::unique_ptr<DriveProject> project)
{
    Q_EMIT aboutToChange();
    m_undoStack.clear();
    m_onlineSwitch.reset();
    m_writer.reset();
    m_project = std::move(project);
    m_origin.forget();
    m_folder.clear();
    m_folderHoldsMore = false;
    m_hasOtherChanges = false;
    ParameterContainer &container = m_project->container();
    m_writer = std::make_unique<ValueWriter>(container, m_undoStack);
    m_onlineSwitch = std::make_unique<OnlineSwitch>(
        container, m_makeLink ? m_makeLink(container) : std::unique_ptr<DriveLink>());
    connect(m_writer.get(), &ValueWriter::written, m_onlineSwitch.get(), &OnlineSwitch::write);
    connect(m_onlineSwitch.get(), &OnlineSwitch::stateChanged, this, &DeskSession::onOnlineChanged);
    connect(m_onlineSwitch.get(), &OnlineSwitch::progressed, this, &DeskSession::readingProgressed);
    connect(&container, &ParameterContainer::parameterNativeValueChanged, this,
        &DeskSession::onNativeValueChanged);
    tellModified();
    Q_EMIT deviceReplaced();
    Q_EMIT changed();
}

bool DeskSession::load(const QString &folder)
{
    if (!m_project)
        return false;
    ProjectStorage::LoadResult judged;
    m_dialogs.run(tr("Projekt laden"),
        [&](Progress &progress) { judged = ProjectStorage(folder).judge(*m_project, &progress); });
    const bool isWanted = judged.status == LoadStatus::Loaded
        || (judged.status == LoadStatus::Cut && m_dialogs.agreesToLoadCut(judged.report.toText()));
    if (!isWanted) {
        System::addCriticalMessage(titleOf(folder), judged.error);
        return false;
    }
    // The values of a project go to a drive only where somebody sends them.
    m_onlineSwitch->turn(false);
    Q_EMIT aboutToChange();
    fill(folder, judged);
    tellModified();
    Q_EMIT changed();
    return true;
}

void DeskSession::fill(const QString &folder, ProjectStorage::LoadResult &judged)
{
    m_writer->forget();
    m_project->container().loadFrom(judged.blocks);
    m_project->container().setDomain(titleOf(folder));
    m_undoStack.clear();
    m_origin.forget();
    m_folder = folder;
    m_folderHoldsMore = judged.report.leavesContentBehind();
    m_hasOtherChanges = false;
    report(titleOf(folder), judged.report);
}

bool DeskSession::save(const QString &folder)
{
    if (!m_project || !agreesToOverwrite(folder))
        return false;
    ProjectStorage storage(folder);
    ProjectStorage::SaveResult result;
    const auto save = [&](ProjectStorage::eLoss loss) {
        m_dialogs.run(tr("Projekt speichern"),
            [&](Progress &progress) { result = storage.save(*m_project, loss, &progress); });
    };
    save(ProjectStorage::eLoss::Refuse);
    if (result.status == SaveStatus::WouldLose && m_dialogs.agreesToLose(result.losses.toText()))
        save(ProjectStorage::eLoss::Allow);
    if (result.status != SaveStatus::Saved) {
        System::addCriticalMessage(titleOf(folder), result.error);
        return false;
    }
    m_project->container().setDomain(titleOf(folder));
    m_origin.saved();
    m_folder = folder;
    m_folderHoldsMore = false;
    m_hasOtherChanges = false;
    m_undoStack.setClean();
    System::addInformationMessage(titleOf(folder), tr("gespeichert und zurückgelesen"));
    tellModified();
    Q_EMIT saved();
    return true;
}

void DeskSession::undo()
{
    if (canUndo())
        m_undoStack.undo();
}

void DeskSession::redo()
{
    if (canRedo())
        m_undoStack.redo();
}

bool DeskSession::agreesToOverwrite(const QString &folder)
{
    if (m_folder.isEmpty() || QDir(folder) != QDir(m_folder))
        return !ProjectFolder(folder).holdsProject() || m_dialogs.agreesToReplace(folder);
    if (m_origin.isForeignToFolder()
        && !m_dialogs.agreesToSaveFromDrive(folder, m_origin.drive(), m_origin.folderDrive()))
        return false;
    return !m_folderHoldsMore
        || m_dialogs.agreesToLose(
            tr("Das Projekt enthält, was dieses Gerät nicht kennt; es ginge verloren."));
}

bool DeskSession::mayRestore() const
{
    using eState = OnlineSwitch::eState;
    const eState state = m_onlineSwitch ? m_onlineSwitch->state() : eState::Offline;
    return (state == eState::Offline || state == eState::Online) && !isReadOnly();
}

/// What was written stays, and unsaved as it was.
void DeskSession::forgetUndo()
{
    m_hasOtherChanges = isModified();
    m_undoStack.clear();
}

void DeskSession::onOnlineChanged()
{
    if (m_onlineSwitch->state() == OnlineSwitch::eState::Reading)
        m_origin.readFrom(m_onlineSwitch->drive());
    // What is written now would be gone as soon as the drive's values come.
    m_writer->setConnecting(m_onlineSwitch->state() == OnlineSwitch::eState::Opening);
    // An undo would write what stood here before the drive's own value, or to another drive.
    if (m_onlineSwitch->isConnected())
        forgetUndo();
    Q_EMIT onlineChanged();
}

void DeskSession::onNativeValueChanged(const ParameterAddress &address)
{
    if (m_hasOtherChanges || m_writer->isWriting())
        return;
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    if (!parameter || !isSetting(*parameter, address.element()))
        return;
    m_hasOtherChanges = true;
    tellModified();
}

void DeskSession::tellModified()
{
    const bool now = isModified();
    if (now == m_wasModified)
        return;
    m_wasModified = now;
    Q_EMIT modifiedChanged(now);
}
