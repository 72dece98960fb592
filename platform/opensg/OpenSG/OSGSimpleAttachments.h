#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

#include <string>

namespace osg {

/// An attachment with one field, whose type and names the description class gives: FieldTypeT, getTypeName(),
/// getFieldName(), getGroupName(). The field has the id SimpleFieldId in every one of them.
template<class AttachmentDescT>
class OSG_BASELIB_DLLMAPPING SimpleAttachment : public Attachment
{
    typedef Attachment Inherited;
    friend class FieldContainer;

public:
    typedef typename AttachmentDescT::FieldTypeT StoredFieldType;
    typedef FCPtr<AttachmentPtr, SimpleAttachment> PtrType;
    typedef PtrType Ptr;

    enum : UInt32
    {
        SimpleFieldId = Inherited::NextFieldId,
        NextFieldId
    };
    static FieldContainerType& getClassType() { return _type; }
    static UInt32 getClassTypeId() { return _type.getId(); }
    static Ptr create() { return Ptr::dcast(_type.createFieldContainer()); }
    static Ptr createEmpty()
    {
        Ptr result;
        Inherited::newPtr(result);
        return result;
    }

    FieldContainerType& getType() override { return _type; }
    const FieldContainerType& getType() const override { return _type; }
    UInt32 getContainerSize() const override { return static_cast<UInt32>(sizeof(*this)); }
    FieldContainerPtr shallowCopy() const override
    {
        Ptr result;
        Inherited::newPtr(result, this);
        return result;
    }

    StoredFieldType* getFieldPtr() { return &_field; }
    const StoredFieldType* getFieldPtr() const { return &_field; }
    using FieldContainer::getField;
    StoredFieldType& getField() { return _field; }
    const StoredFieldType& getField() const { return _field; }

protected:
    static constexpr BitVector SimpleFieldMask = BitVector(1) << SimpleFieldId;

    SimpleAttachment() = default;
    SimpleAttachment(const SimpleAttachment&) = default;
    ~SimpleAttachment() override = default;

    StoredFieldType _field;

private:
    static std::vector<FieldDescription> describeFields()
    {
        return {FieldDescription(
            StoredFieldType::getClassType(), AttachmentDescT::getFieldName(), SimpleFieldId, SimpleFieldMask, false,
            [](FieldContainer& container) -> Field* { return &static_cast<SimpleAttachment&>(container)._field; })};
    }

    static FieldContainerType _type;
};

template<class AttachmentDescT>
FieldContainerType SimpleAttachment<AttachmentDescT>::_type(
    AttachmentDescT::getTypeName(), "Attachment", AttachmentDescT::getGroupName(),
    []() -> FieldContainerPtr { return createEmpty(); }, nullptr, &describeFields);

struct OSG_BASELIB_DLLMAPPING NameAttachmentDesc
{
    typedef SFString FieldTypeT;

    static const Char8* getTypeName() { return "Name"; }
    static const Char8* getFieldName() { return "name"; }
    static const Char8* getGroupName() { return "name"; }
};

extern template class SimpleAttachment<NameAttachmentDesc>;

typedef SimpleAttachment<NameAttachmentDesc> Name;
typedef Name::PtrType NamePtr;

/// The container's name: a pointer into the field, null for a container without one and for null.
OSG_BASELIB_DLLMAPPING const Char8* getName(AttachmentContainerPtr container);
/// Adds the name attachment at the first call (an edit of the container with AttachmentsFieldMask), and edits it.
OSG_BASELIB_DLLMAPPING void setName(AttachmentContainerPtr container, const std::string& name);
/// Null removes the attachment, without an edit of the container.
OSG_BASELIB_DLLMAPPING void setName(AttachmentContainerPtr container, const Char8* name);

} // namespace osg
