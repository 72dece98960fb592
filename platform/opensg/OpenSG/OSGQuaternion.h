#pragma once

#include <OpenSG/OSGVector.h>

namespace osg {

template<class T>
class TransformationMatrix;

/// A rotation as x, y, z, w; the identity (0, 0, 0, 1) when default constructed. == is tolerant (see Eps) and compares
/// components: q and -q differ although they rotate alike.
template<class T>
class OSG_BASELIB_DLLMAPPING QuaternionBase
{
public:
    typedef T ValueType;
    typedef Vector<T, 3> VectorType;
    static constexpr UInt32 Size = 4;

    constexpr QuaternionBase() = default;
    /// \param angle radians.
    QuaternionBase(const VectorType& axis, T angle) { setValueAsAxisRad(axis, angle); }
    explicit QuaternionBase(const TransformationMatrix<T>& matrix) { setValue(matrix); }

    static QuaternionBase identity() { return QuaternionBase(); }
    T& operator[](UInt32 i) { return m_values[i]; }
    const T& operator[](UInt32 i) const { return m_values[i]; }
    T* getValues() { return m_values; }
    const T* getValues() const { return m_values; }
    T x() const { return m_values[0]; }
    T y() const { return m_values[1]; }
    T z() const { return m_values[2]; }
    T w() const { return m_values[3]; }

    void setIdentity() { *this = QuaternionBase(); }
    void setValueAsQuat(T vx, T vy, T vz, T vw)
    {
        m_values[0] = vx;
        m_values[1] = vy;
        m_values[2] = vz;
        m_values[3] = vw;
    }
    void setValueAsQuat(const T* values) { std::copy(values, values + 4, m_values); }
    void getValueAsQuat(T& vx, T& vy, T& vz, T& vw) const
    {
        vx = x();
        vy = y();
        vz = z();
        vw = w();
    }

    /// An axis shorter than Eps gives the identity.
    void setValueAsAxisRad(VectorType axis, T angle)
    {
        setIdentity();
        if (axis.length() <= T(Eps)) return;
        axis.normalize();
        axis *= std::sin(angle / T(2));
        setValueAsQuat(axis[0], axis[1], axis[2], std::cos(angle / T(2)));
    }
    void setValueAsAxisRad(T ax, T ay, T az, T angle) { setValueAsAxisRad(VectorType(ax, ay, az), angle); }
    void setValueAsAxisDeg(const VectorType& axis, T angle) { setValueAsAxisRad(axis, angle * s_radPerDeg); }
    void setValueAsAxisDeg(T ax, T ay, T az, T angle) { setValueAsAxisDeg(VectorType(ax, ay, az), angle); }

    /// The identity gives the z axis and angle 0.
    void getValueAsAxisRad(VectorType& axis, T& angle) const
    {
        axis = VectorType(x(), y(), z());
        const T sine = axis.length();
        if (sine > T(Eps)) {
            axis /= sine;
            angle = T(2) * std::atan2(sine, w());
        } else {
            axis = VectorType(T(0), T(0), T(1));
            angle = T(0);
        }
    }
    void getValueAsAxisRad(T& ax, T& ay, T& az, T& angle) const
    {
        VectorType axis;
        getValueAsAxisRad(axis, angle);
        ax = axis[0];
        ay = axis[1];
        az = axis[2];
    }
    void getValueAsAxisDeg(VectorType& axis, T& angle) const
    {
        getValueAsAxisRad(axis, angle);
        angle /= s_radPerDeg;
    }
    void getValueAsAxisDeg(T& ax, T& ay, T& az, T& angle) const
    {
        getValueAsAxisRad(ax, ay, az, angle);
        angle /= s_radPerDeg;
    }

    /// The rotation of a matrix whose upper three columns are orthonormal.
    void setValue(const TransformationMatrix<T>& matrix);
    void getValue(TransformationMatrix<T>& matrix) const { matrix.setRotate(*this); }

    T length() const { return std::sqrt(dot(*this)); }
    void normalize()
    {
        const T size = length();
        if (size > T(Eps)) {
            for (T& value : m_values)
                value /= size;
        }
    }

    /// this = this * q: q is the rotation that is applied first.
    void mult(const QuaternionBase& q)
    {
        setValueAsQuat(w() * q.x() + x() * q.w() + y() * q.z() - z() * q.y(),
                       w() * q.y() + y() * q.w() + z() * q.x() - x() * q.z(),
                       w() * q.z() + z() * q.w() + x() * q.y() - y() * q.x(),
                       w() * q.w() - x() * q.x() - y() * q.y() - z() * q.z());
    }
    void multLeft(QuaternionBase q)
    {
        q.mult(*this);
        *this = q;
    }
    void operator*=(const QuaternionBase& q) { mult(q); }

    /// The rotated vector; this must have length 1.
    void multVec(const VectorType& source, VectorType& destination) const
    {
        const VectorType axis(x(), y(), z());
        const VectorType twice = axis.cross(source) * T(2);
        destination = source + twice * w() + axis.cross(twice);
    }

    QuaternionBase inverse() const
    {
        QuaternionBase result = conj();
        const T square = dot(*this);
        if (square > T(Eps) * T(Eps)) {
            for (T& value : result.m_values)
                value /= square;
        }
        return result;
    }
    void invert() { *this = inverse(); }

    bool equals(const QuaternionBase& q, T tolerance) const
    {
        return std::equal(m_values, m_values + 4, q.m_values,
                          [tolerance](T a, T b) { return std::abs(a - b) <= tolerance; });
    }
    bool operator==(const QuaternionBase& q) const { return equals(q, T(Eps)); }
    bool operator!=(const QuaternionBase& q) const { return !(*this == q); }

private:
    T dot(const QuaternionBase& q) const { return x() * q.x() + y() * q.y() + z() * q.z() + w() * q.w(); }
    QuaternionBase conj() const
    {
        QuaternionBase result;
        result.setValueAsQuat(-x(), -y(), -z(), w());
        return result;
    }

    static constexpr T s_radPerDeg = T(3.14159265358979323846 / 180.0);

    T m_values[4] = {T(0), T(0), T(0), T(1)};
};

template<class T>
std::ostream& operator<<(std::ostream& stream, const QuaternionBase<T>& q)
{
    return stream << q.x() << ' ' << q.y() << ' ' << q.z() << ' ' << q.w();
}

typedef QuaternionBase<Real32> Quaternion;
typedef QuaternionBase<Real64> Quaterniond;

} // namespace osg

#include <OpenSG/OSGMatrix.h>
