#pragma once

#include "apps/host/ProjectStorage.h"
#include "apps/krparameter-desk/DriveLink.h"
#include "apps/krparameter-desk/ValueOrigin.h"

#include <QtCore/QObject>
#include <QtGui/QUndoStack>

#include <functional>
#include <memory>

class DeskDialogs;
class DriveProject;
class OnlineSwitch;
class ParameterAddress;
class ParameterContainer;
class ValueWriter;

/// The device that is open on the desk, with its project folder and what was written since. Messages
/// of its own go to the sink with the name of device or project as title.
class DeskSession : public QObject {
    Q_OBJECT

public:
    /// Null: no drive is reachable.
    using MakeLink = std::function<std::unique_ptr<DriveLink>(ParameterContainer &)>;

    /// **Owner** of the dialogs the caller; they outlive the session.
    explicit DeskSession(DeskDialogs &dialogs);
    ~DeskSession() override;

    void setMakeLink(const MakeLink &makeLink) { m_makeLink = makeLink; }

    /// Null without device.
    DriveProject *project() const { return m_project.get(); }
    ValueWriter *writer() const { return m_writer.get(); }
    OnlineSwitch *onlineSwitch() const { return m_onlineSwitch.get(); }
    const QUndoStack *undoStack() const { return &m_undoStack; }
    /// Never while the device is read only or a drive's values are about to replace all.
    bool canUndo() const { return m_undoStack.canUndo() && mayRestore(); }
    bool canRedo() const { return m_undoStack.canRedo() && mayRestore(); }
    /// Empty while the values were neither loaded nor saved.
    QString folder() const { return m_folder; }
    QString deviceName() const;
    bool isModified() const;
    bool isReadOnly() const;

    /// Asks what to do with unsaved changes. False: nothing is to be lost, stay.
    bool mayClose();
    /// The file of a description. **Refused** an unusable one; the device that is open stays.
    /// **Emits** aboutToChange, deviceReplaced, changed. **Reports** critical.
    bool open(const QString &descriptionFile);
    /// Fills the open device from a project folder. **Refused** without device, what is no project,
    /// and a cut block that the user does not want; all stays as it is, also online. Goes offline before
    /// anything is filled. **Emits** aboutToChange, changed. **Reports** what was read as information,
    /// every finding of the load report as warning.
    bool load(const QString &folder);
    /// **Refused** unless the user agrees: texts that would be lost, a folder that holds another project
    /// than the one that was loaded or saved last, values that were read from another drive than those of
    /// the folder. **Emits** saved.
    bool save(const QString &folder);
    /// Do nothing where they cannot.
    void undo();
    void redo();

Q_SIGNALS:
    /// The device or all of its values; who holds the project lets it go.
    void aboutToChange();
    void changed();
    /// Another device is open. Before changed.
    void deviceReplaced();
    void saved();
    void modifiedChanged(bool isModified);
    /// The state of the switch. What could be undone is forgotten before, where a drive's values begin to
    /// come and where all have come.
    void onlineChanged();
    /// While a drive's values are being read.
    void readingProgressed();

private:
    void adopt(std::unique_ptr<DriveProject> project);
    void fill(const QString &folder, ProjectStorage::LoadResult &judged);
    bool agreesToOverwrite(const QString &folder);
    bool mayRestore() const;
    void forgetUndo();
    void onOnlineChanged();
    void onNativeValueChanged(const ParameterAddress &address);
    void tellModified();

    DeskDialogs &m_dialogs;
    MakeLink m_makeLink;
    QUndoStack m_undoStack;
    // Those that borrow the project go first.
    std::unique_ptr<DriveProject> m_project;
    std::unique_ptr<ValueWriter> m_writer;
    std::unique_ptr<OnlineSwitch> m_onlineSwitch;
    ValueOrigin m_origin;
    QString m_folder;
    /// The folder holds what the device does not know; a save there drops it.
    bool m_folderHoldsMore = false;
    /// By something else than the user, who could undo it. What a drive measures is no change.
    bool m_hasOtherChanges = false;
    bool m_wasModified = false;
};
