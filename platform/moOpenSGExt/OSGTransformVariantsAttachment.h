#pragma once

#include <moOpenSGExt/OSGTransformVariant.h>

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

class TransformVariantsAttachment;
typedef FCPtr<AttachmentPtr, TransformVariantsAttachment> TransformVariantsAttachmentPtr;

// clang-format off
//        type                 Name      description
#define OSG_TRANSFORMVARIANTSATTACHMENT_FIELDS(SINGLE, MULTI) \
    MULTI(TransformVariantPtr, Variants, "variants")
// clang-format on

OSG_CONTAINER_BASE(TransformVariantsAttachment, Attachment, OSG_TRANSFORMVARIANTSATTACHMENT_FIELDS)

/// The ordered list of the transform variants of a node. Every entry holds a reference on its variant. Edit mask of the
/// list operations, which the caller brackets: VariantsFieldMask.
class TransformVariantsAttachment : public TransformVariantsAttachmentBase
{
    OSG_CONTAINER_OWNING(TransformVariantsAttachment)

public:
    UInt64 getVariantCount() const;

    /// Null past the end.
    TransformVariantPtr getVariant(UInt64 index) const;

    /// The variant ends up at \a index, what stood there and behind moves up. Nothing for null or an index past the
    /// end.
    void insertVariant(UInt64 index, const TransformVariantPtr& variant);

    /// Closes the gap and gives the reference back. Nothing for an index past the end.
    void removeVariant(UInt64 index);

protected:
    TransformVariantsAttachment() = default;
    /// A copy is an empty list.
    TransformVariantsAttachment(const TransformVariantsAttachment& source);
    ~TransformVariantsAttachment() override;
};

} // namespace osg
