#include <OpenSG/OSGAttachmentContainer.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(AttachmentContainer, FieldContainer, OSG_ATTACHMENTCONTAINER_FIELDS)

namespace {

UInt32 attachmentKey(UInt32 groupId, UInt16 binding)
{
    return groupId << 16 | binding;
}

} // namespace

AttachmentContainer::AttachmentContainer(const AttachmentContainer& source) : Inherited(source)
{
    _sfAttachments.getValue().clear();
    for (const auto& [key, attachment] : source.getAttachments())
        addAttachment(attachment);
}

AttachmentContainer::~AttachmentContainer()
{
    AttachmentMap attachments;
    attachments.swap(_sfAttachments.getValue());
    for (const auto& [key, attachment] : attachments)
        release(attachment, attachment);
}

void AttachmentContainer::addAttachment(const AttachmentPtr& attachment, UInt16 binding)
{
    if (!attachment) return;
    const AttachmentPtr added = attachment;
    addRefCP(added);
    // In its place before a listener to the attachment is told, who may throw.
    AttachmentPtr& place = _sfAttachments.getValue()[attachmentKey(added->getGroupId(), binding)];
    const AttachmentPtr former = place;
    place = added;
    beginEditCP(added, Attachment::ParentsFieldMask);
    added->addParent(getPtr());
    endEditCP(added, Attachment::ParentsFieldMask);
    release(former, former);
}

void AttachmentContainer::subAttachment(const AttachmentPtr& attachment, UInt16 binding)
{
    if (!attachment) return;
    AttachmentMap& attachments = _sfAttachments.getValue();
    const auto found = attachments.find(attachmentKey(attachment->getGroupId(), binding));
    if (found == attachments.end()) return;
    const AttachmentPtr former = found->second;
    attachments.erase(found);
    release(former, attachment);
}

AttachmentPtr AttachmentContainer::findAttachment(UInt32 groupId, UInt16 binding) const
{
    const AttachmentMap& attachments = _sfAttachments.getValue();
    const auto found = attachments.find(attachmentKey(groupId, binding));
    return found == attachments.end() ? AttachmentPtr() : found->second;
}

AttachmentPtr AttachmentContainer::findAttachment(const FieldContainerType& type, UInt16 binding) const
{
    return findAttachment(type.getGroupId(), binding);
}

void AttachmentContainer::release(const AttachmentPtr& attachment, const AttachmentPtr& told)
{
    if (!attachment) return;
    // Given back at the end, also if a listener to the edit throws.
    struct Reference
    {
        explicit Reference(const AttachmentPtr& given) : held(given) {}
        ~Reference() { subRefCP(held); }
        Reference(const Reference&) = delete;
        Reference& operator=(const Reference&) = delete;
        AttachmentPtr held;
    };
    const Reference reference(attachment);
    beginEditCP(told, Attachment::ParentsFieldMask);
    attachment->subParent(getPtr());
    endEditCP(told, Attachment::ParentsFieldMask);
}

} // namespace osg
