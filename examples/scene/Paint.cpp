#include <scene/Paint.h>

namespace osg {

OSG_CONTAINER_IMPL(Paint, SimpleMaterial, OSG_PAINT_FIELDS)

Paint::Paint(const Paint& source) : Inherited(source)
{
    addRefCP(getTexture());
}

Paint::~Paint()
{
    subRefCP(getTexture());
}

} // namespace osg
