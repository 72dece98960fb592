#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

/// Sets one field of a colour component, and tells listeners which component it was and whose.
///
/// \param command          the field command that does the edit, owned from here on; null makes the command inert.
///                         See moWrappedFieldUndoCommand.
/// \param parentContainer  what the component belongs to; may be null.
/// \param component        the colour component; may be null.
/// \param parent           null means the composite being composed, if any.
///
/// No notification is sent beside the field command's own. Merging: see moWrappedFieldUndoCommand.
/// Message: "id", "container" (the field command's), "component" and "parent" (left out for null), unsigned int.
class MO_UNDO_STACK_EXPORT moColorComponentUndoCommand : public moWrappedFieldUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// See the class for the arguments.
    moColorComponentUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                osg::FieldContainerPtr parentContainer, osg::FieldContainerPtr component,
                                QUndoCommand* parent);

    /// Runs the field command's undo if it is the wrapper that runs it.
    void undo() override;
    /// The same with its redo.
    void redo() override;
    /// Adds "component" and "parent".
    void makeMessage(moMessage& message) const override;
};
