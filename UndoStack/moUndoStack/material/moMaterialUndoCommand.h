#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

/// Sets one field of a material's colour component settings, and has the settings and the material tell of it.
///
/// \param command            the field command that does the edit, owned from here on; null makes the command inert.
///                           See moWrappedFieldUndoCommand.
/// \param material           the osg::UberMaterial whose colour data changes with the settings; may be null.
/// \param componentSettings  the osg::ColorComponentSettings; may be null.
///
/// After each redo and each undo the settings and then the material send a change notification, also when the field
/// command wrote nothing. A field command that stays with its parent is followed by them through its notify function,
/// which this command then replaces. Merging: see moWrappedFieldUndoCommand. Message: "id", "container" (the field
/// command's), "material" and "componentSettings" (left out for null), unsigned int.
class MO_UNDO_STACK_EXPORT moMaterialUndoCommand : public moWrappedFieldUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, osg::FieldContainerPtr material,
                          osg::FieldContainerPtr componentSettings, QUndoCommand* parent);

    void undo() override;
    void redo() override;
    void makeMessage(moMessage& message) const override;
};
