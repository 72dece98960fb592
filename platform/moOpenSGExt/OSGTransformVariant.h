#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGTransform3D.h>

namespace osg {

class TransformVariant;
typedef FCPtr<FieldContainerPtr, TransformVariant> TransformVariantPtr;

// clang-format off
//         type            Name        description    default
#define OSG_TRANSFORMVARIANT_FIELDS(SINGLE, MULTI) \
    SINGLE(String,         Name,       "name",        "") \
    SINGLE(UInt64,         ApplyFlags, "applyFlags",  0xBFF) \
    SINGLE(Transform3DPtr, Transform,  "transform",   NullFC)
// clang-format on

OSG_HANDLE_FIELDS(TransformVariantPtr)
OSG_CONTAINER_BASE(TransformVariant, FieldContainer, OSG_TRANSFORMVARIANT_FIELDS)

/// A named alternative for the transform of a node: a transform core of its own, which holds the values, and flags that
/// say which of them take part when the variant is applied. A component whose flag is off stays as the live transform
/// has it.
class TransformVariant : public TransformVariantBase
{
    OSG_CONTAINER_OWNING(TransformVariant)

public:
    /// 0x400 is free: shear takes no part in variants.
    enum ApplyFlags : UInt64
    {
        ApplyTranslation = 0x001,
        ApplyRotationPivotOrientation = 0x002,
        ApplyRotation = 0x004,
        ApplyRotationPivot = 0x008,
        ApplyRotationPivotTranslation = 0x010,
        ApplyScale = 0x020,
        ApplyScalePivot = 0x040,
        ApplyScalePivotTranslation = 0x080,
        ApplyRotationMode = 0x100,
        ApplyEulerRotationOrder = 0x200,
        ApplyRotationDirection = 0x800,
        ApplyAll = 0xBFF ///< the default
    };

    /// Holds a reference on the core as long as it is set. Null: the variant has no values and cannot be applied.
    void setTransform(const Transform3DPtr& transform);

protected:
    TransformVariant() = default;
    /// A copy has no core.
    TransformVariant(const TransformVariant& source);
    ~TransformVariant() override;
};

} // namespace osg
