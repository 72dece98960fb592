#pragma once

#include <OpenSG/OSGGroup.h>

namespace osg {

class Transform;
typedef FCPtr<GroupPtr, Transform> TransformPtr;

// clang-format off
//         type    Name    description  default
#define OSG_TRANSFORM_FIELDS(SINGLE, MULTI) \
    SINGLE(Matrix, Matrix, "matrix",    osg::Matrix())
// clang-format on

OSG_CONTAINER_BASE(Transform, Group, OSG_TRANSFORM_FIELDS)

/// The core of a node that moves what is below it by a matrix.
class OSG_BASELIB_DLLMAPPING Transform : public TransformBase
{
    OSG_CONTAINER(Transform)

public:
    void accumulateMatrix(osg::Matrix& matrix) override;
    /// The matrix bit invalidates volumes.
    void changed(BitVector whichField, UInt32 origin) override;
};

OSG_HANDLE_FIELDS(TransformPtr)

} // namespace osg
