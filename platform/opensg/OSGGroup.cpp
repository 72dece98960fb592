#include <OpenSG/OSGGroup.h>

namespace osg {

OSG_CONTAINER_IMPL(Group, NodeCore, OSG_GROUP_FIELDS)

} // namespace osg
