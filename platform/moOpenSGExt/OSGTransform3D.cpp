#include <OpenSG/OSGTransform3D.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace osg {

OSG_CONTAINER_IMPL(Transform3D, Transform, OSG_TRANSFORM3D_FIELDS)

namespace {
// The fields are floats; everything between them is computed in double, so that a chain of pivots costs no digits.
using Vec = std::array<double, 3>;
using Mat = std::array<Vec, 3>;     // rows
using Quat = std::array<double, 4>; // x, y, z, w

constexpr double radiansPerDegree = 3.14159265358979323846 / 180.;

Vec vec(const Vec3f& v)
{
    return {v[0], v[1], v[2]};
}
Vec vec(const Vec3d& v)
{
    return {v[0], v[1], v[2]};
}

Vec3f vec3f(const Vec& v)
{
    return Vec3f(Real32(v[0]), Real32(v[1]), Real32(v[2]));
}
Vec3d vec3d(const Vec& v)
{
    return Vec3d(v[0], v[1], v[2]);
}

Vec operator+(const Vec& a, const Vec& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Vec operator-(const Vec& a, const Vec& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double dot(const Vec& a, const Vec& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vec cross(const Vec& a, const Vec& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vec operator*(const Mat& m, const Vec& v)
{
    return {dot(m[0], v), dot(m[1], v), dot(m[2], v)};
}

Mat transposed(const Mat& m)
{
    Mat t{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            t[column][row] = m[row][column];
    return t;
}

Mat operator*(const Mat& a, const Mat& b)
{
    const Mat columns = transposed(b);
    return transposed({a * columns[0], a * columns[1], a * columns[2]});
}

Quat quat(const Quaternion& q)
{
    return {q[0], q[1], q[2], q[3]};
}

Quaternion quaternion(const Quat& q)
{
    Quaternion rotation;
    rotation.setValueAsQuat(Real32(q[0]), Real32(q[1]), Real32(q[2]), Real32(q[3]));
    return rotation;
}

double squaredLength(const Quat& q)
{
    return q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
}

Quat operator*(const Quat& a, const Quat& b)
{
    return {
        a[3] * b[0] + a[0] * b[3] + a[1] * b[2] - a[2] * b[1], a[3] * b[1] - a[0] * b[2] + a[1] * b[3] + a[2] * b[0],
        a[3] * b[2] + a[0] * b[1] - a[1] * b[0] + a[2] * b[3], a[3] * b[3] - a[0] * b[0] - a[1] * b[1] - a[2] * b[2]};
}

// Of any length; the identity for length zero.
Mat rotation(const Quat& q)
{
    const double length = squaredLength(q);
    const double s = length == 0. ? 0. : 2. / length;
    const auto [x, y, z, w] = q;
    return {{{1. - s * (y * y + z * z), s * (x * y - w * z), s * (x * z + w * y)},
             {s * (x * y + w * z), 1. - s * (x * x + z * z), s * (y * z - w * x)},
             {s * (x * z - w * y), s * (y * z + w * x), 1. - s * (x * x + y * y)}}};
}

/// The axes in the order in which they are turned about, and +1 where they follow each other as x, y, z do, else -1.
struct Order
{
    std::array<std::size_t, 3> axes;
    double parity;
};

Order order(const std::string& text)
{
    std::string sorted = text;
    std::sort(sorted.begin(), sorted.end());
    if (sorted != "XYZ") return {{0, 1, 2}, 1.};
    const auto axis = [&text](std::size_t position) { return std::size_t(text[position] - 'X'); };
    return {{axis(0), axis(1), axis(2)}, (axis(0) + 1) % 3 == axis(1) ? 1. : -1.};
}

Quat fromEuler(const Vec3f& degrees, const Order& o)
{
    Quat q{0., 0., 0., 1.};
    for (const std::size_t axis : o.axes) {
        const double half = double(degrees[UInt32(axis)]) * radiansPerDegree / 2.;
        Quat turn{0., 0., 0., std::cos(half)};
        turn[axis] = std::sin(half);
        q = turn * q;
    }
    return q;
}

bool sameRotation(const Quat& a, const Quat& b)
{
    const double sign = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3] < 0. ? -1. : 1.;
    for (std::size_t i = 0; i < 4; ++i)
        if (!(std::abs(a[i] - sign * b[i]) <= 1e-6)) return false;
    return true;
}

Vec3f toEuler(const Quat& q, const Order& o)
{
    const auto [i, j, k] = o.axes;
    const Mat m = rotation(q);
    const double cosine = std::hypot(m[i][i], m[j][i]);
    Vec angles{};
    angles[j] = std::atan2(-o.parity * m[k][i], cosine);
    if (cosine > 1e-6) {
        angles[i] = std::atan2(o.parity * m[k][j], m[k][k]);
        angles[k] = std::atan2(o.parity * m[j][i], m[i][i]);
    } else { // first and last axis coincide: the whole turn about them goes to the first
        angles[i] = std::atan2(-o.parity * m[j][k], m[j][j]);
    }
    for (double& angle : angles)
        angle = angle / radiansPerDegree + 0.; // the sum is never a minus zero
    return vec3f(angles);
}

Quat smallestTurn(std::size_t axis, const Vec& direction)
{
    Vec from{};
    from[axis] = 1.;
    const double length = std::sqrt(dot(direction, direction));
    const double real = length + direction[axis];
    if (real <= 1e-9 * length) { // opposite: half a turn about the next axis
        Quat half{};
        half[(axis + 1) % 3] = 1.;
        return half;
    }
    const Vec imaginary = cross(from, direction);
    return {imaginary[0], imaginary[1], imaginary[2], real};
}

Mat orientation(const Transform3D& transform)
{
    Vec3f direction;
    Int32 mode = 0;
    if (transform.getRotationDirectionValues(direction, mode))
        return rotation(smallestTurn(mode == 1 || mode == 2 ? std::size_t(mode) : 0, vec(direction)));
    return rotation(fromEuler(transform.getEulerRotationOrientation(), order("XYZ")));
}

// O · R · O⁻¹
Mat turn(const Transform3D& transform)
{
    const Mat o = orientation(transform);
    return o * rotation(quat(transform.getRotation())) * transposed(o);
}

// H · S
Mat stretch(const Transform3D& transform)
{
    const Vec s = vec(transform.getScale());
    const Vec h = vec(transform.getShear());
    return {{{s[0], h[0] * s[1], h[1] * s[2]}, {0., s[1], h[2] * s[2]}, {0., 0., s[2]}}};
}

// T · Tr · Pr acting on the origin
Vec rotatePivotInParent(const Transform3D& transform)
{
    return vec(transform.getTranslation()) + vec(transform.getRotatePivotTranslation()) +
           vec(transform.getRotatePivot());
}

Matrix composed(const Transform3D& transform)
{
    const Mat stretching = stretch(transform);
    const Mat turning = turn(transform);
    const Mat linear = turning * stretching;
    const Vec scalePivot = vec(transform.getScalePivot());
    const Vec stretched = vec(transform.getScalePivotTranslation()) + scalePivot - stretching * scalePivot;
    const Vec origin = rotatePivotInParent(transform) + turning * (stretched - vec(transform.getRotatePivot()));

    Matrix matrix;
    for (UInt32 row = 0; row < 3; ++row) {
        for (UInt32 column = 0; column < 3; ++column)
            matrix[column][row] = Real32(linear[row][column]);
        matrix[3][row] = Real32(origin[row]);
    }
    return matrix;
}
} // namespace

void Transform3D::setRotationAsQuaternion(const Quaternion& rotation)
{
    Quat q = quat(rotation);
    const double length = squaredLength(q);
    if (!std::isfinite(length) || length == 0.) return;
    // A quaternion that has unit length as far as floats can tell is stored bit by bit, so that what was read can be
    // put back.
    if (std::abs(length - 1.) > 1e-6)
        for (double& component : q)
            component /= std::sqrt(length);
    setRotation(quaternion(q));
}

bool Transform3D::getRotationDirectionValues(Vec3f& direction, Int32& mode) const
{
    direction = getRotationDirection();
    mode = getRotationDirectionMode();
    const double squared = dot(vec(direction), vec(direction));
    return std::isfinite(squared) && squared > 0.;
}

Vec3f Transform3D::getOrientationAxis(Int32 axis) const
{
    if (axis < 0 || axis > 2) return Vec3f(0.f, 0.f, 0.f);
    return vec3f(transposed(orientation(*this))[std::size_t(axis)]);
}

Vec3d Transform3D::getRotatePivotInParent() const
{
    return vec3d(rotatePivotInParent(*this));
}

void Transform3D::setRotatePivotInParent(const Vec3d& point)
{
    setRotatePivot(vec3f(vec(point) - vec(getTranslation()) - vec(getRotatePivotTranslation())));
}

Vec3d Transform3D::getScalePivotInParent() const
{
    const Vec fromRotatePivot = vec(getScalePivot()) + vec(getScalePivotTranslation()) - vec(getRotatePivot());
    return vec3d(rotatePivotInParent(*this) + turn(*this) * fromRotatePivot);
}

void Transform3D::setScalePivotInParent(const Vec3d& point)
{
    const Vec fromRotatePivot = transposed(turn(*this)) * (vec(point) - rotatePivotInParent(*this));
    setScalePivot(vec3f(fromRotatePivot + vec(getRotatePivot()) - vec(getScalePivotTranslation())));
}

void Transform3D::changed(BitVector whichField, UInt32 origin)
{
    constexpr BitVector rotationFields = RotationFieldMask | EulerRotationFieldMask | EulerRotationOrderFieldMask;
    constexpr BitVector otherComponents = TranslationFieldMask | EulerRotationOrientationFieldMask |
                                          RotationDirectionFieldMask | RotationDirectionModeFieldMask |
                                          RotatePivotFieldMask | RotatePivotTranslationFieldMask | ScaleFieldMask |
                                          ScalePivotFieldMask | ScalePivotTranslationFieldMask | ShearFieldMask;
    if (whichField & rotationFields) synchroniseRotation(whichField);
    if (whichField & (rotationFields | otherComponents | MatrixFieldMask)) {
        setMatrix(composed(*this));
        whichField |= MatrixFieldMask;
    }
    Inherited::changed(whichField, origin);
}

void Transform3D::synchroniseRotation(BitVector whichField)
{
    const bool anglesWritten = whichField & EulerRotationFieldMask;
    const bool quaternionWritten = whichField & RotationFieldMask;
    const bool anglesDecide = anglesWritten == quaternionWritten ? getRotationMode() != QuaternionMode : anglesWritten;
    const Order o = order(getEulerRotationOrder());
    // A quaternion that says what the angles say, as after a copy of all fields or a write that was refused: deriving
    // one from the other would only round it, and take turns beyond half a circle out of the angles.
    if (quaternionWritten && sameRotation(fromEuler(getEulerRotation(), o), quat(getRotation()))) return;
    if (anglesDecide) {
        setRotation(quaternion(fromEuler(getEulerRotation(), o)));
    } else {
        setEulerRotation(toEuler(quat(getRotation()), o));
    }
}

} // namespace osg
