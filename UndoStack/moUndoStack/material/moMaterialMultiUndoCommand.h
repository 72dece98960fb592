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
/// The field commands are children: give each this command as its parent, also while a composition is open. Then add
/// this command.
///
///     auto* const colours = new moMaterialMultiUndoCommand(text, material, settings);
///     new moFieldUndoCommand<float>(text, settings, "red", 0.8f, colours);
///     moUndoUtil::makeCommand(text, settings, "green", 0.2f, colours);
///     moUndoStack::get(0).addOrExecute(colours);
///
/// After all children have been redone, or undone, the settings and then the material send a change notification, also
/// when a child's notify function or a listener to its change threw (see moStep). If a child's step does not happen,
/// neither does this one's, and nothing is sent.
///
/// Merges with a newer one of the same material and settings as composites merge, child by child; there is no merge
/// interval beside those of the children. Message: the keys of the first child, then "material" and "componentSettings"
/// (left out for null), unsigned int. As the first child of a composition it adds no keys: a composite describes itself
/// only as a first child that is no composite.
class MO_UNDO_STACK_EXPORT moMaterialMultiUndoCommand : public moMultiCommand, private moContainerTouch
{
    MO_UNDO_COMMAND_ID

public:
    /// Parent: the composite being composed, if any.
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
