#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGTransform3D.h>
#include <moOpenSGUberLight/OSGLensFlareEffect.h>

OSG_BEGIN_NAMESPACE

class UberLight;
typedef FCPtr<Transform3DPtr, UberLight> UberLightPtr;

// clang-format off
//         type                 Name                       description                  default
#define OSG_UBERLIGHT_FIELDS(SINGLE, MULTI)                                                                   \
    SINGLE(Bool,                On,                        "on",                        true)                    \
    SINGLE(Int32,               LightType,                 "lightType",                 1)                       \
    SINGLE(Color3f,             Diffuse,                   "diffuse",                   1.f, 1.f, 1.f)  \
    SINGLE(Color3f,             Glossy,                    "glossy",                    1.f, 1.f, 1.f)  \
    SINGLE(Real32,              Intensity,                 "intensity",                 1.f)                     \
    SINGLE(Int32,               LightUnit,                 "lightUnit",                 0)                       \
    SINGLE(Int32,               Attenuation,               "attenuation",               0)                       \
    SINGLE(Real32,              AttenuationDistance,       "attenuationDistance",       2.f)                     \
    SINGLE(Real32,              ConeAngle,                 "coneAngle",                 45.f)                    \
    SINGLE(Real32,              PenumbraAngle,             "penumbraAngle",             5.f)                     \
    SINGLE(String,              ProfileName,               "profileName",               "")                      \
    SINGLE(Real32,              ProfileValue,              "profileValue",              0.f)                     \
    SINGLE(Bool,                LightVisualizationVisible, "lightVisualizationVisible", true)                    \
    SINGLE(NodePtr,             VisibilityReference,       "visibilityReference",       NullFC)                  \
    SINGLE(LensFlareEffectPtr,  LensFlareEffect,           "lensFlareEffect",           NullFC)
// clang-format on

OSG_CONTAINER_BASE(UberLight, Transform3D, OSG_UBERLIGHT_FIELDS)

/// The light of the application's renderer: a transform, so that a light's node places it, and what it shines like.
///
/// The intensity is in the light's own unit. With attenuation it is the intensity before the fall-off: the same number
/// is darker at a distance with a steeper mode, hence the rescaling in setAttenuation(). Angles are in degrees. The
/// profile value is the luminous intensity in candela that the profile's file states, 0 when it states none.
///
/// The light holds a reference on its lens flare effect and on its visibility reference. The latter must not be a node
/// of the light itself, or one above: the two would keep each other for ever.
///
/// None of the functions brackets its edit; the comment names the fields for the caller's mask. The enumerations have a
/// fixed type, so that a value outside of them, which a caller may have from a file, is harmless.
class UberLight : public UberLightBase
{
    OSG_CONTAINER_OWNING(UberLight)

public:
    /// How the light falls off with the distance d: not at all, with 1/d, with 1/d².
    enum LightAttenuation : Int32
    {
        NoAttenuation = 0,
        LinearAttenuation = 1,
        QuadraticAttenuation = 2
    };

    enum LightType : Int32
    {
        DirectionalLight,
        PointLight,
        SpotLight,
        AreaLight,
        SphereLight,
        ProfileLight
    };

    /// Lumen and watt are those of a light that shines evenly in all directions (watt at 555 nm), lux is measured at
    /// 1 m.
    enum LightUnit : Int32
    {
        Candela,
        Lumen,
        Lux,
        Watt
    };

    /// The name under which a type is offered, e.g. "Spot"; empty for a value outside the enumeration.
    static const char* lightTypeName(LightType type);

    /// Finds the type of that name, case-sensitive. False, and `type` untouched, for null or a name that is no type's.
    static bool findLightType(const char* name, LightType& type);

    /// The unit in which lights of the type are usually given; candela for a value outside the enumeration.
    static LightUnit defaultLightUnit(LightType type);

    /// The mode; a stored number outside the enumeration reads as NoAttenuation.
    LightAttenuation getAttenuation() const;

    /// Changes the mode and rescales the intensity so that the light is as bright as before at the attenuation
    /// distance; with a distance that is not above 0 the intensity stays. A value outside the enumeration changes
    /// nothing. Fields: attenuation, intensity.
    void setAttenuation(LightAttenuation mode);

    /// The type; a stored number outside the enumeration reads as PointLight.
    LightType getLightType() const;

    /// Changes the type and converts to its default unit. Only area and sphere lights have an extent: every other type
    /// gets scale 1. The current type, or a value outside the enumeration, changes nothing.
    /// Fields: lightType, lightUnit, intensity, scale.
    void setLightType(LightType type);

    /// The unit; a stored number outside the enumeration reads as Candela.
    LightUnit getLightUnit() const;

    /// Changes the unit and converts the intensity: the light shines as before. A value outside the enumeration changes
    /// nothing. Fields: lightUnit, intensity.
    void setLightUnit(LightUnit unit);

    /// Replaces the node and the reference on it; null takes it away. Field: visibilityReference.
    void setVisibilityReference(const NodePtr& node);

    /// Replaces the effect and the reference on it; null takes it away. Field: lensFlareEffect.
    void setLensFlareEffect(const LensFlareEffectPtr& effect);

protected:
    UberLight() = default;
    /// A copy has the same lens flare effect and visibility reference, with references of its own.
    UberLight(const UberLight& source);
    ~UberLight() override;
};

OSG_HANDLE_FIELDS(UberLightPtr)

OSG_END_NAMESPACE
