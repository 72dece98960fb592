#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QCoreApplication>

/// Sets the rotation of a node's own transform as a quaternion.
///
/// \param text      the whole wording: the caller knows which edit it is.
/// \param rotation  see osg::Transform3D::setRotationAsQuaternion(), which also keeps the Euler angles in step.
///
/// Old value: the rotation that the core has at each step; the identity for a core that is no osg::Transform3D, to
/// which nothing is written. Undo brings back the quaternion; the angles follow from it, so that 400 degrees come back
/// as 40. Merges as moFunctionUndoCommand does. A destroyed node makes undo and redo no-ops.
/// Message: "id" (int), "transformCommand" = true. That "node" is missing, unlike in all other transform commands, is
/// intended.
class MO_UNDO_STACK_EXPORT moRotationAsQuaternionUndoCommand : public moFunctionUndoCommand<osg::Quaternion>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationAsQuaternionUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    moRotationAsQuaternionUndoCommand(const moUndoString& text, osg::NodePtr node, const osg::Quaternion& rotation,
                                      QUndoCommand* parent);

    void makeMessage(moMessage& message) const override;

protected:
    osg::Quaternion get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::Quaternion rotation) override;
};
