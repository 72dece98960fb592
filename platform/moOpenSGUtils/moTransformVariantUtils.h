#pragma once

#include <moOpenSGExt/OSGTransformVariant.h>

#include <string>

/// Operations on the transform variants of a live transform core, and on single variants.
///
/// The variants of a core are those of the first of its nodes that carries a list; nodes that share a core share its
/// live transform.
namespace moTransformVariantUtils {
/// Null for a null core, one whose nodes carry no list, and an index that is negative or past the end.
osg::TransformVariantPtr getTransformVariant(const osg::Transform3DPtr& live, int variantIndex);

/// The index of the variant that the transform is supposed to show; -1 for none and for null.
int getSupposedState(const osg::Transform3DPtr& live);
/// Carries the number, whatever it is; null does nothing.
void setSupposedState(const osg::Transform3DPtr& live, int variantIndex);

/// Empty for null.
std::string getName(const osg::TransformVariantPtr& variant);
/// Null does nothing.
void setName(const osg::TransformVariantPtr& variant, const std::string& name);

/// osg::TransformVariant::ApplyFlags and any other bits; 0 for null.
osg::UInt64 getApplyFlags(const osg::TransformVariantPtr& variant);
/// Null does nothing.
void setApplyFlags(const osg::TransformVariantPtr& variant, osg::UInt64 flags);

// The values of a variant. With asApplied the value that the live transform would have after applying it: the variant's
// own where the apply flag of that component is on, the live one where it is off. Without it always the variant's own.
// The default (zero; scale one; mode 0; order "XYZ") when there is no such variant or it has no core of its own.
osg::Vec3f getTranslation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getRotationPivotOrientation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getRotation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getRotationPivot(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getRotationPivotTranslation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getScale(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getScalePivot(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
osg::Vec3f getScalePivotTranslation(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
int getRotationMode(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);
std::string getEulerRotationOrder(const osg::Transform3DPtr& live, int variantIndex, bool asApplied);

/// A new variant of that name whose own core has all values of \a source as they are now. It carries no reference
/// count: insert it into a list or delete it with osg::subRefCP. A null source makes a variant without core.
osg::TransformVariantPtr recordTransformVariant(const osg::Transform3DPtr& source, const std::string& name);
} // namespace moTransformVariantUtils
