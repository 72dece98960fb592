#pragma once

#include <OpenSG/OSGTransform3D.h>

/// One component of a transform as data: where it is kept and what a transform that is not there answers.
struct moTransformComponent
{
    osg::SFVec3f* (osg::Transform3DBase::*field)();
    osg::BitVector mask;
    float defaultValue = 0.f;

    osg::Vec3f get(const osg::Transform3DPtr& transform) const
    {
        if (transform == osg::NullFC) return osg::Vec3f(defaultValue, defaultValue, defaultValue);
        return ((*transform).*field)()->getValue();
    }

    void set(const osg::Transform3DPtr& transform, const osg::Vec3f& value) const
    {
        ((*transform).*field)()->setValue(value);
    }
};

// clang-format off
namespace moTransformComponents
{
using Base = osg::Transform3DBase;

inline constexpr moTransformComponent translation           {&Base::getSFTranslation,              Base::TranslationFieldMask};
inline constexpr moTransformComponent rotation              {&Base::getSFEulerRotation,            Base::EulerRotationFieldMask};
inline constexpr moTransformComponent rotationOrientation   {&Base::getSFEulerRotationOrientation, Base::EulerRotationOrientationFieldMask};
inline constexpr moTransformComponent rotationDirection     {&Base::getSFRotationDirection,        Base::RotationDirectionFieldMask};
inline constexpr moTransformComponent rotatePivot           {&Base::getSFRotatePivot,              Base::RotatePivotFieldMask};
inline constexpr moTransformComponent rotatePivotTranslation{&Base::getSFRotatePivotTranslation,   Base::RotatePivotTranslationFieldMask};
inline constexpr moTransformComponent scale                 {&Base::getSFScale,                    Base::ScaleFieldMask, 1.f};
inline constexpr moTransformComponent scalePivot            {&Base::getSFScalePivot,               Base::ScalePivotFieldMask};
inline constexpr moTransformComponent scalePivotTranslation {&Base::getSFScalePivotTranslation,    Base::ScalePivotTranslationFieldMask};
inline constexpr moTransformComponent shear                 {&Base::getSFShear,                    Base::ShearFieldMask};
} // namespace moTransformComponents
// clang-format on
