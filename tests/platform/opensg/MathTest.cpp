#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace osg;
using testing::ElementsAre;
using testing::FloatNear;

constexpr Real32 halfTurn = 3.14159265f;

static_assert(std::is_same_v<Vec3f, Vector<Real32, 3>> && std::is_base_of_v<Pnt3f, Vec3f>);
static_assert(std::is_same_v<Quaternion, QuaternionBase<Real32>>);
static_assert(std::is_same_v<Matrix, TransformationMatrix<Real32>>);
static_assert(std::is_same_v<Matrix4d, TransformationMatrix<Real64>>);
static_assert(std::is_same_v<Color3f, Color3<Real32>> && std::is_same_v<Color4f, Color4<Real32>>);
static_assert(sizeof(Vec3f) == 12 && sizeof(Color4f) == 16 && sizeof(Quaternion) == 16 && sizeof(Matrix) == 64);

TEST(VectorTest, IsZeroAtFirstAndComparesWithATolerance)
{
    EXPECT_EQ(Vec3f(), Vec3f(0, 0, 0));
    EXPECT_TRUE(Vec3f(1, 0, 0) == Vec3f(1.0000001f, 0, 0));
    EXPECT_TRUE(Vec3f(1, 0, 0) != Vec3f(1.00001f, 0, 0));
    EXPECT_TRUE(Vec2ub(1, 2) == Vec2ub(1, 2));
    EXPECT_TRUE(Vec2ub(1, 2) != Vec2ub(1, 3));
    EXPECT_EQ(Eps, 1E-6f);
}

TEST(VectorTest, CalculatesComponentByComponent)
{
    Vec3f v(1, 2, 3);
    v += Vec3f(1, 1, 1);
    v *= 2;
    EXPECT_EQ(v, Vec3f(4, 6, 8));
    EXPECT_EQ(v - Vec3f(4, 6, 7), Vec3f(0, 0, 1));
    EXPECT_EQ(-v, Vec3f(-4, -6, -8));
    v /= 2;
    EXPECT_EQ(v, Vec3f(2, 3, 4));
    EXPECT_EQ(2.0f * Vec3f(1, 2, 3), Vec3f(2, 4, 6));
    v -= Vec3f(2, 3, 4);
    EXPECT_EQ(v, Vec3f());
    EXPECT_EQ(Vec3f(1, 2, 3).dot(Vec3f(4, 5, 6)), 32.0f);
    EXPECT_EQ(Vec3f(1, 0, 0).cross(Vec3f(0, 1, 0)), Vec3f(0, 0, 1));
    EXPECT_EQ(Vec3f(3, 4, 0).length(), 5.0f);
    Vec3f unit(0, 0, 9);
    unit.normalize();
    EXPECT_EQ(unit, Vec3f(0, 0, 1));
    Vec3f zero;
    zero.normalize();
    EXPECT_EQ(zero, Vec3f());
}

TEST(VectorTest, IsTheDifferenceOfTwoPoints)
{
    const Pnt3f a(1, 2, 3);
    const Vec3f difference = Pnt3f(4, 4, 4) - a;
    EXPECT_EQ(difference, Vec3f(3, 2, 1));
    EXPECT_EQ(a + difference, Pnt3f(4, 4, 4));
    EXPECT_TRUE(Pnt3f(1, 2, 3) < Pnt3f(1, 3, 0));
}

