#pragma once

#include <OpenSG/OSGField.h>

namespace osg {

class FieldContainer;

/// What is known of a field of a container class without a container: its name, id, mask and declared type.
///
/// The declared type of a few fields is not the type of the field object (Node's travMask, the parents of an
/// attachment), as it has always been: who needs the type asks the live field.
class OSG_BASELIB_DLLMAPPING FieldDescription
{
public:
    /// Gives the field object of one container.
    typedef Field* (*FieldAccessMethod)(FieldContainer& container);

    FieldDescription(const TypeBase& fieldType, const Char8* name, UInt32 fieldId, BitVector fieldMask, bool internal,
                     FieldAccessMethod access)
        : m_fieldType(&fieldType),
          m_name(name),
          m_fieldId(fieldId),
          m_fieldMask(fieldMask),
          m_internal(internal),
          m_access(access)
    {
    }

    UInt32 getFieldId() const { return m_fieldId; }
    BitVector getFieldMask() const { return m_fieldMask; }
    const Char8* getCName() const { return m_name.str(); }
    const IDString& getName() const { return m_name; }
    const TypeBase& getFieldType() const { return *m_fieldType; }
    UInt32 getTypeId() const { return m_fieldType->getId(); }
    bool isInternal() const { return m_internal; }
    bool isValid() const { return m_access != nullptr && m_fieldId > 0; }

protected:
    friend class FieldContainer;
    friend class Attachment;
    friend class Image;
    friend class Node;
    friend class NodeCore;

    Field* getField(FieldContainer& container) const { return m_access(container); }
    void setInternal() { m_internal = true; }
    void setDeclaredType(const TypeBase& fieldType) { m_fieldType = &fieldType; }

private:
    const TypeBase* m_fieldType;
    IDString m_name;
    UInt32 m_fieldId;
    BitVector m_fieldMask;
    bool m_internal;
    FieldAccessMethod m_access;
};

} // namespace osg
