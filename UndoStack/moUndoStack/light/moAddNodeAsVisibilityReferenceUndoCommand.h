#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGUberLight.h>

/// Makes a node the visibility reference of a light, or clears the reference, and marks the node with external flag
/// 0x10 while it is one. Never merges.
///
/// Intended: the command keeps no old value. Undo of an add leaves the light without a reference, and clearing also
/// clears a reference to another node. See docs/oddities.md#the-visibility-reference-before.
/// Light and node are kept by id. If either is null or was destroyed, undo and redo are no-ops.
/// Message: "id" (int), "lightCommand" = the light's id (unsigned int). Intended: the other light commands send true
/// under this key. Listeners read the light from the id. See docs/oddities.md#two-types-of-lightcommand.
class MO_UNDO_STACK_EXPORT moAddNodeAsVisibilityReferenceUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param light   null makes the command inert.
    /// \param node    null makes the command inert.
    /// \param remove  true: redo clears the reference and undo sets it; false: the reverse. Intended: the text is the
    ///                same, see docs/oddities.md#the-text-does-not-follow-the-direction.
    /// \param parent  owns the command; null means the composite being composed, if any.
    moAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light, osg::NodePtr node, bool remove,
                                              QUndoCommand* parent);

    /// Clears the reference, or sets it if `remove` was true.
    void undo() override;
    /// Sets the reference, or clears it if `remove` was true.
    void redo() override;
    /// Adds "lightCommand".
    void makeMessage(moMessage& message) const override;
    /// Never merges.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(bool remove);

    unsigned int m_lightId;
    unsigned int m_nodeId;
    bool m_remove;
};
