#include <moOpenSGConstraint/OSGTransformConstraint.h>

namespace osg {

OSG_CONTAINER_IMPL(TransformConstraint, AbstractConstraint, OSG_TRANSFORMCONSTRAINT_FIELDS)

} // namespace osg
