#include <moUndoStack/transform/moRotationAsQuaternionUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <OpenSG/OSGTransform3D.h>

MO_UNDO_COMMAND_ID_IMPL(moRotationAsQuaternionUndoCommand)

static osg::Transform3DPtr transformOf(const osg::NodePtr& node)
{
    return node == osg::NullFC ? osg::Transform3DPtr() : osg::Transform3DPtr::dcast(node->getCore());
}

moRotationAsQuaternionUndoCommand::moRotationAsQuaternionUndoCommand(const moUndoString& text, osg::NodePtr node,
                                                                     const osg::Quaternion& rotation,
                                                                     QUndoCommand* parent)
    : moFunctionUndoCommand(text, node, rotation, parent)
{
}

void moRotationAsQuaternionUndoCommand::makeMessage(moMessage& message) const
{
    // Skips the base class, which adds "node". Intended: docs/oddities.md#quaternion-without-node.
    moUndoCommand::makeMessage(message); // NOLINT(bugprone-parent-virtual-call)
    message.set("transformCommand", true, true);
}

osg::Quaternion moRotationAsQuaternionUndoCommand::get(osg::NodePtr node)
{
    const osg::Transform3DPtr transform = transformOf(node);
    return transform == osg::NullFC ? osg::Quaternion::identity() : transform->getRotation();
}

void moRotationAsQuaternionUndoCommand::set(osg::NodePtr node, osg::Quaternion rotation)
{
    const osg::Transform3DPtr transform = transformOf(node);
    if (transform == osg::NullFC) return;
    const ContainerEdit edit(transform, osg::Transform3DBase::RotationFieldMask);
    transform->setRotationAsQuaternion(rotation);
}
