#include <moOpenSGConstraint/OSGAimConstraint.h>

#include "OSGConstraintObjectList_p.h"

namespace osg {

OSG_CONTAINER_IMPL(AimConstraint, TransformConstraint, OSG_AIMCONSTRAINT_FIELDS)

AimConstraint::AimConstraint(const AimConstraint& source) : Inherited(source)
{
    holdList(_mfUpVectorSources);
}

AimConstraint::~AimConstraint()
{
    releaseList(_mfUpVectorSources);
}

ConstraintObjectPtr AimConstraint::findUpVectorConstraintObject(const AttachmentContainerPtr& object) const
{
    return findInList(_mfUpVectorSources, object);
}

void AimConstraint::addUpVectorSource(const AttachmentContainerPtr& object, Real32 weight)
{
    addToList(_mfUpVectorSources, object, weight);
}

void AimConstraint::removeUpVectorSource(const AttachmentContainerPtr& object)
{
    removeFromList(_mfUpVectorSources, findInList(_mfUpVectorSources, object));
}

void AimConstraint::addUpVectorObject(ConstraintObjectPtr object)
{
    addToList(_mfUpVectorSources, object);
}

void AimConstraint::removeUpVectorObject(ConstraintObjectPtr object)
{
    removeFromList(_mfUpVectorSources, object);
}

} // namespace osg
