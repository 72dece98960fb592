#pragma once

#include <OpenSG/OSGFieldType.h>

#include <map>
#include <string>

namespace osg {

struct FieldTypeEntry
{
    const FieldType* type;
    FieldType::CreateFieldMethod create;
};

/// The numbers of all types by name, and all field types by number.
struct TypeRegistry
{
    std::map<std::string, UInt32, std::less<>> ids;
    std::map<UInt32, FieldTypeEntry> fieldTypes;
};

TypeRegistry& typeRegistry();

} // namespace osg
