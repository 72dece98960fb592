#pragma once

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include <OpenSG/OSGFieldTable.h>

namespace osg {

class TransformConstraint;
typedef FCPtr<AbstractConstraintPtr, TransformConstraint> TransformConstraintPtr;

// clang-format off
//         type   Name                  description             default
#define OSG_TRANSFORMCONSTRAINT_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool,  ConstrainTranslation, "constrainTranslation", true) \
    SINGLE(Bool,  ConstrainRotation,    "constrainRotation",    true)
// clang-format on

OSG_CONTAINER_BASE(TransformConstraint, AbstractConstraint, OSG_TRANSFORMCONSTRAINT_FIELDS)

/// A constraint that governs the transform of its target, or the parts of it that are switched on.
class TransformConstraint : public TransformConstraintBase
{
    OSG_CONTAINER(TransformConstraint)
};

} // namespace osg
