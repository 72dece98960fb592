#pragma once

#include <OpenSG/OSGFieldTable.h>

namespace osg {

// clang-format off
//         type               Name      description  default
#define OSG_ATTACHMENT_FIELDS(SINGLE, MULTI) \
    MULTI (FieldContainerPtr, Parents,  "parents") \
    SINGLE(Bool,              Internal, "internal",  false)
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(Attachment, FieldContainer, OSG_ATTACHMENT_FIELDS)

/// Something that hangs on attachment containers, each of which holds a reference. Not an attachment container itself.
class OSG_BASELIB_DLLMAPPING Attachment : public AttachmentBase
{
    OSG_CONTAINER_OWNING(Attachment)

public:
    void addParent(const FieldContainerPtr& parent);
    /// The first entry of that parent; nothing if there is none.
    void subParent(const FieldContainerPtr& parent);
    /// -1 if it is no parent.
    Int32 findParent(const FieldContainerPtr& parent);

    // The field itself, where other classes give the value.
    SFBool& getInternal() { return _sfInternal; }
    const SFBool& getInternal() const { return _sfInternal; }

protected:
    Attachment() = default;
    /// A copy has no parents.
    Attachment(const Attachment& source);

    static void initMethod();
};

} // namespace osg
