#include <OpenSG/OSGAttachment.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(Attachment, FieldContainer, OSG_ATTACHMENT_FIELDS)

Attachment::Attachment(const Attachment& source) : Inherited(source)
{
    _mfParents.clear();
}

void Attachment::initMethod()
{
    FieldDescription* const parents = getClassType().getFieldDescription(ParentsFieldId);
    parents->setInternal();
    // Declared as nodes although any container may be the parent: intended, it has always been so.
    parents->setDeclaredType(MFNodePtr::getClassType());
}

void Attachment::addParent(const FieldContainerPtr& parent)
{
    _mfParents.push_back(parent);
}

void Attachment::subParent(const FieldContainerPtr& parent)
{
    const auto found = _mfParents.find(parent);
    if (found != _mfParents.end()) _mfParents.erase(found);
}

Int32 Attachment::findParent(const FieldContainerPtr& parent)
{
    const auto found = _mfParents.find(parent);
    return found == _mfParents.end() ? -1 : static_cast<Int32>(found - _mfParents.begin());
}

} // namespace osg
