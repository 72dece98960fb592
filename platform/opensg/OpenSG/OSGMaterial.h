#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

namespace osg {

class Material;
typedef FCPtr<AttachmentContainerPtr, Material> MaterialPtr;

// clang-format off
//         type   Name              description         default
#define OSG_MATERIAL_FIELDS(SINGLE, MULTI) \
    SINGLE(Int32, SortKey,          "sortKey",          0) \
    SINGLE(Int32, TransparencyMode, "transparencyMode", 0)
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(Material, AttachmentContainer, OSG_MATERIAL_FIELDS)

/// What surfaces look like; abstract.
class OSG_BASELIB_DLLMAPPING Material : public MaterialBase
{
    OSG_CONTAINER(Material)

public:
    /// Values of the transparency mode.
    enum
    {
        TransparencyAutoDetection = 0,
        TransparencyForceTransparent = 1,
        TransparencyForceOpaque = 2
    };

    /// What the mode says; auto detection leaves it to the concrete material.
    virtual bool isTransparent() const { return getTransparencyMode() == TransparencyForceTransparent; }
};

OSG_HANDLE_FIELDS(MaterialPtr)

} // namespace osg
