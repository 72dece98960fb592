#pragma once

#include <moOpenSGConstraint/OSGTransformConstraint.h>

#include <OpenSG/OSGFieldTable.h>

namespace osg {

class AimConstraint;
typedef FCPtr<TransformConstraintPtr, AimConstraint> AimConstraintPtr;

// clang-format off
//         type                 Name             description        default
#define OSG_AIMCONSTRAINT_FIELDS(SINGLE, MULTI) \
    SINGLE(Vec3f,               AimVector,       "aimVector",       Vec3f(1, 0, 0)) \
    SINGLE(Vec3f,               UpVector,        "upVector",        Vec3f(0, 1, 0)) \
    MULTI (ConstraintObjectPtr, UpVectorSources, "upVectorSources")
// clang-format on

OSG_CONTAINER_BASE(AimConstraint, TransformConstraint, OSG_AIMCONSTRAINT_FIELDS)

/// A constraint that turns its target's aim vector towards the sources and its up vector towards the up-vector sources.
///
/// The up-vector sources follow the rules of the sources, see AbstractConstraint.
class AimConstraint : public AimConstraintBase
{
    OSG_CONTAINER_OWNING(AimConstraint)

public:
    ConstraintObjectPtr findUpVectorConstraintObject(const AttachmentContainerPtr& object) const;

    void addUpVectorSource(const AttachmentContainerPtr& object, Real32 weight);
    void removeUpVectorSource(const AttachmentContainerPtr& object);

    void addUpVectorObject(ConstraintObjectPtr object);
    void removeUpVectorObject(ConstraintObjectPtr object);

protected:
    AimConstraint() = default;
    /// A copy shares the constraint objects.
    AimConstraint(const AimConstraint& source);
    ~AimConstraint() override;
};

} // namespace osg
