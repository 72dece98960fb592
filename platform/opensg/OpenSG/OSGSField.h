#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldDataTraits.h>

namespace osg {

/// A field with one value. The second argument keeps apart value types that are the same C++ type: SFBool is
/// SField<bool, 2>.
template<class FieldTypeT, Int32 fieldNameSpace = 0>
class OSG_BASELIB_DLLMAPPING SField : public Field
{
public:
    typedef FieldTypeT StoredType;
    typedef FieldTypeT& reference;
    typedef const FieldTypeT& const_reference;
    typedef const FieldTypeT& ArgumentType;
    typedef SField Self;
    typedef FieldDataTraits<FieldTypeT, fieldNameSpace> Traits;

    SField() : m_value() {}
    SField(const SField&) = default;
    explicit SField(ArgumentType value) : m_value(value) {}
    SField& operator=(const SField&) = default;

    static const FieldType& getClassType()
    {
        static const FieldType type(Traits::getSName(), Traits::getType(), FieldType::SINGLE_FIELD,
                                    []() -> Field* { return new SField; });
        return type;
    }

    const FieldType& getType() const override { return getClassType(); }
    bool isEmpty() const override { return false; }
    UInt32 getSize() const override { return 1; }

    /// A reference into the field.
    reference getValue() { return m_value; }
    const_reference getValue() const { return m_value; }
    void setValue(ArgumentType value) { m_value = value; }
    void setValue(const Self& other) { m_value = other.m_value; }

    void setAbstrValue(const Field& other) override
    {
        if (other.getType().getId() == getType().getId()) m_value = static_cast<const Self&>(other).m_value;
    }
    void pushValueByStr(const Char8* text) override
    {
        if (text) FieldText<FieldTypeT>::read(text, m_value);
    }
    std::string& getValueByStr(std::string& text) const override
    {
        text.clear();
        FieldText<FieldTypeT>::write(m_value, text);
        return text;
    }

private:
    FieldTypeT m_value;
};

} // namespace osg
