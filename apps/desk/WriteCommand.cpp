#include "apps/desk/WriteCommand.h"

#include "apps/desk/ValueWriter.h"

WriteCommand::WriteCommand(ValueWriter &writer, const ValuePlace &place, const QString &address,
    const StoredValue &before, const StoredValue &after)
    : QUndoCommand(address)
    , m_writer(&writer)
    , m_place(place)
    , m_before(before)
    , m_after(after)
{
}

void WriteCommand::undo()
{
    m_isDone = false;
    if (m_writer)
        m_writer->restore(m_place, m_before);
}

void WriteCommand::redo()
{
    // The stack calls this once when it takes the command.
    if (m_isDone || !m_writer)
        return;
    m_isDone = true;
    m_writer->restore(m_place, m_after);
}
