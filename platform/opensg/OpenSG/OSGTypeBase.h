#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <string>

namespace osg {

/// A name that is also a C string.
class OSG_BASELIB_DLLMAPPING IDString
{
public:
    explicit IDString(const Char8* text) : m_text(text ? text : ""), m_isNull(!text) {}

    /// Null if made of null.
    const Char8* str() const { return m_isNull ? nullptr : m_text.c_str(); }
    bool operator==(const IDString& other) const { return m_text == other.m_text; }
    bool operator!=(const IDString& other) const { return m_text != other.m_text; }

private:
    std::string m_text;
    bool m_isNull;
};

/// A named type with a process-wide number. Values, fields and containers draw their numbers from one counter; a second
/// type object of the same name has the same number, so types stay comparable when two libraries hold one each.
class OSG_BASELIB_DLLMAPPING TypeBase
{
public:
    TypeBase(const Char8* name, const Char8* parentName);
    TypeBase(const TypeBase&) = delete;
    TypeBase& operator=(const TypeBase&) = delete;
    virtual ~TypeBase();

    UInt32 getId() const { return m_id; }
    const IDString& getName() const { return m_name; }
    const Char8* getCName() const { return m_name.str(); }
    const IDString& getParentName() const { return m_parentName; }
    const Char8* getCParentName() const { return m_parentName.str(); }

    bool operator==(const TypeBase& other) const { return m_id == other.m_id; }
    bool operator!=(const TypeBase& other) const { return m_id != other.m_id; }

private:
    IDString m_name;
    IDString m_parentName;
    UInt32 m_id;
};

class OSG_BASELIB_DLLMAPPING DataType : public TypeBase
{
public:
    explicit DataType(const Char8* name, const Char8* parentName = nullptr) : TypeBase(name, parentName) {}
};

} // namespace osg
