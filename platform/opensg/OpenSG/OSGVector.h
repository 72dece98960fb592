#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <algorithm>
#include <cmath>
#include <ostream>

namespace osg {

template<class T, UInt32 N>
class Vector;

/// N values of type T without padding; all zero when default constructed. == is tolerant (see Eps).
template<class T, UInt32 N>
class OSG_BASELIB_DLLMAPPING Point
{
public:
    typedef T ValueType;
    static constexpr UInt32 Size = N;

    constexpr Point() = default;
    explicit Point(const T* values) { std::copy(values, values + N, m_values); }
    constexpr Point(T x, T y) : m_values{x, y} { static_assert(N == 2); }
    constexpr Point(T x, T y, T z) : m_values{x, y, z} { static_assert(N == 3); }
    constexpr Point(T x, T y, T z, T w) : m_values{x, y, z, w} { static_assert(N == 4); }

    T& operator[](UInt32 i) { return m_values[i]; }
    const T& operator[](UInt32 i) const { return m_values[i]; }
    T* getValues() { return m_values; }
    const T* getValues() const { return m_values; }

    T x() const { return m_values[0]; }
    T y() const { return m_values[1]; }
    T z() const
    {
        static_assert(N >= 3);
        return m_values[2];
    }
    T w() const
    {
        static_assert(N >= 4);
        return m_values[3];
    }

    void setValues(T vx, T vy) { *this = Point(vx, vy); }
    void setValues(T vx, T vy, T vz) { *this = Point(vx, vy, vz); }
    void setValues(T vx, T vy, T vz, T vw) { *this = Point(vx, vy, vz, vw); }
    void setValue(const T* values) { std::copy(values, values + N, m_values); }
    void setNull() { std::fill(m_values, m_values + N, T(0)); }

    Point& operator+=(const Vector<T, N>& v)
    {
        return combine(v, [](T a, T b) { return T(a + b); });
    }
    Point& operator-=(const Vector<T, N>& v)
    {
        return combine(v, [](T a, T b) { return T(a - b); });
    }
    Point operator+(const Vector<T, N>& v) const { return Point(*this) += v; }
    Point operator-(const Vector<T, N>& v) const { return Point(*this) -= v; }
    Vector<T, N> operator-(const Point& p) const
    {
        Vector<T, N> result;
        for (UInt32 i = 0; i < N; ++i)
            result[i] = T(m_values[i] - p[i]);
        return result;
    }

    bool operator==(const Point& other) const
    {
        return std::equal(m_values, m_values + N, other.m_values, &TypeTraits<T>::isEqual);
    }
    bool operator!=(const Point& other) const { return !(*this == other); }
    bool operator<(const Point& other) const
    {
        return std::lexicographical_compare(m_values, m_values + N, other.m_values, other.m_values + N);
    }

protected:
    template<class F>
    Point& combine(const Point& other, F f)
    {
        for (UInt32 i = 0; i < N; ++i)
            m_values[i] = f(m_values[i], other.m_values[i]);
        return *this;
    }

    T m_values[N] = {};
};

template<class T, UInt32 N>
class OSG_BASELIB_DLLMAPPING Vector : public Point<T, N>
{
    typedef Point<T, N> Inherited;

public:
    using Inherited::Inherited;
    constexpr Vector() = default;
    explicit Vector(const Inherited& point) : Inherited(point) {}

    Vector& operator+=(const Vector& v) { return *this = *this + v; }
    Vector& operator-=(const Vector& v) { return *this = *this - v; }
    void operator*=(T factor)
    {
        for (T& value : this->m_values)
            value = T(value * factor);
    }
    void operator/=(T divisor)
    {
        for (T& value : this->m_values)
            value = T(value / divisor);
    }
    Vector operator+(const Vector& v) const { return Vector(Inherited(*this) += v); }
    Vector operator-(const Vector& v) const { return Vector(Inherited(*this) -= v); }
    Vector operator-() const { return Vector() - *this; }
    Vector operator*(T factor) const
    {
        Vector result(*this);
        result *= factor;
        return result;
    }
    friend Vector operator*(T factor, const Vector& v) { return v * factor; }

    T dot(const Vector& v) const
    {
        T sum = T(0);
        for (UInt32 i = 0; i < N; ++i)
            sum = T(sum + this->m_values[i] * v[i]);
        return sum;
    }
    Vector cross(const Vector& v) const
    {
        const auto& a = this->m_values;
        return Vector(T(a[1] * v[2] - a[2] * v[1]), T(a[2] * v[0] - a[0] * v[2]), T(a[0] * v[1] - a[1] * v[0]));
    }
    T squareLength() const { return dot(*this); }
    T length() const { return T(std::sqrt(squareLength())); }
    /// A vector shorter than Eps stays as it is.
    void normalize()
    {
        const T size = length();
        if (size > T(Eps)) *this /= size;
    }
};

template<class T, UInt32 N>
std::ostream& operator<<(std::ostream& stream, const Point<T, N>& p)
{
    for (UInt32 i = 0; i < N; ++i)
        stream << (i ? " " : "") << +p[i];
    return stream;
}

// clang-format off
#define OSG_VECTORS(suffix, T)                                                                                         \
    typedef Vector<T, 2> Vec2##suffix; typedef Vector<T, 3> Vec3##suffix; typedef Vector<T, 4> Vec4##suffix;           \
    typedef Point<T, 2> Pnt2##suffix;  typedef Point<T, 3> Pnt3##suffix;  typedef Point<T, 4> Pnt4##suffix;

OSG_VECTORS(b, Int8)
OSG_VECTORS(ub, UInt8)
OSG_VECTORS(s, Int16)
OSG_VECTORS(us, UInt16)
OSG_VECTORS(f, Real32)
OSG_VECTORS(d, Real64)
#undef OSG_VECTORS
// clang-format on

} // namespace osg
