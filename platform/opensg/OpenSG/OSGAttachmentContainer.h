#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

// clang-format off
//         type           Name         description    default
#define OSG_ATTACHMENTCONTAINER_FIELDS(SINGLE, MULTI) \
    SINGLE(AttachmentMap, Attachments, "attachments", AttachmentMap())
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(AttachmentContainer, FieldContainer, OSG_ATTACHMENTCONTAINER_FIELDS)

/// A container to which attachments can be added: one for each pair of group and binding. It holds a reference on each.
///
/// addAttachment and subAttachment edit the attachment's parents, but open no edit of the container: the caller does,
/// with AttachmentsFieldMask.
class OSG_BASELIB_DLLMAPPING AttachmentContainer : public AttachmentContainerBase
{
    OSG_CONTAINER_OWNING(AttachmentContainer)

public:
    /// Takes the place of an attachment of the same group and binding. Null is ignored.
    void addAttachment(const AttachmentPtr& attachment, UInt16 binding = 0);
    /// Removes what stands under the group and binding, even if it is another attachment: intended, the argument only
    /// names the place, and is what is told. Nothing if the place is empty; null is ignored.
    void subAttachment(const AttachmentPtr& attachment, UInt16 binding = 0);
    /// Null if there is none.
    AttachmentPtr findAttachment(UInt32 groupId, UInt16 binding = 0) const;
    AttachmentPtr findAttachment(const FieldContainerType& type, UInt16 binding = 0) const;

protected:
    AttachmentContainer() = default;
    /// A copy shares the attachments, all with binding 0.
    AttachmentContainer(const AttachmentContainer& source);
    ~AttachmentContainer() override;

    AttachmentContainerPtr getPtr() const { return AttachmentContainerPtr(this); }
    using Inherited::getAttachments;
    using Inherited::setAttachments;

private:
    /// Gives an attachment back; told gets the notification of the edit.
    void release(const AttachmentPtr& attachment, const AttachmentPtr& told);
};

} // namespace osg
