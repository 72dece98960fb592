#include <OpenSG/OSGMaterial.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(Material, AttachmentContainer, OSG_MATERIAL_FIELDS)

} // namespace osg
