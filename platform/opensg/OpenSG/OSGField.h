#pragma once

#include <OpenSG/OSGFieldType.h>

#include <string>

namespace osg {

/// One field of a container, or one that stands alone. Writing to a field never counts a reference, keeps no parent
/// link and notifies nobody.
class OSG_BASELIB_DLLMAPPING Field
{
public:
    virtual ~Field() = default;

    virtual const FieldType& getType() const = 0;
    const DataType& getContentType() const { return getType().getContentType(); }
    FieldType::Cardinality getCardinality() const { return getType().getCardinality(); }

    virtual bool isEmpty() const = 0;
    /// 1 for a single field, the number of elements for a multi field.
    virtual UInt32 getSize() const = 0;

    /// Takes over the value of a field of the same type; a field of another type changes nothing.
    virtual void setAbstrValue(const Field& other) = 0;

    /// A single field takes the value, a multi field appends it. Text that is no value of the content type, and any
    /// text for a handle, changes nothing.
    virtual void pushValueByStr(const Char8* text) = 0;
    /// Components are separated by a blank, elements by ", ". A handle gives an address. Gives the text back.
    virtual std::string& getValueByStr(std::string& text) const = 0;

protected:
    Field() = default;
    Field(const Field&) = default;
    Field& operator=(const Field&) = default;
};

} // namespace osg
