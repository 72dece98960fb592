#include "OSGConstraintObjectList_p.h"

#include <OpenSG/OSGCountedField.h>

#include <algorithm>

namespace osg {

namespace {

/// The object itself, or the one that stands for the same scene object; the end if there is neither.
MFConstraintObjectPtr::iterator place(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object)
{
    const auto itself = list.find(object);
    if (itself != list.end() || object == NullFC) return itself;
    return list.find(findInList(list, object->getObject()));
}

} // namespace

ConstraintObjectPtr findInList(const MFConstraintObjectPtr& list, const AttachmentContainerPtr& object)
{
    if (object == NullFC) return NullFC;
    const auto found = std::find_if(
        list.begin(), list.end(), [&object](const ConstraintObjectPtr& entry) { return entry->getObject() == object; });
    return found == list.end() ? ConstraintObjectPtr(NullFC) : *found;
}

void addToList(MFConstraintObjectPtr& list, const AttachmentContainerPtr& object, Real32 weight)
{
    if (object == NullFC) return;
    if (const ConstraintObjectPtr present = findInList(list, object))
        present->setWeight(weight);
    else
        addToList(list, ConstraintObject::createFor(object, weight));
}

void addToList(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object)
{
    if (object == NullFC) return;
    const auto taken = place(list, object);
    if (taken != list.end()) return assignCounted(*taken, object);
    addRefCP(object);
    list.push_back(object);
}

void removeFromList(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object)
{
    const auto found = place(list, object);
    if (found == list.end()) return;
    const ConstraintObjectPtr removed = *found;
    list.erase(found);
    subRefCP(removed);
}

void holdList(const MFConstraintObjectPtr& list)
{
    for (const ConstraintObjectPtr& object : list)
        addRefCP(object);
}

void releaseList(MFConstraintObjectPtr& list)
{
    MFConstraintObjectPtr released;
    released.swap(list);
    for (const ConstraintObjectPtr& object : released)
        subRefCP(object);
}

} // namespace osg
