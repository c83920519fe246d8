#include "apps/krparameter-desk/WriteCommand.h"

#include "apps/krparameter-desk/ValueWriter.h"

WriteCommand::WriteCommand(
    ValueWriter &writer, const QString &address, const QList<ValueChange> &changes)
    : QUndoCommand(address)
    , m_writer(&writer)
    , m_changes(changes)
{
}

void WriteCommand::undo()
{
    if (m_writer && m_isDone)
        m_isDone = !m_writer->restore(m_changes, ValueWriter::eState::Before);
}

void WriteCommand::redo()
{
    // The stack calls this once when it takes the command.
    if (m_writer && !m_isDone)
        m_isDone = m_writer->restore(m_changes, ValueWriter::eState::After);
}
