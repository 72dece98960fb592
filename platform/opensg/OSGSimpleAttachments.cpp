#include <OpenSG/OSGSimpleAttachments.h>

namespace osg {

template class SimpleAttachment<NameAttachmentDesc>;

namespace {

NamePtr findName(const AttachmentContainerPtr& container)
{
    return container ? NamePtr::dcast(container->findAttachment(Name::getClassType())) : NamePtr();
}

} // namespace

const Char8* getName(AttachmentContainerPtr container)
{
    const NamePtr name = findName(container);
    return name ? name->getFieldPtr()->getValue().c_str() : nullptr;
}

void setName(AttachmentContainerPtr container, const std::string& name)
{
    if (!container) return;
    NamePtr attachment = findName(container);
    if (!attachment) {
        attachment = Name::create();
        if (!attachment) return;
        beginEditCP(container, AttachmentContainer::AttachmentsFieldMask);
        container->addAttachment(attachment);
        endEditCP(container, AttachmentContainer::AttachmentsFieldMask);
    }
    beginEditCP(attachment);
    attachment->getFieldPtr()->setValue(name);
    endEditCP(attachment);
}

void setName(AttachmentContainerPtr container, const Char8* name)
{
    if (name)
        setName(container, std::string(name));
    else if (const NamePtr attachment = findName(container))
        container->subAttachment(attachment);
}

} // namespace osg
