#include <moUndoStack/core/moGenericFunctionUndoCommand.h>

#include <moUndoStack/core/moStep.h>

#include <utility>

moGenericFunctionUndoCommand::moGenericFunctionUndoCommand(const moUndoString& text, std::function<void()> undoFunction,
                                                           std::function<void()> redoFunction, QUndoCommand* parent)
    : moUndoCommand(text, parent), m_undo(std::move(undoFunction)), m_redo(std::move(redoFunction))
{
}

moGenericFunctionUndoCommand::~moGenericFunctionUndoCommand() = default;

void moGenericFunctionUndoCommand::undo()
{
    moStep::run(m_undo);
}

void moGenericFunctionUndoCommand::redo()
{
    moStep::run(m_redo);
}
