#pragma once

#include <OpenSG/OSGTypeBase.h>

namespace osg {

class Field;

/// The type of a field object: "SFReal32" holds one "Real32", "MFReal32" a list of them.
class OSG_BASELIB_DLLMAPPING FieldType : public DataType
{
public:
    enum Cardinality
    {
        SINGLE_FIELD = 0,
        MULTI_FIELD = 1
    };
    typedef Field* (*CreateFieldMethod)();

    FieldType(const Char8* name, const DataType& contentType, Cardinality cardinality, CreateFieldMethod create);
    ~FieldType() override;

    const DataType& getContentType() const { return m_contentType; }
    Cardinality getCardinality() const { return m_cardinality; }

private:
    const DataType& m_contentType;
    Cardinality m_cardinality;
};

} // namespace osg
