#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QCoreApplication>

/// Sets the rotation of a node's own transform as a quaternion.
///
/// Old value: the rotation of the core, read at each step. If the core is no osg::Transform3D, a step writes nothing.
/// Intended: undo brings back the quaternion, and the angles follow from it, so that 400 degrees come back as 40. See
/// docs/oddities.md#angles-come-back-below-360. Merges as moFunctionUndoCommand does. If the node was destroyed, undo
/// and redo are no-ops.
/// Message: "id" (int), "transformCommand" = true. Intended: no "node", unlike all other value commands of a transform;
/// this is part of the interface. See docs/oddities.md#quaternion-without-node.
class MO_UNDO_STACK_EXPORT moRotationAsQuaternionUndoCommand : public moFunctionUndoCommand<osg::Quaternion>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationAsQuaternionUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// \param text      text and description; nothing is added, not even the node's name.
    /// \param node      null makes the command inert.
    /// \param rotation  as osg::Transform3D::setRotationAsQuaternion() takes it.
    /// \param parent    owns the command; null means the composite being composed, if any.
    moRotationAsQuaternionUndoCommand(const moUndoString& text, osg::NodePtr node, const osg::Quaternion& rotation,
                                      QUndoCommand* parent);

    /// Sets "id" and "transformCommand"; leaves out "node".
    void makeMessage(moMessage& message) const override;

protected:
    /// Returns the rotation of the node's core, or the identity if that is no osg::Transform3D.
    osg::Quaternion get(osg::NodePtr node) override;
    /// Writes the rotation if the node's core is an osg::Transform3D.
    void set(osg::NodePtr node, osg::Quaternion rotation) override;
};
