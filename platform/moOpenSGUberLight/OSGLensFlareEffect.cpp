#include <moOpenSGUberLight/OSGLensFlareEffect.h>

#include "referenceList_p.h"

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_IMPL(LensFlareEffect, AttachmentContainer, OSG_LENSFLAREEFFECT_FIELDS)

LensFlareEffect::LensFlareEffect(const LensFlareEffect& source) : Inherited(source)
{
    referenceList::addReferences(_mfElements);
}

LensFlareEffect::~LensFlareEffect()
{
    referenceList::clear(_mfElements);
}

void LensFlareEffect::setUseLightProperties(bool use)
{
    if (use == getUseLightProperties()) return;
    Inherited::setUseLightProperties(use);
    setLensFlareType(RoundFlare);
}

void LensFlareEffect::addElement(const LensFlareElementPtr& element)
{
    referenceList::insertById(_mfElements, element);
}

void LensFlareEffect::subElement(const LensFlareElementPtr& element)
{
    referenceList::remove(_mfElements, element);
}

void LensFlareEffect::clearEffects()
{
    referenceList::clear(_mfElements);
}

OSG_END_NAMESPACE
