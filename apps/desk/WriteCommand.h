#pragma once

#include "apps/desk/StoredValue.h"
#include "apps/host/ValuePlace.h"

#include <QtCore/QPointer>
#include <QtGui/QUndoCommand>

class ValueWriter;

/// One accepted write; pushed when it is done already.
class WriteCommand : public QUndoCommand {
public:
    /// **Owner** of the writer the caller.
    WriteCommand(ValueWriter &writer, const ValuePlace &place, const QString &address,
        const StoredValue &before, const StoredValue &after);

    void undo() override;
    void redo() override;

private:
    QPointer<ValueWriter> m_writer;
    ValuePlace m_place;
    StoredValue m_before;
    StoredValue m_after;
    bool m_isDone = true;
};
