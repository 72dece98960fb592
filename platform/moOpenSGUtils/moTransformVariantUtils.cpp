#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformComponent_p.h>

namespace component = moTransformComponents;

namespace {
using Variant = osg::TransformVariant;

/// The core that holds the value of one component; null when there is no such variant or it has no core.
osg::Transform3DPtr source(const osg::Transform3DPtr& live, int variantIndex, bool asApplied, Variant::ApplyFlags flag)
{
    const osg::TransformVariantPtr variant = moTransformVariantUtils::getTransformVariant(live, variantIndex);
    if (variant == osg::NullFC || variant->getTransform() == osg::NullFC) return osg::NullFC;
    return asApplied && !(variant->getApplyFlags() & flag) ? live : variant->getTransform();
}
} // namespace

namespace moTransformVariantUtils {
osg::TransformVariantPtr getTransformVariant(const osg::Transform3DPtr& live, int variantIndex)
{
    if (live == osg::NullFC) return osg::NullFC;
    for (const osg::NodePtr& node : live->getParents())
        if (const auto variants = moNodeUtils::getTransformVariantsAttachment(node))
            return variants->getVariant(osg::UInt64(variantIndex));
    return osg::NullFC;
}

int getSupposedState(const osg::Transform3DPtr& live)
{
    return live != osg::NullFC ? live->getSupposedState() : -1;
}

void setSupposedState(const osg::Transform3DPtr& live, int variantIndex)
{
    if (live == osg::NullFC) return;
    osg::beginEditCP(live, osg::Transform3DBase::SupposedStateFieldMask);
    live->setSupposedState(variantIndex);
    osg::endEditCP(live, osg::Transform3DBase::SupposedStateFieldMask);
}

std::string getName(const osg::TransformVariantPtr& variant)
{
    return variant != osg::NullFC ? variant->getName() : std::string();
}

void setName(const osg::TransformVariantPtr& variant, const std::string& name)
{
    if (variant == osg::NullFC) return;
    osg::beginEditCP(variant, osg::TransformVariantBase::NameFieldMask);
    variant->setName(name);
    osg::endEditCP(variant, osg::TransformVariantBase::NameFieldMask);
}

osg::UInt64 getApplyFlags(const osg::TransformVariantPtr& variant)
{
    return variant != osg::NullFC ? variant->getApplyFlags() : 0;
}

void setApplyFlags(const osg::TransformVariantPtr& variant, osg::UInt64 flags)
{
    if (variant == osg::NullFC) return;
    osg::beginEditCP(variant, osg::TransformVariantBase::ApplyFlagsFieldMask);
    variant->setApplyFlags(flags);
    osg::endEditCP(variant, osg::TransformVariantBase::ApplyFlagsFieldMask);
}

// clang-format off
osg::Vec3f getTranslation             (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::translation           .get(source(live, variantIndex, asApplied, Variant::ApplyTranslation)); }
osg::Vec3f getRotationPivotOrientation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::rotationOrientation   .get(source(live, variantIndex, asApplied, Variant::ApplyRotationPivotOrientation)); }
osg::Vec3f getRotation                (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::rotation              .get(source(live, variantIndex, asApplied, Variant::ApplyRotation)); }
osg::Vec3f getRotationPivot           (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::rotatePivot           .get(source(live, variantIndex, asApplied, Variant::ApplyRotationPivot)); }
osg::Vec3f getRotationPivotTranslation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::rotatePivotTranslation.get(source(live, variantIndex, asApplied, Variant::ApplyRotationPivotTranslation)); }
osg::Vec3f getScale                   (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::scale                 .get(source(live, variantIndex, asApplied, Variant::ApplyScale)); }
osg::Vec3f getScalePivot              (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::scalePivot            .get(source(live, variantIndex, asApplied, Variant::ApplyScalePivot)); }
osg::Vec3f getScalePivotTranslation   (const osg::Transform3DPtr& live, int variantIndex, bool asApplied) { return component::scalePivotTranslation .get(source(live, variantIndex, asApplied, Variant::ApplyScalePivotTranslation)); }
// clang-format on

int getRotationMode(const osg::Transform3DPtr& live, int variantIndex, bool asApplied)
{
    const osg::Transform3DPtr transform = source(live, variantIndex, asApplied, Variant::ApplyRotationMode);
    return transform != osg::NullFC ? transform->getRotationMode() : osg::Transform3D::EulerMode;
}

std::string getEulerRotationOrder(const osg::Transform3DPtr& live, int variantIndex, bool asApplied)
{
    const osg::Transform3DPtr transform = source(live, variantIndex, asApplied, Variant::ApplyEulerRotationOrder);
    return transform != osg::NullFC ? transform->getEulerRotationOrder() : "XYZ";
}

osg::TransformVariantPtr recordTransformVariant(const osg::Transform3DPtr& source, const std::string& name)
{
    const osg::TransformVariantPtr variant = Variant::create();
    setName(variant, name);
    if (source != osg::NullFC) {
        const osg::Transform3DPtr own = osg::Transform3D::create();
        osg::beginEditCP(own);
        for (osg::UInt32 id = osg::Transform3DBase::TranslationFieldId; id < osg::Transform3DBase::NextFieldId; ++id)
            own->getField(id)->setAbstrValue(*source->getField(id));
        osg::endEditCP(own);
        osg::beginEditCP(variant, osg::TransformVariantBase::TransformFieldMask);
        variant->setTransform(own);
        osg::endEditCP(variant, osg::TransformVariantBase::TransformFieldMask);
    }
    return variant;
}
} // namespace moTransformVariantUtils
