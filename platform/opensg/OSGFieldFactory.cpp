#include <OpenSG/OSGFieldContainerFields.h>
#include <OpenSG/OSGFieldFactory.h>

#include "OSGTypeRegistry_p.h"

namespace osg {

namespace {

template<class SF, class MF>
void registerFieldTypes()
{
    SF::getClassType();
    MF::getClassType();
}

bool registerKnownFieldTypes()
{
#define OSG_REGISTER(ValueType, fieldNameSpace, Suffix, valueTypeName) registerFieldTypes<SF##Suffix, MF##Suffix>();
    OSG_VALUE_FIELD_TYPES(OSG_REGISTER)
#undef OSG_REGISTER
    registerFieldTypes<SFFieldContainerPtr, MFFieldContainerPtr>();
    registerFieldTypes<SFAttachmentPtr, MFAttachmentPtr>();
    registerFieldTypes<SFAttachmentContainerPtr, MFAttachmentContainerPtr>();
    registerFieldTypes<SFNodePtr, MFNodePtr>();
    registerFieldTypes<SFNodeCorePtr, MFNodeCorePtr>();
    registerFieldTypes<SFAttachmentMap, MFAttachmentMap>();
    return true;
}

const FieldTypeEntry* findEntry(UInt32 typeId)
{
    const auto& types = typeRegistry().fieldTypes;
    const auto found = types.find(typeId);
    return found == types.end() ? nullptr : &found->second;
}

UInt32 findId(const Char8* typeName)
{
    const auto& ids = typeRegistry().ids;
    const auto found = ids.find(std::string_view(typeName ? typeName : ""));
    return found == ids.end() ? 0 : found->second;
}

} // namespace

FieldFactory& FieldFactory::the()
{
    static FieldFactory s_factory;
    static const bool s_registered = registerKnownFieldTypes();
    static_cast<void>(s_registered);
    return s_factory;
}

Field* FieldFactory::createField(UInt32 typeId)
{
    const FieldTypeEntry* const entry = findEntry(typeId);
    return entry ? entry->create() : nullptr;
}

Field* FieldFactory::createField(const Char8* typeName)
{
    return createField(findId(typeName));
}

const FieldType* FieldFactory::getFieldType(UInt32 typeId)
{
    const FieldTypeEntry* const entry = findEntry(typeId);
    return entry ? entry->type : nullptr;
}

const FieldType* FieldFactory::getFieldType(const Char8* typeName)
{
    return getFieldType(findId(typeName));
}

UInt32 FieldFactory::getNFieldTypes()
{
    the();
    return static_cast<UInt32>(typeRegistry().fieldTypes.size());
}

} // namespace osg
