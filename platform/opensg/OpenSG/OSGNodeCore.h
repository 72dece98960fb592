#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

namespace osg {

// clang-format off
//         type     Name     description
#define OSG_NODECORE_FIELDS(SINGLE, MULTI) \
    MULTI (NodePtr, Parents, "parents")
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(NodeCore, AttachmentContainer, OSG_NODECORE_FIELDS)

/// What a node is. Several nodes may share one core; each holds a reference and is one entry of the parents.
class OSG_BASELIB_DLLMAPPING NodeCore : public NodeCoreBase
{
    OSG_CONTAINER_OWNING(NodeCore)

public:
    /// Invalidates the volumes of the nodes with this core.
    virtual void invalidateVolume();
    /// matrix = matrix * what this core does to things below it: nothing, unless it is a transform.
    virtual void accumulateMatrix(Matrix& matrix);

protected:
    friend class Node;

    NodeCore() = default;
    /// A copy has no parents.
    NodeCore(const NodeCore& source);

    NodeCorePtr getPtr() const { return NodeCorePtr(this); }
    void addParent(const NodePtr& parent);
    void subParent(const NodePtr& parent);

    static void initMethod();
};

} // namespace osg
