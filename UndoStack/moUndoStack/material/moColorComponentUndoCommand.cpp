#include <moUndoStack/material/moColorComponentUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

MO_UNDO_COMMAND_ID_IMPL(moColorComponentUndoCommand)

moColorComponentUndoCommand::moColorComponentUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                                         osg::FieldContainerPtr parentContainer,
                                                         osg::FieldContainerPtr component, QUndoCommand* parent)
    : moWrappedFieldUndoCommand(text, command, containerId(parentContainer), containerId(component), parent)
{
}

void moColorComponentUndoCommand::undo()
{
    if (ownCommand()) ownCommand()->undo();
}

void moColorComponentUndoCommand::redo()
{
    if (ownCommand()) ownCommand()->redo();
}

void moColorComponentUndoCommand::makeMessage(moMessage& message) const
{
    moWrappedFieldUndoCommand::makeMessage(message);
    setIdUnlessNull(message, "component", componentId());
    setIdUnlessNull(message, "parent", ownerId());
}
