#include <moUndoStack/core/moFunctionUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moUtils/moMessage.h>

moNodeUndoCommand::moNodeUndoCommand(const moUndoString& text, const osg::NodePtr& node, QUndoCommand* parent)
    : moUndoCommand(text, parent), m_nodeId(containerId(node))
{
}

void moNodeUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("node", m_nodeId, true);
}

osg::NodePtr moNodeUndoCommand::findNode() const
{
    return findContainer<osg::NodePtr>(m_nodeId);
}

template class moFunctionUndoCommand<bool>;
template class moFunctionUndoCommand<float>;
template class moFunctionUndoCommand<osg::Vec3f>;
template class moFunctionUndoCommand<osg::Quaternion>;
template class moFunctionUndoCommand<std::string>;
