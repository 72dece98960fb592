#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

class ConstraintObject;
typedef FCPtr<AttachmentContainerPtr, ConstraintObject> ConstraintObjectPtr;

// clang-format off
//         type     Name       description   default
#define OSG_CONSTRAINTOBJECT_FIELDS(SINGLE, MULTI) \
    SINGLE(UInt32,  ObjectId,  "objectId",   0) \
    SINGLE(Real32,  Weight,    "weight",     1.0f)
// clang-format on

OSG_CONTAINER_BASE(ConstraintObject, AttachmentContainer, OSG_CONSTRAINTOBJECT_FIELDS)
OSG_HANDLE_FIELDS(ConstraintObjectPtr)

/// The part that one scene object plays in a constraint, with the weight that it has there.
///
/// The scene object is kept by its id and not held: a constraint must not keep alive what the user deletes from the
/// scene.
class ConstraintObject : public ConstraintObjectBase
{
    OSG_CONTAINER(ConstraintObject)

public:
    /// A new constraint object, not referenced by anyone yet. Its first values go into the change list, but no listener
    /// is told of them: one that throws would keep the object from the constraint that it was made for.
    static ConstraintObjectPtr createFor(const AttachmentContainerPtr& object, Real32 weight);

    /// The scene object; null when there is none or it was destroyed.
    AttachmentContainerPtr getObject() const;
    void setObject(const AttachmentContainerPtr& object);
};

} // namespace osg
