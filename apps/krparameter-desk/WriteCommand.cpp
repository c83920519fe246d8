#include "apps/krparameter-desk/WriteCommand.h"

#include <utility>

WriteCommand::WriteCommand(
    const QString &address, const QList<ValueChange> &changes, Restore restore)
    : QUndoCommand(address)
    , m_changes(changes)
    , m_restore(std::move(restore))
{
}

void WriteCommand::undo()
{
    if (m_isDone)
        m_isDone = !m_restore(m_changes, ValueChange::eState::Before);
}

void WriteCommand::redo()
{
    // The stack calls this once when it takes the command.
    if (!m_isDone)
        m_isDone = m_restore(m_changes, ValueChange::eState::After);
}
