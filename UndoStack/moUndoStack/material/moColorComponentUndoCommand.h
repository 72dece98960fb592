#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

/// Sets one field of a colour component; its message names the component and its owner.
///
/// Announces nothing but the field command's own change. Merging: see moWrappedFieldUndoCommand.
/// Message: "id", "container" (the field command's), "component" and "parent" (left out for null), unsigned int.
class MO_UNDO_STACK_EXPORT moColorComponentUndoCommand : public moWrappedFieldUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param command          the field command that does the edit. Owned by this command unless it has a parent, see
    ///                         moWrappedFieldUndoCommand; null makes this command inert.
    /// \param parentContainer  the owner of the component; may be null.
    /// \param component        the colour component; may be null.
    /// \param parent           null means the composite being composed, if any.
    moColorComponentUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                osg::FieldContainerPtr parentContainer, osg::FieldContainerPtr component,
                                QUndoCommand* parent);

    /// Undoes the field command; does nothing if the parent of the field command runs it.
    void undo() override;
    /// Redoes the field command; does nothing if the parent of the field command runs it.
    void redo() override;
    /// Adds "component" and "parent".
    void makeMessage(moMessage& message) const override;
};
