#pragma once

#include <moOpenSGConstraint/OSGConstraintObject.h>

// What the sources and the up-vector sources of a constraint have in common: a list of constraint objects that holds a
// reference on each of them.

namespace osg {

ConstraintObjectPtr findInList(const MFConstraintObjectPtr& list, const AttachmentContainerPtr& object);

void addToList(MFConstraintObjectPtr& list, const AttachmentContainerPtr& object, Real32 weight);
void addToList(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object);
void removeFromList(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object);

// For the copy constructor and the destructor of the owner of the list.
void holdList(const MFConstraintObjectPtr& list);
void releaseList(MFConstraintObjectPtr& list);

} // namespace osg
