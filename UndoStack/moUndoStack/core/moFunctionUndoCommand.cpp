#include <moUndoStack/core/moFunctionUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

unsigned int moUndoDetail::nodeId(const osg::NodePtr& node)
{
    return containerId(node);
}

osg::NodePtr moUndoDetail::findNode(unsigned int id)
{
    return findContainer<osg::NodePtr>(id);
}

template class moFunctionUndoCommand<bool>;
template class moFunctionUndoCommand<float>;
template class moFunctionUndoCommand<osg::Vec3f>;
template class moFunctionUndoCommand<osg::Quaternion>;
template class moFunctionUndoCommand<std::string>;
