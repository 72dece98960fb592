#include <moOpenSGExt/OSGTransformVariant.h>

namespace osg {

OSG_CONTAINER_IMPL(TransformVariant, FieldContainer, OSG_TRANSFORMVARIANT_FIELDS)

TransformVariant::TransformVariant(const TransformVariant& source) : Inherited(source)
{
    _sfTransform.setValue(NullFC);
}

void TransformVariant::setTransform(const Transform3DPtr& transform)
{
    setRefdCP(_sfTransform.getValue(), transform);
}

void TransformVariant::onDestroy()
{
    setTransform(NullFC);
    Inherited::onDestroy();
}

} // namespace osg
