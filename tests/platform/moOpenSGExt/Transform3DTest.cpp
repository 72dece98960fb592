#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

using Base = osg::Transform3DBase;
using Rows = std::array<std::array<double, 4>, 3>;

namespace {

const float notANumber = std::numeric_limits<float>::quiet_NaN();
const float infinity = std::numeric_limits<float>::infinity();

/// The upper three rows of a matrix.
Rows rows(const osg::Matrix& matrix)
{
    Rows result{};
    for (unsigned int row = 0; row < 3; ++row)
        for (unsigned int column = 0; column < 4; ++column)
            result[row][column] = double(matrix[column][row]);
    return result;
}

MATCHER_P2(IsNear, expected, tolerance, "")
{
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            if (!(std::abs(arg[row][column] - expected[row][column]) <= tolerance)) {
                *result_listener << "row " << row << ", column " << column << " is " << arg[row][column]
                                 << ", expected " << expected[row][column];
                return false;
            }
    return true;
}

template<class Vector>
void expectVector(const Vector& actual, double x, double y, double z, double tolerance = 1e-5)
{
    EXPECT_THAT((std::vector<double>{actual[0], actual[1], actual[2]}),
                testing::Pointwise(testing::DoubleNear(tolerance), std::vector<double>{x, y, z}));
}

osg::Quaternion quaternion(float x, float y, float z, float w)
{
    osg::Quaternion q;
    q.setValueAsQuat(x, y, z, w);
    return q;
}

bool sameBits(const osg::Quaternion& a, const osg::Quaternion& b)
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2] && a[3] == b[3];
}

class Transform3D : public testing::Test
{
protected:
    Transform3D() : m_holder(osg::Transform3D::create()), transform(m_holder) {}

    /// Writes inside an edit bracket.
    template<class Write>
    void edit(osg::BitVector mask, Write write)
    {
        osg::beginEditCP(transform, mask);
        write();
        osg::endEditCP(transform, mask);
    }

    void turn(float x, float y, float z)
    {
        edit(Base::EulerRotationFieldMask, [&] { transform->setEulerRotation(osg::Vec3f(x, y, z)); });
    }
    void order(const std::string& text)
    {
        edit(Base::EulerRotationOrderFieldMask, [&] { transform->setEulerRotationOrder(text); });
    }
    void rotationMode(int mode)
    {
        edit(Base::RotationModeFieldMask, [&] { transform->setRotationMode(mode); });
    }
    void turnAsQuaternion(const osg::Quaternion& q)
    {
        edit(Base::RotationFieldMask, [&] { transform->setRotationAsQuaternion(q); });
    }
    void direct(const osg::Vec3f& direction, int mode)
    {
        edit(Base::RotationDirectionFieldMask | Base::RotationDirectionModeFieldMask, [&] {
            transform->setRotationDirection(direction);
            transform->setRotationDirectionMode(mode);
        });
    }

    void expectMatrix(const Rows& expected, double tolerance = 1e-6)
    {
        EXPECT_THAT(rows(transform->getMatrix()), IsNear(expected, tolerance));
    }

private:
    osg::RefPtr<osg::Transform3DPtr> m_holder;

protected:
    osg::Transform3DPtr transform;
};

const Rows identity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
const Rows quarterAboutX{{{1, 0, 0, 0}, {0, 0, -1, 0}, {0, 1, 0, 0}}};
const Rows quarterAboutY{{{0, 0, 1, 0}, {0, 1, 0, 0}, {-1, 0, 0, 0}}};
const Rows quarterAboutZ{{{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}}};

} // namespace

TEST_F(Transform3D, StartsAsTheIdentityWithoutASupposedState)
{
    expectMatrix(identity, 0.);
    EXPECT_EQ(transform->getScale(), osg::Vec3f(1, 1, 1));
    EXPECT_EQ(transform->getEulerRotationOrder(), "XYZ");
    EXPECT_EQ(transform->getRotationMode(), osg::Transform3D::EulerMode);
    EXPECT_EQ(transform->getSupposedState(), -1);
    EXPECT_TRUE(sameBits(transform->getRotation(), quaternion(0, 0, 0, 1)));
}

