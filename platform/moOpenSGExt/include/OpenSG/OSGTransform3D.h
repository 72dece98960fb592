#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGTransform.h>

namespace osg {

class Transform3D;
typedef FCPtr<TransformPtr, Transform3D> Transform3DPtr;

// clang-format off
//         type        Name                      description                 default
#define OSG_TRANSFORM3D_FIELDS(SINGLE, MULTI) \
    SINGLE(Vec3f,      Translation,              "translation",              0.f, 0.f, 0.f) \
    SINGLE(Quaternion, Rotation,                 "rotation",                 osg::Quaternion()) \
    SINGLE(Vec3f,      EulerRotation,            "eulerRotation",            0.f, 0.f, 0.f) \
    SINGLE(String,     EulerRotationOrder,       "eulerRotationOrder",       "XYZ") \
    SINGLE(Vec3f,      EulerRotationOrientation, "eulerRotationOrientation", 0.f, 0.f, 0.f) \
    SINGLE(Vec3f,      RotationDirection,        "rotationDirection",        0.f, 0.f, 0.f) \
    SINGLE(Int32,      RotationDirectionMode,    "rotationDirectionMode",    0) \
    SINGLE(Vec3f,      RotatePivot,              "rotatePivot",              0.f, 0.f, 0.f) \
    SINGLE(Vec3f,      RotatePivotTranslation,   "rotatePivotTranslation",   0.f, 0.f, 0.f) \
    SINGLE(Vec3f,      Scale,                    "scale",                    1.f, 1.f, 1.f) \
    SINGLE(Vec3f,      ScalePivot,               "scalePivot",               0.f, 0.f, 0.f) \
    SINGLE(Vec3f,      ScalePivotTranslation,    "scalePivotTranslation",    0.f, 0.f, 0.f) \
    SINGLE(Vec3f,      Shear,                    "shear",                    0.f, 0.f, 0.f) \
    SINGLE(Int32,      RotationMode,             "rotationMode",             0) \
    SINGLE(Int32,      SupposedState,            "supposedState",            -1)
// clang-format on

OSG_HANDLE_FIELDS(Transform3DPtr)
OSG_CONTAINER_BASE(Transform3D, Transform, OSG_TRANSFORM3D_FIELDS)

/// A transform made of components. changed() composes them into the inherited matrix:
///
///     M = T · Tr · Pr · (O · R · O⁻¹) · Pr⁻¹ · Ts · Ps · H · S · Ps⁻¹
///
/// Vectors are columns: the right end acts first.
///
/// - S, H: scale and shear; shear (a, b, c) adds a·y + b·z to x and c·z to y.
/// - Ps, Ts: scale pivot and scale pivot translation.
/// - R: the rotation. Pr, Tr: rotate pivot and rotate pivot translation. T: translation.
/// - O: orientation of the axes that R turns about: what Pr is to the centre of the rotation, O is to its axes. A
///   transform without rotation is not moved by it. It is given by three angles (degrees, about x, then y, then z) or
///   by a direction: the smallest turn that takes the axis rotationDirectionMode (0 x, 1 y, 2 z; any other counts as x)
///   there. A direction is in force when it is finite and not zero, and then replaces the angles.
///
/// The rotation is kept twice, and changed() keeps both in step: as a quaternion, which the matrix is made from, and as
/// three angles in degrees (x, y, z: the angle about that axis) with the order in which the axes are turned about,
/// first to last: "XYZ", "XZY", "YXZ", "YZX", "ZXY" or "ZYX". Any other text is stored as it is and read as "XYZ".
/// Writing one of the two derives the other; angles that make the quaternion that was written stay. Where that leaves it
/// open (both written, or the order alone) the rotation mode decides: QuaternionMode keeps the quaternion, any other
/// value the angles.
///
/// The components are the truth: a matrix written into the field is replaced by theirs. Components that are not finite
/// make a matrix that is not finite; it is whole again as soon as they are.
///
/// Supposed state: the index of the variant that the transform is supposed to show, -1 for none; carried, not
/// interpreted.
class Transform3D : public Transform3DBase
{
    OSG_CONTAINER(Transform3D)

public:
    enum RotationModes
    {
        EulerMode = 0,
        QuaternionMode = 1
    };

    /// Stores the quaternion with unit length; the angles follow at the end of the edit, the rotation mode stays as it
    /// is. A quaternion that is not finite, or of length zero, changes nothing. Edit mask: RotationFieldMask.
    void setRotationAsQuaternion(const Quaternion& rotation);

    /// Gives the stored direction and its axis; true when the direction is in force.
    bool getRotationDirectionValues(Vec3f& direction, Int32& mode) const;

    /// Where the axis (0 x, 1 y, 2 z) of the orientation O points; zero for any other axis.
    Vec3f getOrientationAxis(Int32 axis) const;

    /// The pivots as points of the parent's space, where they are found after the whole transform has acted: the point
    /// that turning, or scaling, leaves where it is. The setters move the pivot there. Edit masks:
    /// RotatePivotFieldMask, ScalePivotFieldMask.
    /// In double precision: only what a setter stores is rounded.
    Vec3d getRotatePivotInParent() const;
    void setRotatePivotInParent(const Vec3d& point);
    Vec3d getScalePivotInParent() const;
    void setScalePivotInParent(const Vec3d& point);

    void changed(BitVector whichField, UInt32 origin) override;

private:
    using Inherited::setMatrix;

    void synchroniseRotation(BitVector whichField);
};

} // namespace osg
