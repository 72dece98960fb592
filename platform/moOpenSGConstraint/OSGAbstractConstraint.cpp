#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include "OSGConstraintObjectList_p.h"

#include <OpenSG/OSGCountedField.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(AbstractConstraint, NodeCore, OSG_ABSTRACTCONSTRAINT_FIELDS)

AbstractConstraint::AbstractConstraint(const AbstractConstraint& source) : Inherited(source)
{
    holdList(_mfSources);
    addRefCP(getTarget());
}

AbstractConstraint::~AbstractConstraint()
{
    releaseList(_mfSources);
    assignCounted(_sfTarget.getValue(), NullFC);
}

ConstraintObjectPtr AbstractConstraint::findSourceConstraintObject(const AttachmentContainerPtr& object) const
{
    return findInList(_mfSources, object);
}

bool AbstractConstraint::hasTarget(const AttachmentContainerPtr& object) const
{
    return object != NullFC && getTarget() != NullFC && getTarget()->getObject() == object;
}

void AbstractConstraint::addSource(const AttachmentContainerPtr& object, Real32 weight)
{
    addToList(_mfSources, object, weight);
}

void AbstractConstraint::removeSource(const AttachmentContainerPtr& object)
{
    removeFromList(_mfSources, findInList(_mfSources, object));
}

void AbstractConstraint::addSourceObject(ConstraintObjectPtr object)
{
    addToList(_mfSources, object);
}

void AbstractConstraint::removeSourceObject(ConstraintObjectPtr object)
{
    removeFromList(_mfSources, object);
}

void AbstractConstraint::createTarget(const AttachmentContainerPtr& object)
{
    if (object != NullFC) setTarget(ConstraintObject::createFor(object, 1.0f));
}

void AbstractConstraint::setTarget(const ConstraintObjectPtr& target)
{
    assignCounted(_sfTarget.getValue(), target);
}

} // namespace osg
