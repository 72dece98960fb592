#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <algorithm>
#include <ostream>

namespace osg {

/// Red, green, blue and so on without padding; all zero when default constructed. == is tolerant (see Eps).
template<class T, UInt32 N>
class OSG_BASELIB_DLLMAPPING ColorBase
{
public:
    typedef T ValueType;
    static constexpr UInt32 Size = N;

    constexpr ColorBase() = default;

    T& operator[](UInt32 i) { return m_values[i]; }
    const T& operator[](UInt32 i) const { return m_values[i]; }
    T* getValues() { return m_values; }
    const T* getValues() const { return m_values; }

    T red() const { return m_values[0]; }
    T green() const { return m_values[1]; }
    T blue() const { return m_values[2]; }

    bool operator==(const ColorBase& other) const
    {
        return std::equal(m_values, m_values + N, other.m_values, &TypeTraits<T>::isEqual);
    }
    bool operator!=(const ColorBase& other) const { return !(*this == other); }

protected:
    T m_values[N] = {};
};

template<class T>
class OSG_BASELIB_DLLMAPPING Color3 : public ColorBase<T, 3>
{
public:
    constexpr Color3() = default;
    Color3(T red, T green, T blue) { setValuesRGB(red, green, blue); }

    void setValuesRGB(T red, T green, T blue)
    {
        this->m_values[0] = red;
        this->m_values[1] = green;
        this->m_values[2] = blue;
    }
    void getValuesRGB(T& red, T& green, T& blue) const
    {
        red = this->m_values[0];
        green = this->m_values[1];
        blue = this->m_values[2];
    }
    T* getValuesRGB() { return this->m_values; }
    const T* getValuesRGB() const { return this->m_values; }
};

template<class T>
class OSG_BASELIB_DLLMAPPING Color4 : public ColorBase<T, 4>
{
public:
    constexpr Color4() = default;
    Color4(T red, T green, T blue, T alpha) { setValuesRGBA(red, green, blue, alpha); }

    T alpha() const { return this->m_values[3]; }
    void setValuesRGBA(T red, T green, T blue, T alpha)
    {
        this->m_values[0] = red;
        this->m_values[1] = green;
        this->m_values[2] = blue;
        this->m_values[3] = alpha;
    }
    void getValuesRGBA(T& red, T& green, T& blue, T& alpha) const
    {
        red = this->m_values[0];
        green = this->m_values[1];
        blue = this->m_values[2];
        alpha = this->m_values[3];
    }
    T* getValuesRGBA() { return this->m_values; }
    const T* getValuesRGBA() const { return this->m_values; }
};

template<class T, UInt32 N>
std::ostream& operator<<(std::ostream& stream, const ColorBase<T, N>& color)
{
    for (UInt32 i = 0; i < N; ++i)
        stream << (i ? " " : "") << +color[i];
    return stream;
}

typedef Color3<Real32> Color3f;
typedef Color4<Real32> Color4f;
typedef Color3<UInt8> Color3ub;
typedef Color4<UInt8> Color4ub;

} // namespace osg
