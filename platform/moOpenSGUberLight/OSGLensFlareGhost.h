#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGFieldTable.h>

OSG_BEGIN_NAMESPACE

class LensFlareGhost;
typedef FCPtr<AttachmentContainerPtr, LensFlareGhost> LensFlareGhostPtr;

// clang-format off
//         type      Name        description   default
#define OSG_LENSFLAREGHOST_FIELDS(SINGLE, MULTI)                          \
    SINGLE(Color3f,  Color,      "color",      1.f, 1.f, 1.f)    \
    SINGLE(Real32,   Intensity,  "intensity",  1.f)                       \
    SINGLE(Real32,   Size,       "size",       1.f)                       \
    SINGLE(Real32,   Position,   "position",   0.f)
// clang-format on

OSG_CONTAINER_BASE(LensFlareGhost, AttachmentContainer, OSG_LENSFLAREGHOST_FIELDS)

/// One reflection of a light inside the camera's lens. Its position runs along the line of its ghost line: 0 is the
/// light, 1 the middle of the image, 2 the mirror image of the light.
class LensFlareGhost : public LensFlareGhostBase
{
    OSG_CONTAINER(LensFlareGhost)
};

OSG_HANDLE_FIELDS(LensFlareGhostPtr)

OSG_END_NAMESPACE
