#pragma once

#include <moOpenSGExt/OSGTransformVariantsAttachment.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform3D.h>

#include <string>

/// Operations on the nodes of the scene.
///
/// A node's transform is its own core when that is an osg::Transform3D (or a derived type, such as a light). \a
/// variantIndex says which transform to use: -1 the node's own, from 0 on the core of the node's transform variant at
/// that position. Where there is no such transform (null node, another core, no such variant, a variant without core),
/// a getter answers with the default (zero; scale one; order "XYZ") and a setter does nothing. Setters edit in a
/// bracket of their own (origin 1). When a listener to an edit throws, all that the function writes is written, and the
/// exception goes on to the caller. Vectors have x, y, z; rotations are in degrees, everything else in the unit of the
/// scene. What the components do is written down at osg::Transform3D.
///
/// \a worldSpace: false takes the value as it stands in the transform. True means the world: the translation is the
/// point of the world that the translation leads to, a pivot the point of the world that it lies on. A variant is seen
/// below the same parents as the node. Parents that flatten space (their matrix has no inverse) make a setter with
/// worldSpace do nothing. Both ways are computed in double precision; what goes through the world is rounded to three
/// floats there and to the component's three floats here. So a place that is read and set again is the same but for
/// rounding, however often.
namespace moNodeUtils {
/// The name, owned by the node and valid until it changes; null for a null node and for one without a name.
const char* getName(const osg::NodePtr& node);

/// True when \a ancestor is met on the way from the node's parent up to the root. A node is no parent of itself; false
/// for null.
bool hasParent(const osg::NodePtr& node, const osg::NodePtr& ancestor);

/// The node that carries the transform of \a node: the node itself when it has one, else null. Parents are not
/// searched.
osg::NodePtr findTransform(const osg::NodePtr& node);

/// Null when there is no such transform.
osg::Transform3DPtr getTransform3D(const osg::NodePtr& node, int variantIndex);

/// Whether the node's own transform moves nothing: its matrix is the identity (to osg::Eps). True without a transform.
bool isTransformNodeIdentity(const osg::NodePtr& node);

osg::Vec3f getTransformNodeTranslation(const osg::NodePtr& node, bool worldSpace, int variantIndex);
void setTransformNodeTranslation(const osg::NodePtr& node, float x, float y, float z, bool worldSpace,
                                 int variantIndex);

/// The three angles.
osg::Vec3f getTransformNodeRotation(const osg::NodePtr& node, int variantIndex);
void setTransformNodeRotation(const osg::NodePtr& node, float x, float y, float z, int variantIndex);

osg::Vec3f getTransformNodeScale(const osg::NodePtr& node, int variantIndex);
void setTransformNodeScale(const osg::NodePtr& node, float x, float y, float z, int variantIndex);

osg::Vec3f getTransformNodeScalePivot(const osg::NodePtr& node, bool worldSpace, int variantIndex);
void setTransformNodeScalePivot(const osg::NodePtr& node, float x, float y, float z, bool worldSpace, int variantIndex);

osg::Vec3f getTransformNodeRotatePivot(const osg::NodePtr& node, bool worldSpace, int variantIndex);
void setTransformNodeRotatePivot(const osg::NodePtr& node, float x, float y, float z, bool worldSpace,
                                 int variantIndex);

osg::Vec3f getTransformNodeScalePivotTranslation(const osg::NodePtr& node, int variantIndex);
void setTransformNodeScalePivotTranslation(const osg::NodePtr& node, float x, float y, float z, int variantIndex);

osg::Vec3f getTransformNodeRotatePivotTranslation(const osg::NodePtr& node, int variantIndex);
void setTransformNodeRotatePivotTranslation(const osg::NodePtr& node, float x, float y, float z, int variantIndex);

osg::Vec3f getTransformNodeRotationOrientation(const osg::NodePtr& node, int variantIndex);
void setTransformNodeRotationOrientation(const osg::NodePtr& node, float x, float y, float z, int variantIndex);

/// \param mode  -1: the direction as it is stored. 0, 1, 2: where that axis of the pivot's orientation points. Any
/// other: zero.
osg::Vec3f getTransformNodeRotationDirection(const osg::NodePtr& node, int variantIndex, int mode);

/// A direction of zero gives the orientation back to its angles, and the axis back to 0.
/// \param mode        the axis that points along the direction, 0, 1 or 2; any other keeps the one that is stored.
/// \param normalised  stores the direction with length one instead of as it is given.
void setTransformNodeRotationDirection(const osg::NodePtr& node, float x, float y, float z, int mode, bool normalised,
                                       int variantIndex);

osg::Vec3f getTransformNodeShear(const osg::NodePtr& node);
void setTransformNodeShear(const osg::NodePtr& node, float x, float y, float z);

/// The text as it was set, also one that is no order.
std::string getTransformNodeEulerRotationOrder(const osg::NodePtr& node, int variantIndex);
void setTransformNodeEulerRotationOrder(const osg::NodePtr& node, std::string order, int variantIndex);

/// Writes all of it in one edit. Shear and supposed state stay as they are.
/// \param rotationDirectionValid  false: no direction is in force; zero is stored in place of a \a rotationDirection
/// that would be, any other as it is.
void setTransformNodeValues(const osg::NodePtr& node, const osg::Vec3f& translation,
                            const osg::Vec3f& rotationOrientation, const osg::Vec3f& rotation,
                            const osg::Vec3f& rotatePivot, const osg::Vec3f& rotatePivotTranslation,
                            const osg::Vec3f& scale, const osg::Vec3f& scalePivot,
                            const osg::Vec3f& scalePivotTranslation, int rotationMode,
                            const std::string& eulerRotationOrder, bool rotationDirectionValid,
                            const osg::Vec3f& rotationDirection, int rotationDirectionMode, int variantIndex);

/// Null for a node without one.
osg::TransformVariantsAttachmentPtr getTransformVariantsAttachment(const osg::NodePtr& node);

/// Puts \a attachment on the node in place of the one that is there; a null attachment or node does nothing.
void setTransformVariantsAttachment(const osg::NodePtr& node, const osg::TransformVariantsAttachmentPtr& attachment);

/// Puts a new, empty attachment on the node and returns it; a node that has one keeps it and that one is returned. Null
/// for null.
osg::TransformVariantsAttachmentPtr createTransformVariantsAttachment(const osg::NodePtr& node);

/// Takes the attachment off the node, which destroys it unless it has another reference.
void removeTransformVariantsAttachment(const osg::NodePtr& node);

/// 0 for a node without attachment.
osg::UInt64 getTransformVariantCount(const osg::NodePtr& node);

/// Null past the end.
osg::TransformVariantPtr getTransformVariant(const osg::NodePtr& node, osg::UInt64 index);

/// The variant ends up at \a index. Does nothing for an index past the end, a null variant and a node without
/// attachment.
void insertTransformVariant(const osg::NodePtr& node, osg::UInt64 index, const osg::TransformVariantPtr& variant);

/// Closes the gap; the attachment stays also when the list becomes empty. Does nothing for an index past the end.
void removeTransformVariant(const osg::NodePtr& node, osg::UInt64 index);

/// Empty when there is no such variant.
std::string getTransformVariantName(const osg::NodePtr& node, int variantIndex);
} // namespace moNodeUtils
