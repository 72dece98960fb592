#pragma once

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <utility>

namespace osg {

/// A 4 x 4 matrix as four columns: m[3] is the translation, and a point is multiplied from the right. The identity when
/// default constructed. == is tolerant (see Eps).
template<class T>
class OSG_BASELIB_DLLMAPPING TransformationMatrix
{
public:
    typedef T ValueType;
    typedef Vector<T, 4> VectorType;
    typedef Vector<T, 3> VectorType3f;
    typedef Point<T, 3> PointType3f;
    typedef QuaternionBase<T> QuaternionType;
    static constexpr UInt32 Size = 16;

    TransformationMatrix() { setIdentity(); }
    TransformationMatrix(const VectorType& c0, const VectorType& c1, const VectorType& c2, const VectorType& c3)
        : m_columns{c0, c1, c2, c3}
    {
    }
    /// The arguments are in reading order: row by row.
    TransformationMatrix(T r00, T r01, T r02, T r03, T r10, T r11, T r12, T r13, T r20, T r21, T r22, T r23, T r30,
                         T r31, T r32, T r33)
        : m_columns{VectorType(r00, r10, r20, r30), VectorType(r01, r11, r21, r31), VectorType(r02, r12, r22, r32),
                    VectorType(r03, r13, r23, r33)}
    {
    }

    static TransformationMatrix identity() { return TransformationMatrix(); }

    VectorType& operator[](UInt32 column) { return m_columns[column]; }
    const VectorType& operator[](UInt32 column) const { return m_columns[column]; }
    /// 16 values, column by column.
    T* getValues() { return m_columns[0].getValues(); }
    const T* getValues() const { return m_columns[0].getValues(); }

    void setIdentity()
    {
        for (UInt32 i = 0; i < 4; ++i) {
            m_columns[i].setNull();
            m_columns[i][i] = T(1);
        }
    }
    void setValue(const TransformationMatrix& matrix) { *this = matrix; }

    // The three below set one part and leave the rest as it is.
    void setTranslate(T x, T y, T z)
    {
        m_columns[3][0] = x;
        m_columns[3][1] = y;
        m_columns[3][2] = z;
    }
    void setTranslate(const PointType3f& translation) { setTranslate(translation[0], translation[1], translation[2]); }
    void setScale(T x, T y, T z)
    {
        m_columns[0][0] = x;
        m_columns[1][1] = y;
        m_columns[2][2] = z;
    }
    void setScale(T scale) { setScale(scale, scale, scale); }
    void setScale(const PointType3f& scale) { setScale(scale[0], scale[1], scale[2]); }
    void setRotate(const QuaternionType& rotation)
    {
        for (UInt32 column = 0; column < 3; ++column) {
            VectorType3f axis;
            axis[column] = T(1);
            rotation.multVec(axis, axis);
            for (UInt32 row = 0; row < 3; ++row)
                m_columns[column][row] = axis[row];
        }
    }

    void setTransform(const VectorType3f& translation)
    {
        setIdentity();
        setTranslate(translation);
    }
    void setTransform(const QuaternionType& rotation)
    {
        setIdentity();
        setRotate(rotation);
    }
    void setTransform(const VectorType3f& translation, const QuaternionType& rotation)
    {
        setTransform(rotation);
        setTranslate(translation);
    }
    void setTransform(const VectorType3f& translation, const QuaternionType& rotation, const VectorType3f& scale)
    {
        setTransform(translation, rotation);
        for (UInt32 column = 0; column < 3; ++column)
            m_columns[column] *= scale[column];
    }
    /// translation * rotation * scaleOrientation * scale * scaleOrientation^-1
    void setTransform(const VectorType3f& translation, const QuaternionType& rotation, const VectorType3f& scale,
                      const QuaternionType& scaleOrientation)
    {
        QuaternionType turn = rotation;
        turn.mult(scaleOrientation);
        setTransform(translation, turn, scale);
        TransformationMatrix back;
        back.setRotate(scaleOrientation.inverse());
        mult(back);
    }
    /// The same about a centre that stays where it is.
    void setTransform(const VectorType3f& translation, const QuaternionType& rotation, const VectorType3f& scale,
                      const QuaternionType& scaleOrientation, const VectorType3f& center)
    {
        setTransform(translation + center, rotation, scale, scaleOrientation);
        TransformationMatrix back;
        back.setTranslate(-center);
        mult(back);
    }

