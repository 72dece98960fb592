#pragma once

#include <moOpenSGUberLight/OSGLensFlareElement.h>
#include <moOpenSGUberLight/OSGLensFlareGhost.h>

#include <OpenSG/OSGFieldTable.h>

OSG_BEGIN_NAMESPACE

class LensFlareGhostLine;
typedef FCPtr<LensFlareElementPtr, LensFlareGhostLine> LensFlareGhostLinePtr;

// clang-format off
//         type                Name     description  default
#define OSG_LENSFLAREGHOSTLINE_FIELDS(SINGLE, MULTI)     \
    SINGLE(Real32,             Angle,   "angle",     0.f) \
    MULTI (LensFlareGhostPtr,  Ghosts,  "ghosts")
// clang-format on

OSG_CONTAINER_BASE(LensFlareGhostLine, LensFlareElement, OSG_LENSFLAREGHOSTLINE_FIELDS)

/// The lens flare element that draws a row of ghosts through the middle of the image, turned by its angle in degrees.
///
/// The line holds a reference on each of its ghosts. Ghosts are drawn additively, so their order shows nowhere; the
/// list is kept in the order in which the ghosts were created, and a ghost that returns to the list is in its old place
/// again. The caller brackets edits with GhostsFieldMask. A null ghost, one that is there already, or (subGhost) one
/// that is not there changes nothing.
class LensFlareGhostLine : public LensFlareGhostLineBase
{
    OSG_CONTAINER_OWNING(LensFlareGhostLine)

public:
    void addGhost(const LensFlareGhostPtr& ghost);
    void subGhost(const LensFlareGhostPtr& ghost);
    void clearGhosts();

protected:
    LensFlareGhostLine() = default;
    /// A copy lists the same ghosts, with references of its own.
    LensFlareGhostLine(const LensFlareGhostLine& source);
    ~LensFlareGhostLine() override;
};

OSG_HANDLE_FIELDS(LensFlareGhostLinePtr)

OSG_END_NAMESPACE
