#pragma once

#include <moOpenSGUberLight/OSGLensFlareElement.h>

#include <OpenSG/OSGFieldTable.h>

OSG_BEGIN_NAMESPACE

class LensFlareEffect;
typedef FCPtr<AttachmentContainerPtr, LensFlareEffect> LensFlareEffectPtr;

// clang-format off
//         type                 Name                 description            default
#define OSG_LENSFLAREEFFECT_FIELDS(SINGLE, MULTI)                                                     \
    SINGLE(Bool,                IsActive,            "isActive",            true)                     \
    SINGLE(Color3f,             Color,               "color",               1.f, 1.f, 1.f)   \
    SINGLE(Real32,              Intensity,           "intensity",           1.f)                      \
    SINGLE(Real32,              Size,                "size",                1.f)                      \
    SINGLE(Int32,               LensFlareType,       "lensFlareType",       0)                        \
    SINGLE(Real32,              AngularIntensity,    "angularIntensity",    1.f)                      \
    SINGLE(Bool,                UseLightProperties,  "useLightProperties",  false)                    \
    MULTI (LensFlareElementPtr, Elements,            "elements")
// clang-format on

OSG_CONTAINER_BASE(LensFlareEffect, AttachmentContainer, OSG_LENSFLAREEFFECT_FIELDS)

/// All settings of the lens flare of one light: what is drawn (the elements) and how it depends on the light and the
/// view.
///
/// The effect holds a reference on each of its elements. Elements are drawn additively, so their order shows nowhere;
/// the list is kept in the order in which the elements were created, and an element that returns to the list is in its
/// old place again. The caller brackets edits. A null element, one that is there already, or (subElement) one that is
/// not there changes nothing.
class LensFlareEffect : public LensFlareEffectBase
{
    OSG_CONTAINER_OWNING(LensFlareEffect)

public:
    /// Values of the field lensFlareType.
    enum Type
    {
        RoundFlare = 0,
        AnamorphicFlare = 1
    };

    /// Whether colour and intensity are those of the light. Switching over starts anew with a round flare: another type
    /// is chosen after it.
    void setUseLightProperties(bool use);

    void addElement(const LensFlareElementPtr& element);
    void subElement(const LensFlareElementPtr& element);

    /// Takes all elements out of the list.
    void clearEffects();

protected:
    LensFlareEffect() = default;
    /// A copy lists the same elements, with references of its own.
    LensFlareEffect(const LensFlareEffect& source);
    ~LensFlareEffect() override;
};

OSG_HANDLE_FIELDS(LensFlareEffectPtr)

OSG_END_NAMESPACE
