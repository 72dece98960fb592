#include <OpenSG/OSGTransform.h>

namespace osg {

OSG_CONTAINER_IMPL(Transform, Group, OSG_TRANSFORM_FIELDS)

void Transform::accumulateMatrix(osg::Matrix& matrix)
{
    matrix.mult(getMatrix());
}

void Transform::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & MatrixFieldMask) invalidateVolume();
    Inherited::changed(whichField, origin);
}

} // namespace osg
