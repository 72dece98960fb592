#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGFieldTable.h>

OSG_BEGIN_NAMESPACE

class LensFlareElement;
typedef FCPtr<AttachmentContainerPtr, LensFlareElement> LensFlareElementPtr;

// clang-format off
//         type      Name        description   default
#define OSG_LENSFLAREELEMENT_FIELDS(SINGLE, MULTI)                        \
    SINGLE(Bool,     IsActive,   "isActive",   true)                      \
    SINGLE(Color3f,  Color,      "color",      1.f, 1.f, 1.f)    \
    SINGLE(Real32,   Intensity,  "intensity",  1.f)                       \
    SINGLE(Real32,   Size,       "size",       1.f)
// clang-format on

OSG_CONTAINER_BASE(LensFlareElement, AttachmentContainer, OSG_LENSFLAREELEMENT_FIELDS)

/// One part of a lens flare. An element of this very type is a glow around the light; derived types draw other shapes.
class LensFlareElement : public LensFlareElementBase
{
    OSG_CONTAINER(LensFlareElement)
};

OSG_HANDLE_FIELDS(LensFlareElementPtr)

OSG_END_NAMESPACE
