#pragma once

#include <OpenSG/OSGNodeCore.h>

namespace osg {

// clang-format off
//         type           Name           description      default
#define OSG_NODE_FIELDS(SINGLE, MULTI) \
    SINGLE(DynamicVolume, Volume,        "volume",        DynamicVolume()) \
    SINGLE(UInt32,        TravMask,      "travMask",      0xFFFFFFFFu) \
    SINGLE(NodePtr,       Parent,        "parent",        NullFC) \
    MULTI (NodePtr,       Children,      "children") \
    SINGLE(NodeCorePtr,   Core,          "core",          NullFC) \
    SINGLE(UInt32,        Flags,         "flags",         0u) \
    SINGLE(UInt32,        ExternalFlags, "externalFlags", 0u)
// clang-format on

OSG_CONTAINER_BASE(Node, AttachmentContainer, OSG_NODE_FIELDS)

/// A place in the scene: one core, one parent, a list of children. It holds a reference on its core and on each child.
///
/// The functions that move cores and children edit the other containers (the core's parents, the child's parent, the
/// children of a child's former parent), but open no edit of this node: the caller does, with CoreFieldMask or
/// ChildrenFieldMask. Cycles are not detected.
///
/// The fields flags and externalFlags are the application's; OpenSG's own Node ends with the core.
class OSG_BASELIB_DLLMAPPING Node : public NodeBase
{
    OSG_CONTAINER_OWNING(Node)

public:
    NodeCorePtr getCore() const { return _sfCore.getValue(); }
    /// The old core loses a reference and may be destroyed. The same core again loses and gains one, with both edits of
    /// its parents.
    void setCore(const NodeCorePtr& core);

    NodePtr getParent() { return _sfParent.getValue(); }

    UInt32 getNChildren() const { return _mfChildren.size(); }
    /// Null beyond the end.
    NodePtr getChild(UInt32 index) const;
    /// -1 if it is no child.
    Int32 findChild(const NodePtr& child) const;

    // A child that has a parent is removed from it first, also if that is this node: the index then counts in the
    // shortened list. Null is ignored.

    void addChild(const NodePtr& child);
    /// Beyond the end the child becomes the last.
    void insertChild(UInt32 index, const NodePtr& child);
    /// Puts the child in the place of the one that stood at the index before the call; nothing beyond the end.
    void replaceChild(UInt32 index, const NodePtr& child);
    /// False if the old one is no child or the new one is null. OpenSG spoils the list when both are the same, or the new
    /// one stands before the old one.
    bool replaceChildBy(const NodePtr& oldChild, const NodePtr& newChild);
    /// The child loses a reference and may be destroyed: the handle that was passed is null then. A node that is no
    /// child, or an index beyond the end, is only warned about.
    void subChild(const NodePtr& child);
    void subChild(UInt32 index);

    /// True when all traversal bits are on; setActive() turns all on or all off.
    bool getActive() const { return getTravMask() == 0xFFFFFFFFu; }
    void setActive(bool active) { setTravMask(active ? 0xFFFFFFFFu : 0u); }

    UInt8 getOcclusionMask() const { return m_occlusionMask; }
    void setOcclusionMask(UInt8 mask) { m_occlusionMask = mask; }

    /// The product of the cores' matrices from the root down to this node.
    Matrix getToWorld();
    void getToWorld(Matrix& result) { result = getToWorld(); }

    const DynamicVolume& getVolume(bool update = false);
    /// Makes the volumes of this node and all below it valid.
    void updateVolume();
    /// Marks the volume, and those of all ancestors up to the first that is marked already or static; each is an edit
    /// of VolumeFieldMask.
    void invalidateVolume();

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Node() = default;
    /// A copy has no parent and no children. It shares the core, see onCreate().
    Node(const Node& source);
    ~Node() override;

    NodePtr getPtr() const { return NodePtr(this); }
    using Inherited::getChildren;
    using Inherited::setParent;

    /// A copy gets the core of its source and invalidates its volume. What is made empty keeps a valid one: the prototype.
    void onCreate(const Node* source = nullptr);

    static void initMethod();

private:
    void removeChild(UInt32 index, const NodePtr& child);
    void detachFromParent(const NodePtr& child);
    void setParentOf(const NodePtr& child, const NodePtr& parent);

    UInt8 m_occlusionMask = 0;
};

/// A new node with that core.
OSG_BASELIB_DLLMAPPING NodePtr makeNodeFor(const NodeCorePtr& core);
/// A copy of the tree that shares the cores and has the same traversal masks, without attachments; null for null.
OSG_BASELIB_DLLMAPPING NodePtr cloneTree(const NodePtr& root);

} // namespace osg
