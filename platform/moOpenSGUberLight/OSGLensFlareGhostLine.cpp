#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>

#include "referenceList_p.h"

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_IMPL(LensFlareGhostLine, LensFlareElement, OSG_LENSFLAREGHOSTLINE_FIELDS)

LensFlareGhostLine::LensFlareGhostLine(const LensFlareGhostLine& source) : Inherited(source)
{
    referenceList::addReferences(_mfGhosts);
}

LensFlareGhostLine::~LensFlareGhostLine()
{
    referenceList::clear(_mfGhosts);
}

void LensFlareGhostLine::addGhost(const LensFlareGhostPtr& ghost)
{
    referenceList::insertById(_mfGhosts, ghost);
}

void LensFlareGhostLine::subGhost(const LensFlareGhostPtr& ghost)
{
    referenceList::remove(_mfGhosts, ghost);
}

void LensFlareGhostLine::clearGhosts()
{
    referenceList::clear(_mfGhosts);
}

OSG_END_NAMESPACE
