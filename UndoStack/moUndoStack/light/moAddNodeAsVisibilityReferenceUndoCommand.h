#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGUberLight.h>

/// Makes a node the visibility reference of a light, or clears the reference, and marks the node with external flag
/// 0x10 while it is one. Never merges.
///
/// Clearing it clears whichever reference the light has by then, also that of another node.
/// The reference that the light had before is not remembered: undo of an add leaves the light without any; this is
/// intended. Light and node are kept by id; when either was destroyed, or is null, undo and redo do nothing. Message: "id"
/// (int), "lightCommand" = the light's id (unsigned int). Other light commands send true under this key; the different
/// type is intended, and receivers accept both.
class MO_UNDO_STACK_EXPORT moAddNodeAsVisibilityReferenceUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param remove  redo clears the reference and undo sets it, instead of the reverse; the text is the same.
    /// \param parent  null means the composite being composed, if any.
    moAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light, osg::NodePtr node, bool remove,
                                              QUndoCommand* parent);

    void undo() override;
    void redo() override;
    void makeMessage(moMessage& message) const override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(bool remove);

    unsigned int m_lightId;
    unsigned int m_nodeId;
    bool m_remove;
};
