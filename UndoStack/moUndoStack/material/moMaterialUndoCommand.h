#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

/// Sets one field of a material's colour component settings, and announces the settings and the material.
///
/// Each redo and undo runs the field command with its notify function and then announces the settings and the material,
/// also if the field command wrote nothing. If the parent of the field command runs it, both are announced after its
/// notify function, but only if it wrote; also after this command was deleted. If the notify function or a listener to
/// one change throws, the rest is done all the same (see moStep). Intended: nothing is written for it, because the
/// renderer listens to the material. See docs/oddities.md#a-change-is-announced-though-nothing-was-written.
///
/// Merging: see moWrappedFieldUndoCommand. Message: "id", "container" (the field command's), "material" and
/// "componentSettings" (left out for null), unsigned int. Intended: a composite's message has the keys of its first
/// child. If that is the field command, it has "id", "container" and "fieldId" and names no material. See
/// docs/oddities.md#a-composite-describes-itself-as-its-first-child.
class MO_UNDO_STACK_EXPORT moMaterialUndoCommand : public moWrappedFieldUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param command            the field command that does the edit. Owned by this command unless it has a parent,
    ///                           see moWrappedFieldUndoCommand; null makes this command inert.
    /// \param material           the osg::UberMaterial whose colour data changes with the settings; may be null.
    /// \param componentSettings  the osg::ColorComponentSettings; may be null.
    /// \param parent             null means the composite being composed, if any.
    moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, osg::FieldContainerPtr material,
                          osg::FieldContainerPtr componentSettings, QUndoCommand* parent);

    /// Undoes the field command, then announces. Does nothing if the parent of the field command runs it.
    void undo() override;
    /// Redoes the field command, then announces. Does nothing if the parent of the field command runs it.
    void redo() override;
    /// Adds "material" and "componentSettings".
    void makeMessage(moMessage& message) const override;

private:
    void run(void (QUndoCommand::*step)());
};
