#include <moUndoStack/material/moColorComponentUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

MO_UNDO_COMMAND_ID_IMPL(moColorComponentUndoCommand)

moColorComponentUndoCommand::moColorComponentUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                                         osg::FieldContainerPtr parentContainer,
                                                         osg::FieldContainerPtr component, QUndoCommand* parent)
    : moWrappedFieldUndoCommand(text, command, containerId(component), containerId(parentContainer), parent)
{
}

void moColorComponentUndoCommand::undo()
{
    if (wrapped()) wrapped()->undo();
}

void moColorComponentUndoCommand::redo()
{
    if (wrapped()) wrapped()->redo();
}

void moColorComponentUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    setContainerKeys(message, "component", "parent");
}