    /// The arguments with which setTransform would make this matrix, whose last row must be 0 0 0 1. Exact up to
    /// rounding for any such matrix that can be inverted; a mirrored one comes back with three negative scale factors.
    void getTransform(VectorType3f& translation, QuaternionType& rotation, VectorType3f& scale,
                      QuaternionType& scaleOrientation) const;

    T det3() const
    {
        const VectorType &a = m_columns[0], &b = m_columns[1], &c = m_columns[2];
        return a[0] * (b[1] * c[2] - b[2] * c[1]) - b[0] * (a[1] * c[2] - a[2] * c[1]) +
               c[0] * (a[1] * b[2] - a[2] * b[1]);
    }

    /// this = this * matrix
    void mult(const TransformationMatrix& matrix)
    {
        const TransformationMatrix left = *this;
        const TransformationMatrix right = matrix;
        for (UInt32 column = 0; column < 4; ++column)
            m_columns[column] = left.multFull(right[column]);
    }
    /// this = matrix * this
    void multLeft(TransformationMatrix matrix)
    {
        matrix.mult(*this);
        *this = matrix;
    }

    /// Divides by the fourth component when it is neither 0 nor 1.
    void multFullMatrixPnt(const PointType3f& source, PointType3f& destination) const
    {
        const VectorType v = multFull(VectorType(source[0], source[1], source[2], T(1)));
        const T w = v[3] == T(0) ? T(1) : v[3];
        destination.setValues(v[0] / w, v[1] / w, v[2] / w);
    }
    void multMatrixPnt(const PointType3f& source, PointType3f& destination) const
    {
        const VectorType v = multFull(VectorType(source[0], source[1], source[2], T(1)));
        destination.setValues(v[0], v[1], v[2]);
    }
    void multMatrixPnt(PointType3f& point) const { multMatrixPnt(PointType3f(point), point); }
    void mult(const PointType3f& source, PointType3f& destination) const { multMatrixPnt(source, destination); }
    /// Without the translation.
    void multMatrixVec(const VectorType3f& source, VectorType3f& destination) const
    {
        const VectorType v = multFull(VectorType(source[0], source[1], source[2], T(0)));
        destination.setValues(v[0], v[1], v[2]);
    }
    void multMatrixVec(VectorType3f& vector) const { multMatrixVec(VectorType3f(vector), vector); }

    void transpose()
    {
        for (UInt32 i = 0; i < 4; ++i) {
            for (UInt32 j = i + 1; j < 4; ++j)
                std::swap(m_columns[i][j], m_columns[j][i]);
        }
    }

    /// False, and this unchanged, when the matrix is singular.
    /// False for a matrix of a determinant below 1e-30; the result is the identity then.
    bool invertFrom(const TransformationMatrix& matrix)
    {
        if (setInverse(matrix) >= 1e-30) return true;
        setIdentity();
        return false;
    }
    bool invert() { return invertFrom(TransformationMatrix(*this)); }
    bool inverse(TransformationMatrix& result) const { return result.invertFrom(*this); }

    bool equals(const TransformationMatrix& matrix, T tolerance) const
    {
        return std::equal(getValues(), getValues() + 16, matrix.getValues(),
                          [tolerance](T a, T b) { return std::abs(a - b) <= tolerance; });
    }
    bool operator==(const TransformationMatrix& matrix) const { return equals(matrix, T(Eps)); }
    bool operator!=(const TransformationMatrix& matrix) const { return !(*this == matrix); }

private:
    VectorType multFull(const VectorType& v) const
    {
        return m_columns[0] * v[0] + m_columns[1] * v[1] + m_columns[2] * v[2] + m_columns[3] * v[3];
    }
    void diagonalize(TransformationMatrix& axes);
    /// Gives the absolute value of the determinant; does nothing if that is 0.
    double setInverse(const TransformationMatrix& matrix);

