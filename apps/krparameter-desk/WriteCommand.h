#pragma once

#include "apps/krparameter-desk/ChangeRecorder.h"

#include <QtCore/QPointer>
#include <QtGui/QUndoCommand>

class ValueWriter;

/// One accepted write with everything that changed along; pushed when it is done already. What the
/// writer refuses to restore stays as it is.
class WriteCommand : public QUndoCommand {
public:
    /// **Owner** of the writer the caller.
    WriteCommand(ValueWriter &writer, const QString &address, const QList<ValueChange> &changes);

    void undo() override;
    void redo() override;

private:
    QPointer<ValueWriter> m_writer;
    QList<ValueChange> m_changes;
    bool m_isDone = true;
};