TEST(VectorTest, GivesItsComponents)
{
    Vec4f v;
    v.setValues(1, 2, 3, 4);
    EXPECT_THAT(std::vector<Real32>(v.getValues(), v.getValues() + 4), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(v.x() + v.y() * 10 + v.z() * 100 + v.w() * 1000, 4321.0f);
    v[3] = 9;
    EXPECT_EQ(v.getValues()[3], 9.0f);
}

TEST(ColorTest, GivesAndTakesItsComponents)
{
    Color4f color(0.1f, 0.2f, 0.3f, 0.4f);
    EXPECT_EQ(color.red(), 0.1f);
    EXPECT_EQ(color.alpha(), 0.4f);
    Real32 r = 0, g = 0, b = 0, a = 0;
    color.getValuesRGBA(r, g, b, a);
    EXPECT_EQ(Color4f(r, g, b, a), color);
    Color3f three;
    EXPECT_EQ(three, Color3f(0, 0, 0));
    three.setValuesRGB(1, 0.5f, 0);
    three.getValuesRGB(r, g, b);
    EXPECT_EQ(three.green(), g);
    EXPECT_TRUE(three == Color3f(1.0000001f, 0.5f, 0));
    EXPECT_TRUE(three != Color3f(1, 0.6f, 0));
}

TEST(QuaternionTest, IsTheIdentityAtFirst)
{
    const Quaternion q;
    EXPECT_THAT(std::vector<Real32>(q.getValues(), q.getValues() + 4), ElementsAre(0, 0, 0, 1));
    Vec3f axis;
    Real32 angle = 1;
    q.getValueAsAxisRad(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, 0, 1));
    EXPECT_EQ(angle, 0.0f);
}

TEST(QuaternionTest, TurnsVectorsByAnAxisAndAngleAndGivesThemBack)
{
    Quaternion q;
    q.setValueAsAxisDeg(0, 0, 2, 90);
    Vec3f turned;
    q.multVec(Vec3f(1, 0, 0), turned);
    EXPECT_EQ(turned, Vec3f(0, 1, 0));
    Vec3f axis;
    Real32 angle = 0;
    q.getValueAsAxisDeg(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, 0, 1));
    EXPECT_NEAR(angle, 90.0f, 1e-4f);
    EXPECT_EQ(q, Quaternion(Vec3f(0, 0, 1), halfTurn / 2));
    q.setValueAsAxisRad(Vec3f(), 1);
    EXPECT_EQ(q, Quaternion());
}

TEST(QuaternionTest, AppliesTheRightHandFactorFirst)
{
    const Quaternion z(Vec3f(0, 0, 1), halfTurn / 2);
    const Quaternion x(Vec3f(1, 0, 0), halfTurn / 2);
    Vec3f turned;
    Quaternion product = z;
    product.mult(x);
    product.multVec(Vec3f(0, 1, 0), turned);
    EXPECT_EQ(turned, Vec3f(0, 0, 1));
    Quaternion left = x;
    left.multLeft(z);
    EXPECT_EQ(left, product);
    product = z;
    product *= z.inverse();
    EXPECT_EQ(product, Quaternion());
    Quaternion inverted = z;
    inverted.invert();
    EXPECT_EQ(inverted, Quaternion(Vec3f(0, 0, -1), halfTurn / 2));
}

TEST(QuaternionTest, ComesBackFromItsMatrix)
{
    for (const Quaternion& q : {Quaternion(Vec3f(1, 2, 3), 0.4f), Quaternion(Vec3f(1, 0.1f, 0), 3.1f),
                                Quaternion(Vec3f(0, 1, 0.2f), 3.0f), Quaternion(Vec3f(0.1f, 0, 1), 3.12f)}) {
        Matrix matrix;
        q.getValue(matrix);
        Quaternion back(matrix);
        if (back.w() * q.w() + back.x() * q.x() + back.y() * q.y() + back.z() * q.z() < 0)
            back.setValueAsQuat(-back.x(), -back.y(), -back.z(), -back.w());
        EXPECT_TRUE(back.equals(q, 1e-5f)) << q << " came back as " << back;
    }
}