TEST_F(Transform3D, IsATransformWhoseOwnFieldsStartBehindTheMatrix)
{
    EXPECT_TRUE(transform->getType().isDerivedFrom(osg::Transform::getClassType()));
    EXPECT_EQ(unsigned(Base::TranslationFieldId), unsigned(osg::Transform::NextFieldId));
    EXPECT_EQ(transform->getField("eulerRotationOrder"), transform->getSFEulerRotationOrder());
    EXPECT_EQ(transform->getField("supposedState"), transform->getSFSupposedState());
}

TEST_F(Transform3D, TranslationIsTheLastColumnExactly)
{
    edit(Base::TranslationFieldMask, [&] { transform->setTranslation(osg::Vec3f(0.1f, -2.f, 1e6f)); });
    expectMatrix({{{1, 0, 0, double(0.1f)}, {0, 1, 0, -2}, {0, 0, 1, 1e6}}}, 0.);
}

TEST_F(Transform3D, ScaleIsTheDiagonalExactly)
{
    edit(Base::ScaleFieldMask, [&] { transform->setScale(osg::Vec3f(2, -3, 0)); });
    expectMatrix({{{2, 0, 0, 0}, {0, -3, 0, 0}, {0, 0, 0, 0}}}, 0.);
}

TEST_F(Transform3D, AQuarterTurnAboutEachAxisIsCounterClockwise)
{
    turn(90, 0, 0);
    expectMatrix(quarterAboutX);
    turn(0, 90, 0);
    expectMatrix(quarterAboutY);
    turn(0, 0, 90);
    expectMatrix(quarterAboutZ);
}

TEST_F(Transform3D, TheFirstLetterOfTheOrderIsTurnedAboutFirst)
{
    // Three quarter turns each: every order maps the axes differently.
    const struct
    {
        const char* text;
        Rows matrix;
    } orders[] = {
        {"XYZ", {{{0, 0, 1, 0}, {0, 1, 0, 0}, {-1, 0, 0, 0}}}}, {"XZY", {{{0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, -1, 0}}}},
        {"YXZ", {{{-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 0}}}}, {"YZX", {{{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}}}},
        {"ZXY", {{{1, 0, 0, 0}, {0, 0, -1, 0}, {0, 1, 0, 0}}}}, {"ZYX", {{{0, 0, 1, 0}, {0, -1, 0, 0}, {1, 0, 0, 0}}}}};
    turn(90, 90, 90);
    for (const auto& [text, matrix] : orders) {
        SCOPED_TRACE(text);
        order(text);
        expectMatrix(matrix);
        expectVector(transform->getEulerRotation(), 90, 90, 90, 0);
    }
}

TEST_F(Transform3D, ATextThatIsNoOrderIsKeptAndReadAsXYZ)
{
    turn(90, 90, 90);
    for (const std::string& text :
         {std::string(), std::string("xyz"), std::string("XXZ"), std::string("XY"), std::string("XYZW"),
          std::string("ABC"), std::string(100000, 'X'), std::string("\0YZ", 3)}) {
        order("ZYX");
        order(text);
        EXPECT_EQ(transform->getEulerRotationOrder(), text);
        expectMatrix({{{0, 0, 1, 0}, {0, 1, 0, 0}, {-1, 0, 0, 0}}});
    }
}

