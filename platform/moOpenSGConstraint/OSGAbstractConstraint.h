#pragma once

#include <moOpenSGConstraint/OSGConstraintObject.h>

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGNodeCore.h>

namespace osg {

class AbstractConstraint;
typedef FCPtr<NodeCorePtr, AbstractConstraint> AbstractConstraintPtr;

// clang-format off
//         type                 Name      description  default
#define OSG_ABSTRACTCONSTRAINT_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool,                Enabled,  "enabled",   true) \
    MULTI (ConstraintObjectPtr, Sources,  "sources") \
    SINGLE(ConstraintObjectPtr, Target,   "target",    NullFC)
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(AbstractConstraint, NodeCore, OSG_ABSTRACTCONSTRAINT_FIELDS)

/// What all constraints have: weighted sources that govern one target.
///
/// The constraint holds a reference on each constraint object that it lists and gives it back when the object is taken
/// out or the constraint goes. Null handles are ignored everywhere. None of the operations brackets the edit: the
/// caller does.
class AbstractConstraint : public AbstractConstraintBase
{
    OSG_CONTAINER_OWNING(AbstractConstraint)

public:
    /// The first source that stands for the scene object; null when it is no source.
    ConstraintObjectPtr findSourceConstraintObject(const AttachmentContainerPtr& object) const;
    bool hasTarget(const AttachmentContainerPtr& object) const;

    /// Makes the scene object a source. One that is a source already only gets the weight.
    void addSource(const AttachmentContainerPtr& object, Real32 weight);
    /// Takes out the first source that stands for the scene object.
    void removeSource(const AttachmentContainerPtr& object);

    /// Appends the constraint object itself, with its weight. One that is listed already stays where it is; one that
    /// was made for the same scene object meanwhile gives it its place.
    void addSourceObject(ConstraintObjectPtr object);
    /// Takes out the constraint object, or the one that was made for the same scene object meanwhile.
    void removeSourceObject(ConstraintObjectPtr object);

    /// Makes the scene object the target, through a new constraint object.
    void createTarget(const AttachmentContainerPtr& object);
    /// Replaces the target; null leaves the constraint without one.
    void setTarget(const ConstraintObjectPtr& target);

protected:
    AbstractConstraint() = default;
    /// A copy shares the constraint objects.
    AbstractConstraint(const AbstractConstraint& source);
    ~AbstractConstraint() override;
};

} // namespace osg
