#include <moOpenSGExt/OSGTransformVariant.h>

#include <OpenSG/OSGCountedField.h>

namespace osg {

OSG_CONTAINER_IMPL(TransformVariant, FieldContainer, OSG_TRANSFORMVARIANT_FIELDS)

TransformVariant::TransformVariant(const TransformVariant& source) : Inherited(source)
{
    _sfTransform.setValue(NullFC);
}

TransformVariant::~TransformVariant()
{
    setTransform(NullFC);
}

void TransformVariant::setTransform(const Transform3DPtr& transform)
{
    assignCounted(_sfTransform.getValue(), transform);
}

} // namespace osg