    VectorType m_columns[4];
};

template<class T>
double TransformationMatrix<T>::setInverse(const TransformationMatrix& matrix)
{
    // Gauss-Jordan on columns with the largest pivot of the row; what is done to the left half is done to the right.
    TransformationMatrix left = matrix;
    TransformationMatrix right;
    double determinant = 1;
    for (UInt32 i = 0; i < 4; ++i) {
        UInt32 pivot = i;
        for (UInt32 column = i + 1; column < 4; ++column) {
            if (std::abs(left[column][i]) > std::abs(left[pivot][i])) pivot = column;
        }
        if (!(std::abs(left[pivot][i]) > std::numeric_limits<T>::min())) return 0;
        std::swap(left[i], left[pivot]);
        std::swap(right[i], right[pivot]);
        const T divisor = left[i][i];
        determinant *= std::abs(divisor);
        left[i] /= divisor;
        right[i] /= divisor;
        for (UInt32 column = 0; column < 4; ++column) {
            if (column == i) continue;
            const T factor = left[column][i];
            left[column] -= left[i] * factor;
            right[column] -= right[i] * factor;
        }
    }
    *this = right;
    return determinant;
}

/// Jacobi rotations: makes the symmetric upper 3 x 3 part diagonal and collects its axes.
template<class T>
void TransformationMatrix<T>::diagonalize(TransformationMatrix& axes)
{
    axes.setIdentity();
    for (int sweep = 0; sweep < 20; ++sweep) {
        for (UInt32 p = 0; p < 2; ++p) {
            for (UInt32 q = p + 1; q < 3; ++q) {
                if (std::abs(m_columns[q][p]) <=
                    std::numeric_limits<T>::epsilon() * (std::abs(m_columns[p][p]) + std::abs(m_columns[q][q])))
                    continue;
                const T angle = T(0.5) * std::atan2(T(2) * m_columns[q][p], m_columns[p][p] - m_columns[q][q]);
                TransformationMatrix turn;
                turn[p][p] = turn[q][q] = std::cos(angle);
                turn[p][q] = std::sin(angle);
                turn[q][p] = -turn[p][q];
                mult(turn);
                axes.mult(turn);
                turn.transpose();
                multLeft(turn);
            }
        }
    }
}

template<class T>
void TransformationMatrix<T>::getTransform(VectorType3f& translation, QuaternionType& rotation, VectorType3f& scale,
                                           QuaternionType& scaleOrientation) const
{
    translation.setValues(m_columns[3][0], m_columns[3][1], m_columns[3][2]);
    TransformationMatrix linear = *this;
    linear[3] = VectorType(T(0), T(0), T(0), T(1));
    const T sign = linear.det3() < T(0) ? T(-1) : T(1);

    // Polar decomposition linear = turn * stretch: turn is the limit of averaging with the inverse transpose.
    TransformationMatrix turn = linear;
    for (UInt32 i = 0; i < 3; ++i)
        turn[i] *= sign;
    for (int step = 0; step < 100; ++step) {
        TransformationMatrix other;
        if (other.setInverse(turn) <= 0) break;
        other.transpose();
        const TransformationMatrix before = turn;
        for (UInt32 i = 0; i < 3; ++i)
            turn[i] = (turn[i] + other[i]) * T(0.5);
        if (turn.equals(before, std::numeric_limits<T>::epsilon())) break;
    }
    TransformationMatrix stretch = turn;
    stretch.transpose();
    stretch.mult(linear);
    TransformationMatrix axes;
    stretch.diagonalize(axes);

    rotation.setValue(turn);
    scale.setValues(stretch[0][0], stretch[1][1], stretch[2][2]);
    scaleOrientation.setValue(axes);
}

template<class T>
void QuaternionBase<T>::setValue(const TransformationMatrix<T>& m)
{
    // Take the largest component from the diagonal, the others from the differences: never divides by something small.
    const T trace = m[0][0] + m[1][1] + m[2][2];
    UInt32 i = 3;
    T largest = trace;
    for (UInt32 axis = 0; axis < 3; ++axis) {
        if (m[axis][axis] > largest) {
            largest = m[axis][axis];
            i = axis;
        }
    }
    if (i == 3) {
        const T s = T(2) * std::sqrt(T(1) + trace);
        setValueAsQuat((m[1][2] - m[2][1]) / s, (m[2][0] - m[0][2]) / s, (m[0][1] - m[1][0]) / s, s / T(4));
    } else {
        const UInt32 j = (i + 1) % 3;
        const UInt32 k = (i + 2) % 3;
        const T s = T(2) * std::sqrt(T(1) + m[i][i] - m[j][j] - m[k][k]);
        m_values[i] = s / T(4);
        m_values[j] = (m[j][i] + m[i][j]) / s;
        m_values[k] = (m[k][i] + m[i][k]) / s;
        m_values[3] = (m[j][k] - m[k][j]) / s;
    }
    normalize();
}

template<class T>
std::ostream& operator<<(std::ostream& stream, const TransformationMatrix<T>& matrix)
{
    for (UInt32 row = 0; row < 4; ++row) {
        for (UInt32 column = 0; column < 4; ++column)
            stream << matrix[column][row] << (column == 3 ? '\n' : ' ');
    }
    return stream;
}

typedef TransformationMatrix<Real32> Matrix;
typedef TransformationMatrix<Real64> Matrix4d;

} // namespace osg
