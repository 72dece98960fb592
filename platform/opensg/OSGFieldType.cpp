#include <OpenSG/OSGFieldType.h>

#include "OSGTypeRegistry_p.h"

#include <string>

namespace osg {

TypeRegistry& typeRegistry()
{
    // Never destroyed: static types of other libraries leave it when the process ends.
    static TypeRegistry& s_registry = *new TypeRegistry;
    return s_registry;
}

TypeBase::TypeBase(const Char8* name, const Char8* parentName) : m_name(name), m_parentName(parentName)
{
    auto& ids = typeRegistry().ids;
    m_id = ids.emplace(m_name.str(), static_cast<UInt32>(ids.size() + 1)).first->second;
}

TypeBase::~TypeBase() = default;

FieldType::FieldType(const Char8* name, const DataType& contentType, Cardinality cardinality, CreateFieldMethod create)
    : DataType(name), m_contentType(contentType), m_cardinality(cardinality)
{
    typeRegistry().fieldTypes.emplace(getId(), FieldTypeEntry{this, create});
}

FieldType::~FieldType()
{
    auto& types = typeRegistry().fieldTypes;
    const auto found = types.find(getId());
    if (found != types.end() && found->second.type == this) types.erase(found);
}

} // namespace osg
