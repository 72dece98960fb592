#include <moOpenSGExt/OSGTransformVariantsAttachment.h>

#include <cstddef>

namespace osg {

OSG_CONTAINER_IMPL(TransformVariantsAttachment, Attachment, OSG_TRANSFORMVARIANTSATTACHMENT_FIELDS)

TransformVariantsAttachment::TransformVariantsAttachment(const TransformVariantsAttachment& source) : Inherited(source)
{
    _mfVariants.clear();
}

TransformVariantsAttachment::~TransformVariantsAttachment()
{
    while (getVariantCount() > 0)
        removeVariant(getVariantCount() - 1);
}

UInt64 TransformVariantsAttachment::getVariantCount() const
{
    return _mfVariants.size();
}

TransformVariantPtr TransformVariantsAttachment::getVariant(UInt64 index) const
{
    return index < getVariantCount() ? _mfVariants[UInt32(index)] : TransformVariantPtr();
}

void TransformVariantsAttachment::insertVariant(UInt64 index, const TransformVariantPtr& variant)
{
    if (variant == NullFC || index > getVariantCount()) return;
    addRefCP(variant);
    _mfVariants.insert(_mfVariants.begin() + std::ptrdiff_t(index), variant);
}

void TransformVariantsAttachment::removeVariant(UInt64 index)
{
    if (index >= getVariantCount()) return;
    const TransformVariantPtr variant = _mfVariants[UInt32(index)];
    _mfVariants.erase(_mfVariants.begin() + std::ptrdiff_t(index));
    subRefCP(variant);
}

} // namespace osg
