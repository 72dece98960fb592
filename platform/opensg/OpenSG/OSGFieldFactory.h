#pragma once

#include <OpenSG/OSGField.h>

namespace osg {

/// Makes fields by type. Knows all types of OSGFieldTypes.h, and every other one from its first use on.
class OSG_BASELIB_DLLMAPPING FieldFactory
{
public:
    static FieldFactory& the();

    /// A new empty field, which the caller deletes; null for an unknown type.
    Field* createField(UInt32 typeId);
    Field* createField(const Char8* typeName);

    /// Null for an unknown type.
    const FieldType* getFieldType(UInt32 typeId);
    const FieldType* getFieldType(const Char8* typeName);
    static UInt32 getNFieldTypes();

private:
    FieldFactory() = default;
};

} // namespace osg
