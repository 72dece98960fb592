#pragma once

#include <OpenSG/OSGNodeCore.h>

namespace osg {

class Group;
typedef FCPtr<NodeCorePtr, Group> GroupPtr;

#define OSG_GROUP_FIELDS(SINGLE, MULTI)

OSG_CONTAINER_BASE(Group, NodeCore, OSG_GROUP_FIELDS)

/// The core of a node that only has children.
class OSG_BASELIB_DLLMAPPING Group : public GroupBase
{
    OSG_CONTAINER(Group)
};

OSG_HANDLE_FIELDS(GroupPtr)

} // namespace osg