TEST_F(Transform3D, AQuaternionGivesTheAnglesThatMakeTheSameRotationInEveryOrder)
{
    for (const char* text : {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"})
        for (const osg::Vec3f& angles : {osg::Vec3f(10, 20, 30), osg::Vec3f(-170, 45, 100), osg::Vec3f(0, 0, -90),
                                         osg::Vec3f(89, -89, 1), osg::Vec3f(-20, -30, -60)}) {
            SCOPED_TRACE(text);
            order(text);
            turn(angles[0], angles[1], angles[2]);
            const Rows matrix = rows(transform->getMatrix());
            const osg::Quaternion q = transform->getRotation();
            turn(0, 0, 0);
            turnAsQuaternion(q);
            EXPECT_THAT(rows(transform->getMatrix()), IsNear(matrix, 1e-6));
            const osg::Vec3f derived = transform->getEulerRotation();
            turn(derived[0], derived[1], derived[2]);
            EXPECT_THAT(rows(transform->getMatrix()), IsNear(matrix, 1e-5));
        }
}

TEST_F(Transform3D, AQuaternionOfSmallAnglesGivesTheseAnglesBack)
{
    for (const char* text : {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"}) {
        SCOPED_TRACE(text);
        order(text);
        turn(10, 20, 30);
        const osg::Quaternion q = transform->getRotation();
        turn(0, 0, 0);
        turnAsQuaternion(q);
        expectVector(transform->getEulerRotation(), 10, 20, 30, 1e-4);
    }
}

TEST_F(Transform3D, AQuaternionThatTheAnglesMakeLeavesThem)
{
    turn(400, -30, 725);
    const osg::Quaternion q = transform->getRotation();
    turnAsQuaternion(q);
    expectVector(transform->getEulerRotation(), 400, -30, 725, 0);
    turnAsQuaternion(quaternion(-q[0], -q[1], -q[2], -q[3]));
    expectVector(transform->getEulerRotation(), 400, -30, 725, 0);
}

TEST_F(Transform3D, WithTheMiddleAxisAtARightAngleTheFirstAxisGetsTheWholeTurn)
{
    const auto turnFromOrigin = [this](const osg::Quaternion& q) {
        turn(0, 0, 0);
        turnAsQuaternion(q);
    };
    turn(30, 90, 0);
    const Rows up = rows(transform->getMatrix());
    turnFromOrigin(osg::Quaternion(transform->getRotation()));
    expectVector(transform->getEulerRotation(), 30, 90, 0, 1e-2);
    EXPECT_THAT(rows(transform->getMatrix()), IsNear(up, 1e-6));

    turn(30, -90, 20);
    const Rows down = rows(transform->getMatrix());
    turnFromOrigin(osg::Quaternion(transform->getRotation()));
    expectVector(transform->getEulerRotation(), 50, -90, 0, 1e-2);
    EXPECT_THAT(rows(transform->getMatrix()), IsNear(down, 1e-6));
}

TEST_F(Transform3D, SettingAQuaternionLeavesTheRotationMode)
{
    for (const int mode : {0, 1, 7, -3}) {
        rotationMode(mode);
        turnAsQuaternion(quaternion(0, 0, 1, 0));
        EXPECT_EQ(transform->getRotationMode(), mode);
    }
}

TEST_F(Transform3D, AQuaternionIsStoredWithUnitLengthAndAUnitOneBitByBit)
{
    turnAsQuaternion(quaternion(0, 0, 5, 5));
    expectMatrix(quarterAboutZ);
    const osg::Quaternion stored = transform->getRotation();
    EXPECT_NEAR(stored.length(), 1.f, 1e-6f);
    turn(1, 2, 3);
    turnAsQuaternion(stored);
    EXPECT_TRUE(sameBits(transform->getRotation(), stored));
}

TEST_F(Transform3D, AQuaternionWithoutARotationChangesNothing)
{
    turn(0, 0, 450);
    const osg::Quaternion before = transform->getRotation();
    for (const osg::Quaternion& q :
         {quaternion(0, 0, 0, 0), quaternion(notANumber, 0, 0, 1), quaternion(0, infinity, 0, 1)}) {
        turnAsQuaternion(q);
        EXPECT_TRUE(sameBits(transform->getRotation(), before));
        expectVector(transform->getEulerRotation(), 0, 0, 450, 0);
        expectMatrix(quarterAboutZ);
    }
}

TEST_F(Transform3D, AnOrderAloneKeepsTheAnglesInEulerModeAndTheRotationInQuaternionMode)
{
    turn(10, 20, 30);
    const Rows before = rows(transform->getMatrix());
    order("ZYX");
    expectVector(transform->getEulerRotation(), 10, 20, 30, 0);
    EXPECT_THAT(rows(transform->getMatrix()), testing::Not(IsNear(before, 1e-2)));

    order("XYZ");
    rotationMode(osg::Transform3D::QuaternionMode);
    order("ZYX");
    EXPECT_THAT(rows(transform->getMatrix()), IsNear(before, 1e-6));
    EXPECT_GT(std::abs(transform->getEulerRotation()[0] - 10.f), 1.f);
    order("XYZ");
    expectVector(transform->getEulerRotation(), 10, 20, 30, 1e-4);
}

TEST_F(Transform3D, WhereAnglesAndQuaternionAreWrittenTogetherTheModeDecides)
{
    const auto writeBoth = [&](int mode) {
        edit(osg::FieldBits::AllFields, [&] {
            transform->setRotationMode(mode);
            transform->setEulerRotation(osg::Vec3f(90, 0, 0));
            transform->setRotationAsQuaternion(quaternion(0, 0, 1, 1));
        });
    };
    writeBoth(osg::Transform3D::EulerMode);
    expectMatrix(quarterAboutX);
    writeBoth(osg::Transform3D::QuaternionMode);
    expectMatrix(quarterAboutZ);
    expectVector(transform->getEulerRotation(), 0, 0, 90);
}

TEST_F(Transform3D, WritingTheAnglesAloneWinsAlsoInQuaternionMode)
{
    rotationMode(osg::Transform3D::QuaternionMode);
    turn(0, 90, 0);
    expectMatrix(quarterAboutY);
}

TEST_F(Transform3D, ShearAddsYAndZToXAndZToYBeforeTheRotation)
{
    edit(Base::ShearFieldMask, [&] { transform->setShear(osg::Vec3f(2, 3, 5)); });
    expectMatrix({{{1, 2, 3, 0}, {0, 1, 5, 0}, {0, 0, 1, 0}}}, 0.);
    edit(Base::ScaleFieldMask, [&] { transform->setScale(osg::Vec3f(7, 11, 13)); });
    expectMatrix({{{7, 22, 39, 0}, {0, 11, 65, 0}, {0, 0, 13, 0}}}, 0.);
    turn(0, 0, 90);
    expectMatrix({{{0, -11, -65, 0}, {7, 22, 39, 0}, {0, 0, 13, 0}}}, 1e-4);
}

TEST_F(Transform3D, ThePivotsStayWhereTheyAreAndTheirTranslationsFollow)
{
    edit(Base::ScaleFieldMask | Base::ScalePivotFieldMask, [&] {
        transform->setScale(osg::Vec3f(2, 2, 2));
        transform->setScalePivot(osg::Vec3f(10, 0, 0));
    });
    expectMatrix({{{2, 0, 0, -10}, {0, 2, 0, 0}, {0, 0, 2, 0}}}, 0.);
    edit(Base::ScalePivotTranslationFieldMask, [&] { transform->setScalePivotTranslation(osg::Vec3f(1, 0, 0)); });
    expectMatrix({{{2, 0, 0, -9}, {0, 2, 0, 0}, {0, 0, 2, 0}}}, 0.);

    // Half a turn about (5, 5): x becomes 10 - x, y becomes 10 - y.
    edit(Base::RotatePivotFieldMask, [&] { transform->setRotatePivot(osg::Vec3f(5, 5, 0)); });
    turn(0, 0, 180);
    expectMatrix({{{-2, 0, 0, 19}, {0, -2, 0, 10}, {0, 0, 2, 0}}}, 1e-5);
    edit(Base::RotatePivotTranslationFieldMask, [&] { transform->setRotatePivotTranslation(osg::Vec3f(0, 0, 3)); });
    edit(Base::TranslationFieldMask, [&] { transform->setTranslation(osg::Vec3f(100, 200, 300)); });
    expectMatrix({{{-2, 0, 0, 119}, {0, -2, 0, 210}, {0, 0, 2, 303}}}, 1e-4);
}

TEST_F(Transform3D, AnOrientationTurnsTheAxesOfTheRotationAndNothingElse)
{
    edit(Base::EulerRotationOrientationFieldMask,
         [&] { transform->setEulerRotationOrientation(osg::Vec3f(0, 90, 0)); });
    expectMatrix(identity);
    // The x axis of the pivot lies where -z was: a quarter turn about it is one about -z.
    turn(90, 0, 0);
    expectMatrix({{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}}});
    // Turned about x, then y, then z, whatever the order of the rotation.
    order("ZYX");
    edit(Base::EulerRotationOrientationFieldMask,
         [&] { transform->setEulerRotationOrientation(osg::Vec3f(90, 90, 0)); });
    expectVector(transform->getOrientationAxis(1), 1, 0, 0);
    expectVector(transform->getOrientationAxis(2), 0, -1, 0);
}

TEST_F(Transform3D, ADirectionReplacesTheAnglesOfTheOrientationUntilItIsZero)
{
    edit(Base::EulerRotationOrientationFieldMask,
         [&] { transform->setEulerRotationOrientation(osg::Vec3f(0, 90, 0)); });
    turn(90, 0, 0);
    direct(osg::Vec3f(0, 5, 0), 0); // x axis of the pivot along y
    expectMatrix(quarterAboutY);
    direct(osg::Vec3f(0, 0, 0), 0);
    expectMatrix({{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}}});
}

TEST_F(Transform3D, TheModeOfADirectionNamesTheAxisThatPointsThere)
{
    for (const int mode : {0, 1, 2}) {
        SCOPED_TRACE(mode);
        direct(osg::Vec3f(1, 2, 2), mode);
        expectVector(transform->getOrientationAxis(mode), 1. / 3, 2. / 3, 2. / 3);
        osg::Vec3f opposite(0, 0, 0);
        opposite[unsigned(mode)] = -4;
        direct(opposite, mode);
        opposite[unsigned(mode)] = -1;
        expectVector(transform->getOrientationAxis(mode), opposite[0], opposite[1], opposite[2]);
    }
    direct(osg::Vec3f(1, 2, 2), 17);
    expectVector(transform->getOrientationAxis(0), 1. / 3, 2. / 3, 2. / 3);
    expectVector(transform->getOrientationAxis(3), 0, 0, 0);
    expectVector(transform->getOrientationAxis(-1), 0, 0, 0);
}

TEST_F(Transform3D, ADirectionIsValidWhenItIsFiniteAndNotZero)
{
    osg::Vec3f direction;
    osg::Int32 mode = 0;
    direct(osg::Vec3f(0, 0, -3), 2);
    EXPECT_TRUE(transform->getRotationDirectionValues(direction, mode));
    expectVector(direction, 0, 0, -3, 0);
    EXPECT_EQ(mode, 2);
    for (const osg::Vec3f& none : {osg::Vec3f(0, 0, 0), osg::Vec3f(notANumber, 1, 0), osg::Vec3f(1, infinity, 0)}) {
        direct(none, 1);
        EXPECT_FALSE(transform->getRotationDirectionValues(direction, mode));
        EXPECT_EQ(mode, 1);
        turn(90, 0, 0);
        expectMatrix(quarterAboutX);
    }
}

TEST_F(Transform3D, IsTheProductOfItsParts)
{
    // The same chain with one matrix per part, multiplied out.
    using Matrix4 = std::array<std::array<double, 4>, 4>;
    const auto unit = [] { return Matrix4{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}; };
    const auto product = [](const std::vector<Matrix4>& factors) {
        Matrix4 result = factors.front();
        for (std::size_t i = 1; i < factors.size(); ++i) {
            Matrix4 next{};
            for (std::size_t row = 0; row < 4; ++row)
                for (std::size_t column = 0; column < 4; ++column)
                    for (std::size_t k = 0; k < 4; ++k)
                        next[row][column] += result[row][k] * factors[i][k][column];
            result = next;
        }
        return result;
    };
    const auto shift = [&](const osg::Vec3f& by, double sign = 1) {
        Matrix4 m = unit();
        for (unsigned int row = 0; row < 3; ++row)
            m[row][3] = sign * by[row];
        return m;
    };
    const auto about = [&](std::size_t axis, double degrees) {
        Matrix4 m = unit();
        const double angle = degrees * std::acos(-1.) / 180.;
        const std::size_t a = (axis + 1) % 3;
        const std::size_t b = (axis + 2) % 3;
        m[a][a] = m[b][b] = std::cos(angle);
        m[b][a] = std::sin(angle);
        m[a][b] = -std::sin(angle);
        return m;
    };

    const osg::Vec3f t(1, -2, 3), o(15, -25, 35), r(40, 50, 60), p(2, 3, -4), pt(-1, 0.5f, 2), s(2, 0.5f, -3),
        sp(7, 8, 9), st(0.25f, -6, 1), h(0.1f, 0.2f, -0.3f);
    edit(osg::FieldBits::AllFields, [&] {
        transform->setTranslation(t);
        transform->setEulerRotationOrientation(o);
        transform->setEulerRotation(r);
        transform->setEulerRotationOrder("ZXY");
        transform->setRotatePivot(p);
        transform->setRotatePivotTranslation(pt);
        transform->setScale(s);
        transform->setScalePivot(sp);
        transform->setScalePivotTranslation(st);
        transform->setShear(h);
    });
    Matrix4 scale = unit();
    Matrix4 shear = unit();
    for (unsigned int i = 0; i < 3; ++i)
        scale[i][i] = s[i];
    shear[0][1] = h[0];
    shear[0][2] = h[1];
    shear[1][2] = h[2];
    const Matrix4 orientation = product({about(2, o[2]), about(1, o[1]), about(0, o[0])});
    const Matrix4 back = product({about(0, -o[0]), about(1, -o[1]), about(2, -o[2])});
    const Matrix4 rotation = product({about(1, r[1]), about(0, r[0]), about(2, r[2])});
    const Matrix4 whole = product({shift(t), shift(pt), shift(p), orientation, rotation, back, shift(p, -1), shift(st),
                                   shift(sp), shear, scale, shift(sp, -1)});
    expectMatrix({whole[0], whole[1], whole[2]}, 1e-5);

    // What the pivots say of themselves: the scale pivot is where the matrix takes it.
    osg::Pnt3f image;
    transform->getMatrix().multMatrixPnt(osg::Pnt3f(sp[0], sp[1], sp[2]), image);
    expectVector(transform->getScalePivotInParent(), image[0], image[1], image[2], 1e-4);
    expectVector(transform->getRotatePivotInParent(), t[0] + pt[0] + p[0], t[1] + pt[1] + p[1], t[2] + pt[2] + p[2]);
}

TEST_F(Transform3D, APivotThatIsPutAtAPlaceInTheParentIsFoundThere)
{
    edit(osg::FieldBits::AllFields, [&] {
        transform->setTranslation(osg::Vec3f(1, 2, 3));
        transform->setEulerRotation(osg::Vec3f(30, 40, 50));
        transform->setEulerRotationOrientation(osg::Vec3f(5, 6, 7));
        transform->setRotatePivot(osg::Vec3f(-1, 4, 2));
        transform->setRotatePivotTranslation(osg::Vec3f(3, 0, 1));
        transform->setScale(osg::Vec3f(2, 3, 4));
        transform->setScalePivotTranslation(osg::Vec3f(-2, 5, 0));
    });
    edit(Base::ScalePivotFieldMask, [&] { transform->setScalePivotInParent(osg::Vec3d(11, -12, 13)); });
    expectVector(transform->getScalePivotInParent(), 11, -12, 13);
    edit(Base::RotatePivotFieldMask, [&] { transform->setRotatePivotInParent(osg::Vec3d(-7, 8, 9)); });
    expectVector(transform->getRotatePivotInParent(), -7, 8, 9);
}

TEST_F(Transform3D, IsWholeAgainAfterComponentsThatAreNotFinite)
{
    for (const float bad : {notANumber, infinity, -infinity, std::numeric_limits<float>::max()}) {
        const osg::Vec3f v(bad, bad, bad);
        edit(osg::FieldBits::AllFields, [&] {
            transform->setTranslation(v);
            transform->setEulerRotation(v);
            transform->setEulerRotationOrientation(v);
            transform->setRotationDirection(v);
            transform->setRotatePivot(v);
            transform->setScale(v);
            transform->setScalePivot(v);
            transform->setShear(v);
        });
        const osg::Vec3f zero(0, 0, 0);
        edit(osg::FieldBits::AllFields, [&] {
            transform->setTranslation(zero);
            transform->setEulerRotation(zero);
            transform->setEulerRotationOrientation(zero);
            transform->setRotationDirection(zero);
            transform->setRotatePivot(zero);
            transform->setScale(osg::Vec3f(1, 1, 1));
            transform->setScalePivot(zero);
            transform->setShear(zero);
        });
        expectMatrix(identity, 0.);
    }
}

TEST_F(Transform3D, AMatrixThatIsWrittenIntoTheFieldGivesWayToTheComponents)
{
    edit(Base::TranslationFieldMask, [&] { transform->setTranslation(osg::Vec3f(1, 2, 3)); });
    edit(osg::Transform::MatrixFieldMask, [&] { transform->getSFMatrix()->getValue().setTranslate(9, 9, 9); });
    expectMatrix({{{1, 0, 0, 1}, {0, 1, 0, 2}, {0, 0, 1, 3}}}, 0.);
}

TEST_F(Transform3D, AnEditOfTheSupposedStateLeavesMatrixAndVolumesAlone)
{
    const osg::NodePtr node = osg::makeNodeFor(transform);
    const osg::RefPtr<osg::NodePtr> holder(node);
    node->updateVolume();
    ASSERT_TRUE(node->getVolume().isValid());
    edit(Base::SupposedStateFieldMask, [&] { transform->setSupposedState(4); });
    EXPECT_TRUE(node->getVolume().isValid());
    edit(Base::ShearFieldMask, [&] { transform->setShear(osg::Vec3f(1, 0, 0)); });
    EXPECT_FALSE(node->getVolume().isValid());
}
