#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldDataTraits.h>

#include <algorithm>
#include <vector>

namespace osg {

template<class T>
class OSG_BASELIB_DLLMAPPING MFieldVector : public std::vector<T>
{
public:
    using std::vector<T>::vector;
};

/// A field with a list of values.
template<class FieldTypeT, Int32 fieldNameSpace = 0>
class OSG_BASELIB_DLLMAPPING MField : public Field
{
public:
    typedef MFieldVector<FieldTypeT> StorageType;
    typedef FieldTypeT StoredType;
    typedef typename StorageType::iterator iterator;
    typedef typename StorageType::const_iterator const_iterator;
    typedef typename StorageType::reverse_iterator reverse_iterator;
    typedef typename StorageType::const_reverse_iterator const_reverse_iterator;
    typedef typename StorageType::reference reference;
    typedef typename StorageType::const_reference const_reference;
    typedef const FieldTypeT& ArgumentType;
    typedef MField Self;
    typedef FieldDataTraits<FieldTypeT, fieldNameSpace> Traits;

    MField() = default;
    MField(const MField&) = default;
    explicit MField(UInt32 size) : m_values(size) {}
    MField& operator=(const MField&) = default;

    static const FieldType& getClassType()
    {
        static const FieldType type(Traits::getMName(), Traits::getType(), FieldType::MULTI_FIELD,
                                    []() -> Field* { return new MField; });
        return type;
    }

    const FieldType& getType() const override { return getClassType(); }
    bool isEmpty() const override { return m_values.empty(); }
    UInt32 getSize() const override { return size(); }

    UInt32 size() const { return static_cast<UInt32>(m_values.size()); }
    UInt32 capacity() const { return static_cast<UInt32>(m_values.capacity()); }
    bool empty() const { return m_values.empty(); }
    reference operator[](UInt32 index) { return m_values[index]; }
    const_reference operator[](UInt32 index) const { return m_values[index]; }
    iterator begin() { return m_values.begin(); }
    iterator end() { return m_values.end(); }
    const_iterator begin() const { return m_values.begin(); }
    const_iterator end() const { return m_values.end(); }
    reverse_iterator rbegin() { return m_values.rbegin(); }
    reverse_iterator rend() { return m_values.rend(); }
    const_reverse_iterator rbegin() const { return m_values.rbegin(); }
    const_reverse_iterator rend() const { return m_values.rend(); }
    reference front() { return m_values.front(); }
    reference back() { return m_values.back(); }
    const_reference front() const { return m_values.front(); }
    const_reference back() const { return m_values.back(); }

    void push_back(ArgumentType value) { m_values.push_back(value); }
    iterator insert(iterator position, ArgumentType value) { return m_values.insert(position, value); }
    iterator erase(iterator position) { return m_values.erase(position); }
    iterator erase(iterator first, iterator last) { return m_values.erase(first, last); }
    void clear() { m_values.clear(); }
    void resize(UInt32 count, ArgumentType value = FieldTypeT()) { m_values.resize(count, value); }
    void reserve(UInt32 count) { m_values.reserve(count); }
    void swap(MField& other) { m_values.swap(other.m_values); }
    /// The first element that equals the value; end() if there is none.
    iterator find(ArgumentType value) { return std::find(begin(), end(), value); }
    const_iterator find(ArgumentType value) const { return std::find(begin(), end(), value); }

    StorageType& getValues() { return m_values; }
    const StorageType& getValues() const { return m_values; }
    void setValues(const std::vector<FieldTypeT>& values) { m_values.assign(values.begin(), values.end()); }
    void setValues(const Self& other) { m_values = other.m_values; }

    // The old names of operator[] and push_back.
    reference getValue(UInt32 index) { return m_values[index]; }
    const_reference getValue(UInt32 index) const { return m_values[index]; }
    void setValue(ArgumentType value, UInt32 index) { m_values[index] = value; }
    void addValue(ArgumentType value) { m_values.push_back(value); }

    void setAbstrValue(const Field& other) override
    {
        if (other.getType().getId() == getType().getId()) m_values = static_cast<const Self&>(other).m_values;
    }
    void pushValueByStr(const Char8* text) override
    {
        FieldTypeT value{};
        if (text && FieldText<FieldTypeT>::read(text, value)) m_values.push_back(value);
    }
    std::string& getValueByStr(std::string& text) const override
    {
        text.clear();
        for (UInt32 i = 0; i < size(); ++i) {
            if (i) text += ", ";
            FieldText<FieldTypeT>::write(m_values[i], text);
        }
        return text;
    }

private:
    StorageType m_values;
};

} // namespace osg
