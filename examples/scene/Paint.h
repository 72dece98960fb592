#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleMaterial.h>

namespace osg {

class Paint;
typedef FCPtr<SimpleMaterialPtr, Paint> PaintPtr;

// clang-format off
//         type      Name       description   default
#define OSG_PAINT_FIELDS(SINGLE, MULTI) \
    SINGLE(String,   Label,     "label",      "") \
    MULTI (String,   Keywords,  "keywords") \
    SINGLE(UInt8,    Coats,     "coats",      1) \
    SINGLE(Real64,   Price,     "price",      0) \
    SINGLE(ImagePtr, Texture,   "texture",    NullFC)
// clang-format on

OSG_CONTAINER_BASE(Paint, SimpleMaterial, OSG_PAINT_FIELDS)

/// A material of the example's own: undo needs no class of commands to edit its fields.
///
/// Code that sets the texture takes one reference on it; the destructor gives it back.
class Paint : public PaintBase
{
    OSG_CONTAINER_OWNING(Paint)

protected:
    Paint() = default;
    Paint(const Paint& source);
    ~Paint() override;
};

} // namespace osg
