#include <sceneeditor/Drag.h>

#include <moUndoStack/core/moUndoStack.h>

void Drag::move(std::unique_ptr<moUndoCommandBase> command)
{
    command->redo();
    if (!m_command)
        m_command = std::move(command);
    else if (!m_command->mergeWith(command.get()))
        command->undo();
}

void Drag::drop()
{
    if (!m_command) return;
    m_command->undo();
    m_stack.addOrExecute(m_command.release());
}

void Drag::cancel()
{
    if (!m_command) return;
    m_command->undo();
    m_command.reset();
}