TEST(MatrixTest, IsTheIdentityAtFirstAndKeepsTheTranslationInItsLastColumn)
{
    Matrix m;
    EXPECT_EQ(m, Matrix(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    m.setTranslate(1, 2, 3);
    EXPECT_EQ(m[3], Vec4f(1, 2, 3, 1));
    EXPECT_EQ(m.getValues()[12], 1.0f);
    EXPECT_EQ(m.getValues()[14], 3.0f);
    EXPECT_EQ(m, Matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1));
    m.setIdentity();
    EXPECT_EQ(m, Matrix::identity());
}

TEST(MatrixTest, AppliesTheRightHandFactorFirst)
{
    Matrix move;
    move.setTranslate(10, 0, 0);
    Matrix scale;
    scale.setScale(2);
    Matrix m = move;
    m.mult(scale);
    Pnt3f point;
    m.multMatrixPnt(Pnt3f(1, 1, 1), point);
    EXPECT_EQ(point, Pnt3f(12, 2, 2));
    m = move;
    m.multLeft(scale);
    m.mult(Pnt3f(1, 1, 1), point);
    EXPECT_EQ(point, Pnt3f(22, 2, 2));
    Vec3f direction(1, 0, 0);
    m.multMatrixVec(direction);
    EXPECT_EQ(direction, Vec3f(2, 0, 0));
    m.mult(m);
    m.multMatrixPnt(point = Pnt3f(0, 0, 0));
    m.multFullMatrixPnt(Pnt3f(0, 0, 0), point);
    EXPECT_EQ(point, Pnt3f(60, 0, 0));
}

TEST(MatrixTest, IsInvertedUnlessItIsSingularAndThenTheIdentity)
{
    Matrix m;
    m.setTransform(Vec3f(1, 2, 3), Quaternion(Vec3f(1, 2, 3), 0.7f), Vec3f(2, 3, 4));
    Matrix inverse;
    ASSERT_TRUE(m.inverse(inverse));
    inverse.mult(m);
    EXPECT_TRUE(inverse.equals(Matrix(), 1e-5f));
    EXPECT_NEAR(m.det3(), 24.0f, 1e-4f);
    Matrix flat;
    flat.setScale(1, 0, 1);
    EXPECT_FALSE(flat.inverse(inverse));
    EXPECT_EQ(inverse, Matrix());
    EXPECT_FALSE(flat.invert());
    EXPECT_EQ(flat, Matrix());
    Matrix tiny;
    tiny.setScale(1e-11f, 1e-11f, 1e-11f);
    EXPECT_FALSE(tiny.invert());
    m.transpose();
    EXPECT_NEAR(m[0][3], 1.0f, 1e-6f);
}

TEST(MatrixTest, IsTakenApartAndPutTogetherAgain)
{
    const Vec3f translation(1, 2, 3);
    const Quaternion rotation(Vec3f(1, -2, 3), 2.0f);
    const Quaternion orientation(Vec3f(0, 1, 1), 0.6f);
    for (const Vec3f& scale : {Vec3f(1, 1, 1), Vec3f(2, 2, 2), Vec3f(1, 2, 3), Vec3f(-1, -2, -0.5f), Vec3f(-1, 1, 1)}) {
        Matrix m;
        m.setTransform(translation, rotation, scale, orientation);
        Vec3f t, s;
        Quaternion r, so;
        m.getTransform(t, r, s, so);
        EXPECT_EQ(t, translation);
        Matrix back;
        back.setTransform(t, r, s, so);
        EXPECT_TRUE(back.equals(m, 2e-6f)) << m << back;
    }
}

TEST(MatrixTest, LeavesTheCentreWhereItIs)
{
    Matrix m;
    const Vec3f centre(5, 6, 7);
    m.setTransform(Vec3f(), Quaternion(Vec3f(1, 1, 0), 1.0f), Vec3f(2, 3, 4), Quaternion(), centre);
    Pnt3f point;
    m.multMatrixPnt(centre, point);
    EXPECT_TRUE((point - Pnt3f(centre)).length() < 1e-5f);
    m.setTransform(centre);
    EXPECT_EQ(m[3], Vec4f(5, 6, 7, 1));
    m.setTransform(Quaternion());
    EXPECT_EQ(m, Matrix());
}

} // namespace
