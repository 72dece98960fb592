#pragma once

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/material/moContainerTouch.h>

#include <OpenSG/OSGFieldContainer.h>

/// A composite of edits of one material's colours that announces the settings and the material after each step.
///
/// The field commands are its children: give each this command as its parent, also while composing. Then hand this
/// command to addOrExecute().
///
///     auto* const colours = new moMaterialMultiUndoCommand(text, material, settings);
///     new moFieldUndoCommand<float>(text, settings, "red", 0.8f, colours);
///     moUndoUtil::makeCommand(text, settings, "green", 0.2f, colours);
///     moUndoStack::get(0).addOrExecute(colours);
///
/// After all children were redone, or undone, the settings and then the material are announced, also if a child's
/// notify function or a listener to its change throws (see moStep). If a child's step does not happen, this one's does
/// not either, and neither is announced. Intended: nothing is written for it, because the renderer listens to the
/// material. See docs/oddities.md#a-change-is-announced-though-nothing-was-written.
///
/// Merges with a newer command of the same material and settings as composites merge, child by child. Intended: it has
/// no merge interval of its own, because only its children have a time. See
/// docs/oddities.md#composites-have-no-time-of-their-own.
///
/// Message: the keys of the first child, then "material" and "componentSettings" (left out for null), unsigned int.
/// Intended: as the first child of another composite it adds no keys to that one's message, because only a first child
/// that is no composite does. See docs/oddities.md#a-composite-describes-itself-as-its-first-child.
class MO_UNDO_STACK_EXPORT moMaterialMultiUndoCommand : public moMultiCommand, private moContainerTouch
{
    MO_UNDO_COMMAND_ID

public:
    /// Parent: the composite being composed, if any.
    /// \param material           the osg::UberMaterial whose colour data changes with the settings; may be null.
    /// \param componentSettings  the osg::ColorComponentSettings; may be null.
    moMaterialMultiUndoCommand(const moUndoString& text, osg::FieldContainerPtr material,
                               osg::FieldContainerPtr componentSettings);

    /// Undoes the children, then announces the settings and the material.
    void undo() override;
    /// Redoes the children, then announces the settings and the material.
    void redo() override;
    /// Asks for the same material and settings, too.
    bool mergeWith(const QUndoCommand* other) override;
    /// Adds the first child's keys, "material" and "componentSettings".
    void makeMessage(moMessage& message) const override;

private:
    unsigned int m_materialId;
    unsigned int m_settingsId;
};
