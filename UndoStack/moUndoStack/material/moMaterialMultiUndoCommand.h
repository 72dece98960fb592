#pragma once

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moContainerTouch.h>

#include <OpenSG/OSGFieldContainer.h>

/// A composite of edits of one material's colours, after which the settings and the material tell of the change.
///
/// \param material           the osg::UberMaterial whose colour data changes with the settings; may be null.
/// \param componentSettings  the osg::ColorComponentSettings; may be null.
///
/// The field commands are added as children. After all children have been redone, or undone, the settings and then the
/// material send a change notification. Merges with a newer one of the same material and settings as composites merge,
/// child by child; there is no merge interval beside those of the children. Message: the keys of the first child, then
/// "material" and "componentSettings" (left out for null), unsigned int.
class MO_UNDO_STACK_EXPORT moMaterialMultiUndoCommand : public moMultiCommand, private moContainerTouch
{
    MO_UNDO_COMMAND_ID

public:
    moMaterialMultiUndoCommand(const moUndoString& text, osg::FieldContainerPtr material,
                               osg::FieldContainerPtr componentSettings);

    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;
    void makeMessage(moMessage& message) const override;

private:
    unsigned int m_materialId;
    unsigned int m_settingsId;
};
