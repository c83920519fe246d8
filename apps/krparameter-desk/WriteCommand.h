#pragma once

#include "apps/krparameter-desk/ChangeRecorder.h"

#include <QtGui/QUndoCommand>

#include <functional>

/// One accepted write with everything that changed along; pushed when it is done already. What cannot
/// be restored stays as it is.
class WriteCommand : public QUndoCommand {
public:
    /// Stores what stood there then; false where it is refused, or nobody is left to do it.
    using Restore = std::function<bool(const QList<ValueChange> &, ValueChange::eState)>;

    WriteCommand(const QString &address, const QList<ValueChange> &changes, Restore restore);

    void undo() override;
    void redo() override;

private:
    QList<ValueChange> m_changes;
    Restore m_restore;
    bool m_isDone = true;
};
