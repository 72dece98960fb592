#include <OpenSG/OSGNode.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(NodeCore, AttachmentContainer, OSG_NODECORE_FIELDS)

NodeCore::NodeCore(const NodeCore& source) : Inherited(source)
{
    _mfParents.clear();
}

void NodeCore::initMethod()
{
    getClassType().getFieldDescription(ParentsFieldId)->setInternal();
}

void NodeCore::invalidateVolume()
{
    for (const NodePtr& parent : _mfParents)
        parent->invalidateVolume();
}

void NodeCore::accumulateMatrix(Matrix&) {}

void NodeCore::addParent(const NodePtr& parent)
{
    _mfParents.push_back(parent);
}

void NodeCore::subParent(const NodePtr& parent)
{
    const auto found = _mfParents.find(parent);
    if (found != _mfParents.end()) _mfParents.erase(found);
}

} // namespace osg
