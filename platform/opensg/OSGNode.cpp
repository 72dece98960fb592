#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>

#include <algorithm>

namespace osg {

OSG_CONTAINER_IMPL(Node, AttachmentContainer, OSG_NODE_FIELDS)

Node::Node(const Node& source) : Inherited(source), m_occlusionMask(source.m_occlusionMask)
{
    _sfParent.setValue(NullFC);
    _mfChildren.clear();
    _sfCore.setValue(NullFC);
}

Node::~Node()
{
    // Nobody is told of the volume any more.
    _sfVolume.getValue().setValid(false);
    setCore(NullFC);
    MFNodePtr children;
    children.swap(_mfChildren);
    for (const NodePtr& child : children) {
        setParentOf(child, NullFC);
        subRefCP(child);
    }
}

void Node::onCreate(const Node* source)
{
    if (!source) return;
    if (source->getCore()) setCore(source->getCore());
    invalidateVolume();
}

void Node::initMethod()
{
    // Declared as a bool although it is a mask of 32 bits: intended, it has always been so.
    getClassType().getFieldDescription(TravMaskFieldId)->setDeclaredType(SFBool::getClassType());
    getClassType().getFieldDescription(ParentFieldId)->setInternal();
}

void Node::setCore(const NodeCorePtr& core)
{
    const NodeCorePtr former = _sfCore.getValue();
    const NodeCorePtr next = core;
    addRefCP(next);
    if (former) {
        beginEditCP(former, NodeCore::ParentsFieldMask);
        former->subParent(getPtr());
        endEditCP(former, NodeCore::ParentsFieldMask);
    }
    _sfCore.setValue(next);
    subRefCP(former);
    if (next) {
        beginEditCP(next, NodeCore::ParentsFieldMask);
        next->addParent(getPtr());
        endEditCP(next, NodeCore::ParentsFieldMask);
    }
    invalidateVolume();
}

NodePtr Node::getChild(UInt32 index) const
{
    return index < _mfChildren.size() ? _mfChildren[index] : NodePtr();
}

Int32 Node::findChild(const NodePtr& child) const
{
    const auto found = _mfChildren.find(child);
    return found == _mfChildren.end() ? -1 : static_cast<Int32>(found - _mfChildren.begin());
}

void Node::addChild(const NodePtr& child)
{
    insertChild(std::numeric_limits<UInt32>::max(), child);
}

void Node::insertChild(UInt32 index, const NodePtr& child)
{
    if (!child) return;
    const NodePtr inserted = child;
    addRefCP(inserted);
    detachFromParent(inserted);
    _mfChildren.insert(_mfChildren.begin() + std::min(index, _mfChildren.size()), inserted);
    setParentOf(inserted, getPtr());
    invalidateVolume();
}

void Node::replaceChild(UInt32 index, const NodePtr& child)
{
    replaceChildBy(getChild(index), child);
}

bool Node::replaceChildBy(const NodePtr& oldChild, const NodePtr& newChild)
{
    const NodePtr former = oldChild;
    const NodePtr next = newChild;
    if (!next || findChild(former) < 0) return false;
    if (former == next) return true;
    addRefCP(next);
    detachFromParent(next);
    _mfChildren[static_cast<UInt32>(findChild(former))] = next;
    setParentOf(former, NullFC);
    subRefCP(former);
    setParentOf(next, getPtr());
    invalidateVolume();
    return true;
}

void Node::subChild(const NodePtr& child)
{
    const Int32 index = findChild(child);
    if (index < 0) {
        SWARNING << "Node::subChild: not a child of this node" << std::endl;
        return;
    }
    removeChild(static_cast<UInt32>(index), child);
}

void Node::subChild(UInt32 index)
{
    if (index >= _mfChildren.size()) {
        SWARNING << "Node::subChild: no child at " << index << std::endl;
        return;
    }
    const NodePtr child = _mfChildren[index];
    removeChild(index, child);
}

void Node::removeChild(UInt32 index, const NodePtr& child)
{
    _mfChildren.erase(_mfChildren.begin() + index);
    setParentOf(child, NullFC);
    subRefCP(child);
    invalidateVolume();
}

void Node::detachFromParent(const NodePtr& child)
{
    const NodePtr parent = child->getParent();
    if (!parent) return;
    beginEditCP(parent, ChildrenFieldMask);
    parent->subChild(child);
    endEditCP(parent, ChildrenFieldMask);
}

void Node::setParentOf(const NodePtr& child, const NodePtr& parent)
{
    beginEditCP(child, ParentFieldMask);
    child->setParent(parent);
    endEditCP(child, ParentFieldMask);
}

Matrix Node::getToWorld()
{
    Matrix result;
    if (const NodePtr parent = getParent()) result = parent->getToWorld();
    if (const NodeCorePtr core = getCore()) core->accumulateMatrix(result);
    return result;
}

const DynamicVolume& Node::getVolume(bool update)
{
    if (update) updateVolume();
    return _sfVolume.getValue();
}

void Node::updateVolume()
{
    DynamicVolume& volume = _sfVolume.getValue();
    if (volume.isValid() || volume.isStatic()) return;
    // Marked first, so that a cycle ends; told after the children.
    volume.setValid();
    for (UInt32 i = 0; i < getNChildren(); ++i)
        getChild(i)->updateVolume();
    beginEditCP(getPtr(), VolumeFieldMask);
    endEditCP(getPtr(), VolumeFieldMask);
}

void Node::invalidateVolume()
{
    DynamicVolume& volume = _sfVolume.getValue();
    if (!volume.isValid() || volume.isStatic()) return;
    beginEditCP(getPtr(), VolumeFieldMask);
    volume.setValid(false);
    endEditCP(getPtr(), VolumeFieldMask);
    if (const NodePtr parent = getParent()) parent->invalidateVolume();
}

void Node::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & (CoreFieldMask | ChildrenFieldMask)) invalidateVolume();
    if (whichField & TravMaskFieldMask) {
        if (const NodePtr parent = getParent()) {
            // The parent is told once more, also when its volume was invalid before: intended, it has always been so.
            beginEditCP(parent, VolumeFieldMask);
            parent->invalidateVolume();
            endEditCP(parent, VolumeFieldMask);
        } else {
            invalidateVolume();
        }
    }
    Inherited::changed(whichField, origin);
}

NodePtr makeNodeFor(const NodeCorePtr& core)
{
    const NodePtr node = Node::create();
    beginEditCP(node, Node::CoreFieldMask);
    node->setCore(core);
    endEditCP(node, Node::CoreFieldMask);
    return node;
}

NodePtr cloneTree(const NodePtr& root)
{
    if (!root) return NullFC;
    const NodePtr copy = Node::create();
    beginEditCP(copy);
    copy->setTravMask(root->getTravMask());
    copy->setCore(root->getCore());
    for (UInt32 i = 0; i < root->getNChildren(); ++i)
        copy->addChild(cloneTree(root->getChild(i)));
    endEditCP(copy);
    return copy;
}

} // namespace osg
