#include "OSGConstraintObjectList_p.h"

#include <algorithm>

namespace osg {

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
    if (object == NullFC || list.find(object) != list.end()) return;
    addRefCP(object);
    list.push_back(object);
}

void removeFromList(MFConstraintObjectPtr& list, const ConstraintObjectPtr& object)
{
    const auto found = list.find(object);
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

void releaseList(const MFConstraintObjectPtr& list)
{
    for (const ConstraintObjectPtr& object : list)
        subRefCP(object);
}

} // namespace osg
