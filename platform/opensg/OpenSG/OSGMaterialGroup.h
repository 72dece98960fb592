#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMaterial.h>

namespace osg {

class MaterialGroup;
typedef FCPtr<GroupPtr, MaterialGroup> MaterialGroupPtr;

// clang-format off
//         type         Name      description  default
#define OSG_MATERIALGROUP_FIELDS(SINGLE, MULTI) \
    SINGLE(MaterialPtr, Material, "material",  NullFC)
// clang-format on

OSG_CONTAINER_BASE(MaterialGroup, Group, OSG_MATERIALGROUP_FIELDS)

/// The core of a node whose children have one material. It holds a reference on the material.
class OSG_BASELIB_DLLMAPPING MaterialGroup : public MaterialGroupBase
{
    OSG_CONTAINER_OWNING(MaterialGroup)

public:
    /// The same material again loses and gains a reference.
    void setMaterial(const MaterialPtr& material);

protected:
    MaterialGroup() = default;
    /// A copy shares the material.
    MaterialGroup(const MaterialGroup& source);
    ~MaterialGroup() override;
};

OSG_HANDLE_FIELDS(MaterialGroupPtr)

} // namespace osg
