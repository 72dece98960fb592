#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

/// Sets one field of a material's colour component settings, and has the settings and the material tell of it.
///
/// \param command            the field command that does the edit, owned from here on; null makes the command inert.
///                           See moWrappedFieldUndoCommand.
/// \param material           the osg::UberMaterial whose colour data changes with the settings; may be null.
/// \param componentSettings  the osg::ColorComponentSettings; may be null.
/// \param parent             null means the composite being composed, if any.
///
/// After each redo and each undo, and after the field command's notify function, the settings and then the material send
/// a change notification, also when the field command wrote nothing. A field command that stays with its parent is
/// followed by them, too, but only when it wrote: after its notify function, which stays the caller's, and also when
/// this command was destroyed before. If the notify function or a listener to one change throws, the rest is done all
/// the same (see moStep).
///
/// Merging: see moWrappedFieldUndoCommand. Message: "id", "container" (the field command's), "material" and
/// "componentSettings" (left out for null), unsigned int. A composition tells of its first child only: where that is
/// the field command, listeners get "id", "container" and "fieldId" of that one and hear of no material.
class MO_UNDO_STACK_EXPORT moMaterialUndoCommand : public moWrappedFieldUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// See the class for the arguments.
    moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, osg::FieldContainerPtr material,
                          osg::FieldContainerPtr componentSettings, QUndoCommand* parent);

    /// Runs the field command's undo if it is the wrapper that runs it, then notifies.
    void undo() override;
    /// The same with its redo.
    void redo() override;
    /// Adds "material" and "componentSettings".
    void makeMessage(moMessage& message) const override;

private:
    void run(void (QUndoCommand::*step)());
};
