#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

using Base = osg::Transform3DBase;

namespace {

osg::NodePtr transformNode()
{
    return osg::makeNodeFor(osg::Transform3D::create());
}

void expectVector(const osg::Vec3f& actual, double x, double y, double z, double tolerance = 0.)
{
    EXPECT_THAT((std::vector<double>{actual[0], actual[1], actual[2]}),
                testing::Pointwise(testing::DoubleNear(tolerance), std::vector<double>{x, y, z}));
}

using Edits = std::vector<std::pair<unsigned int, osg::BitVector>>;

/// The edits (container id, mask) that a function makes.
Edits editsOf(const std::function<void()>& function)
{
    osg::ChangeList& list = *osg::Thread::getCurrentChangeList();
    list.clearAll();
    list.setReadOnly(false);
    function();
    list.setReadOnly(true);
    const Edits edits(list.beginChanged(), list.endChanged());
    list.clearAll();
    return edits;
}

/// One row per component: how to read and write it, what is read where there is none, and the field.
struct Component
{
    const char* name;
    std::function<osg::Vec3f(const osg::NodePtr&, int)> get;
    std::function<void(const osg::NodePtr&, float, float, float, int)> set;
    float defaultValue;
    osg::BitVector mask;
};

using namespace moNodeUtils;

// clang-format off
const std::vector<Component> components{
    {"translation",            [](auto& n, int i) { return getTransformNodeTranslation(n, false, i); },       [](auto& n, float x, float y, float z, int i) { setTransformNodeTranslation(n, x, y, z, false, i); },                0, Base::TranslationFieldMask},
    {"rotation",               [](auto& n, int i) { return getTransformNodeRotation(n, i); },                 [](auto& n, float x, float y, float z, int i) { setTransformNodeRotation(n, x, y, z, i); },                          0, Base::EulerRotationFieldMask},
    {"scale",                  [](auto& n, int i) { return getTransformNodeScale(n, i); },                    [](auto& n, float x, float y, float z, int i) { setTransformNodeScale(n, x, y, z, i); },                             1, Base::ScaleFieldMask},
    {"scalePivot",             [](auto& n, int i) { return getTransformNodeScalePivot(n, false, i); },        [](auto& n, float x, float y, float z, int i) { setTransformNodeScalePivot(n, x, y, z, false, i); },                 0, Base::ScalePivotFieldMask},
    {"rotatePivot",            [](auto& n, int i) { return getTransformNodeRotatePivot(n, false, i); },       [](auto& n, float x, float y, float z, int i) { setTransformNodeRotatePivot(n, x, y, z, false, i); },                0, Base::RotatePivotFieldMask},
    {"scalePivotTranslation",  [](auto& n, int i) { return getTransformNodeScalePivotTranslation(n, i); },    [](auto& n, float x, float y, float z, int i) { setTransformNodeScalePivotTranslation(n, x, y, z, i); },             0, Base::ScalePivotTranslationFieldMask},
    {"rotatePivotTranslation", [](auto& n, int i) { return getTransformNodeRotatePivotTranslation(n, i); },   [](auto& n, float x, float y, float z, int i) { setTransformNodeRotatePivotTranslation(n, x, y, z, i); },            0, Base::RotatePivotTranslationFieldMask},
    {"rotationOrientation",    [](auto& n, int i) { return getTransformNodeRotationOrientation(n, i); },      [](auto& n, float x, float y, float z, int i) { setTransformNodeRotationOrientation(n, x, y, z, i); },               0, Base::EulerRotationOrientationFieldMask},
    {"rotationDirection",      [](auto& n, int i) { return getTransformNodeRotationDirection(n, i, -1); },    [](auto& n, float x, float y, float z, int i) { setTransformNodeRotationDirection(n, x, y, z, 0, false, i); },       0, Base::RotationDirectionFieldMask | Base::RotationDirectionModeFieldMask},
};
// clang-format on

class moNodeUtilsTest : public testing::Test
{
protected:
    void TearDown() override
    {
        for (osg::NodePtr root : m_roots)
            osg::subRefCP(root);
    }

    /// Kept until the end of the test.
    osg::NodePtr keep(const osg::NodePtr& root)
    {
        osg::addRefCP(root);
        m_roots.push_back(root);
        return root;
    }

    osg::TransformVariantPtr addVariant(const osg::NodePtr& node, const std::string& name)
    {
        createTransformVariantsAttachment(node);
        const auto variant = moTransformVariantUtils::recordTransformVariant(getTransform3D(node, -1), name);
        insertTransformVariant(node, getTransformVariantCount(node), variant);
        return variant;
    }

    /// What has no transform to speak of.
    std::vector<std::pair<osg::NodePtr, int>> withoutTransform()
    {
        const osg::NodePtr listed = keep(transformNode());
        addVariant(listed, "A");
        insertTransformVariant(listed, 1, osg::TransformVariant::create()); // no core of its own
        return {{osg::NodePtr(), -1},
                {keep(osg::Node::create()), -1},
                {keep(osg::makeNodeFor(osg::Group::create())), -1},
                {keep(osg::makeNodeFor(osg::Transform::create())), -1},
                {keep(transformNode()), 0},
                {listed, -2},
                {listed, 1},
                {listed, 2},
                {listed, std::numeric_limits<int>::max()},
                {listed, std::numeric_limits<int>::min()}};
    }

private:
    std::vector<osg::NodePtr> m_roots;
};

} // namespace

TEST_F(moNodeUtilsTest, ANodeWithoutANameAndNullHaveNoName)
{
    const osg::NodePtr node = keep(osg::Node::create());
    EXPECT_EQ(moNodeUtils::getName(node), nullptr);
    EXPECT_EQ(moNodeUtils::getName(osg::NullFC), nullptr);
    osg::setName(node, "Box");
    EXPECT_STREQ(moNodeUtils::getName(node), "Box");
}

TEST_F(moNodeUtilsTest, ParentsAreAllAncestorsButNotTheNodeItself)
{
    const osg::NodePtr top = keep(osg::Node::create());
    const osg::NodePtr middle = osg::Node::create();
    const osg::NodePtr bottom = osg::Node::create();
    const osg::NodePtr sibling = osg::Node::create();
    top->addChild(middle);
    top->addChild(sibling);
    middle->addChild(bottom);
    EXPECT_TRUE(hasParent(bottom, middle));
    EXPECT_TRUE(hasParent(bottom, top));
    EXPECT_FALSE(hasParent(bottom, sibling));
    EXPECT_FALSE(hasParent(top, bottom));
    EXPECT_FALSE(hasParent(bottom, bottom));
    EXPECT_FALSE(hasParent(bottom, osg::NullFC));
    EXPECT_FALSE(hasParent(osg::NullFC, top));
    EXPECT_FALSE(hasParent(top, osg::NullFC));
    EXPECT_FALSE(hasParent(osg::NullFC, osg::NullFC));
}

TEST_F(moNodeUtilsTest, ATransformIsTheNodesOwnCoreOrThatOfAVariant)
{
    const osg::NodePtr node = keep(transformNode());
    EXPECT_EQ(findTransform(node), node);
    EXPECT_EQ(getTransform3D(node, -1), node->getCore());
    const osg::TransformVariantPtr variant = addVariant(node, "A");
    EXPECT_EQ(getTransform3D(node, 0), variant->getTransform());
    EXPECT_NE(getTransform3D(node, 0), getTransform3D(node, -1));
    for (const auto& [other, index] : withoutTransform())
        EXPECT_EQ(getTransform3D(other, index), osg::NullFC);
}

TEST_F(moNodeUtilsTest, TheTransformOfAParentIsNotThatOfTheChild)
{
    const osg::NodePtr parent = keep(transformNode());
    const osg::NodePtr child = osg::makeNodeFor(osg::Group::create());
    parent->addChild(child);
    EXPECT_EQ(findTransform(child), osg::NullFC);
    EXPECT_EQ(findTransform(osg::NullFC), osg::NullFC);
    EXPECT_EQ(findTransform(keep(osg::Node::create())), osg::NullFC);
}

TEST_F(moNodeUtilsTest, WhereThereIsNoTransformGettersAnswerTheDefaultAndSettersEditNothing)
{
    for (const auto& [node, index] : withoutTransform())
        for (const Component& component : components) {
            SCOPED_TRACE(component.name + std::string(" at ") + std::to_string(index));
            const float d = component.defaultValue;
            EXPECT_EQ(editsOf([&, n = node, i = index] { component.set(n, 7, 8, 9, i); }), Edits());
            expectVector(component.get(node, index), d, d, d);
        }
    for (const auto& [node, index] : withoutTransform()) {
        setTransformNodeEulerRotationOrder(node, "ZYX", index);
        EXPECT_EQ(getTransformNodeEulerRotationOrder(node, index), "XYZ");
        expectVector(getTransformNodeTranslation(node, true, index), 0, 0, 0);
        expectVector(getTransformNodeRotatePivot(node, true, index), 0, 0, 0);
        expectVector(getTransformNodeScalePivot(node, true, index), 0, 0, 0);
        expectVector(getTransformNodeRotationDirection(node, index, 1), 0, 0, 0);
        const osg::Vec3f v(1, 2, 3);
        EXPECT_EQ(editsOf([&, n = node, i = index] {
                      setTransformNodeTranslation(n, 1, 2, 3, true, i);
                      setTransformNodeValues(n, v, v, v, v, v, v, v, v, 1, "ZYX", true, v, 1, i);
                  }),
                  Edits());
    }
}

TEST_F(moNodeUtilsTest, EachComponentIsWrittenInOneEditOfItsOwnField)
{
    const osg::NodePtr node = keep(transformNode());
    addVariant(node, "A");
    for (const int index : {-1, 0})
        for (const Component& component : components) {
            SCOPED_TRACE(component.name);
            const unsigned int coreId = getTransform3D(node, index).getFieldContainerId();
            const Edits edits = editsOf([&] { component.set(node, 1, 2, 3, index); });
            EXPECT_THAT(edits, testing::Contains(testing::Pair(coreId, component.mask)).Times(1));
            expectVector(component.get(node, index), 1, 2, 3);
        }
}

TEST_F(moNodeUtilsTest, AVariantIsEditedWithoutTheLiveTransformAndTheOtherWayRound)
{
    const osg::NodePtr node = keep(transformNode());
    addVariant(node, "A");
    addVariant(node, "B");
    for (const Component& component : components) {
        SCOPED_TRACE(component.name);
        for (int index = -1; index < 2; ++index)
            component.set(node, float(index), 20, 30, index);
        for (int index = -1; index < 2; ++index)
            expectVector(component.get(node, index), index, 20, 30);
    }
}

TEST_F(moNodeUtilsTest, ShearIsThatOfTheNodesOwnTransform)
{
    const osg::NodePtr node = keep(transformNode());
    addVariant(node, "A");
    setTransformNodeShear(node, 1, 2, 3);
    expectVector(getTransformNodeShear(node), 1, 2, 3);
    expectVector(getTransform3D(node, 0)->getShear(), 0, 0, 0);
    expectVector(getTransformNodeShear(osg::NullFC), 0, 0, 0);
    setTransformNodeShear(osg::NullFC, 1, 2, 3);
}

TEST_F(moNodeUtilsTest, TheRotationOrderIsKeptAsTextAlsoWhenItIsNone)
{
    const osg::NodePtr node = keep(transformNode());
    for (const std::string& text :
         {std::string("ZYX"), std::string(), std::string("sideways"), std::string(10000, 'X')}) {
        setTransformNodeEulerRotationOrder(node, text, -1);
        EXPECT_EQ(getTransformNodeEulerRotationOrder(node, -1), text);
    }
}

TEST_F(moNodeUtilsTest, ATransformIsTheIdentityWhenItsMatrixIs)
{
    const osg::NodePtr node = keep(transformNode());
    EXPECT_TRUE(isTransformNodeIdentity(node));
    setTransformNodeRotatePivot(node, 5, 6, 7, false, -1);
    EXPECT_TRUE(isTransformNodeIdentity(node));
    setTransformNodeRotation(node, 360, 0, 0, -1);
    EXPECT_TRUE(isTransformNodeIdentity(node));
    setTransformNodeTranslation(node, 0, 0, 0.001f, false, -1);
    EXPECT_FALSE(isTransformNodeIdentity(node));
    setTransformNodeTranslation(node, 0, 0, 0, false, -1);
    setTransformNodeScale(node, std::numeric_limits<float>::quiet_NaN(), 1, 1, -1);
    EXPECT_FALSE(isTransformNodeIdentity(node));
    EXPECT_TRUE(isTransformNodeIdentity(osg::NullFC));
    EXPECT_TRUE(isTransformNodeIdentity(keep(osg::makeNodeFor(osg::Group::create()))));
}

TEST_F(moNodeUtilsTest, InWorldSpaceTheTranslationIsAPointOfTheWorld)
{
    // The parent stands at (10, 0, 0), doubles everything and turns x to y.
    const osg::NodePtr parent = keep(transformNode());
    const osg::NodePtr node = transformNode();
    parent->addChild(node);
    setTransformNodeTranslation(parent, 10, 0, 0, false, -1);
    setTransformNodeRotation(parent, 0, 0, 90, -1);
    setTransformNodeScale(parent, 2, 2, 2, -1);

    setTransformNodeTranslation(node, 1, 0, 0, false, -1);
    expectVector(getTransformNodeTranslation(node, true, -1), 10, 2, 0, 1e-6);
    setTransformNodeTranslation(node, 10, 6, 4, true, -1);
    expectVector(getTransformNodeTranslation(node, false, -1), 3, 0, 2, 1e-6);
    const osg::Matrix world = node->getToWorld();
    expectVector(osg::Vec3f(world[3][0], world[3][1], world[3][2]), 10, 6, 4, 1e-5);
}

TEST_F(moNodeUtilsTest, AVariantIsSeenBelowTheSameParentsAsTheNode)
{
    const osg::NodePtr parent = keep(transformNode());
    const osg::NodePtr node = transformNode();
    parent->addChild(node);
    addVariant(node, "A");
    setTransformNodeTranslation(parent, 10, 0, 0, false, -1);
    setTransformNodeTranslation(node, 11, 12, 13, true, 0);
    expectVector(getTransformNodeTranslation(node, false, 0), 1, 12, 13);
    expectVector(getTransformNodeTranslation(node, true, 0), 11, 12, 13);
    expectVector(getTransformNodeTranslation(node, true, -1), 10, 0, 0);
}

TEST_F(moNodeUtilsTest, InWorldSpaceAPivotIsAPointOfTheWorld)
{
    const osg::NodePtr parent = keep(transformNode());
    const osg::NodePtr node = transformNode();
    parent->addChild(node);
    setTransformNodeTranslation(parent, 1, 2, 3, false, -1);
    setTransformNodeRotation(parent, 10, 20, 30, -1);
    setTransformNodeScale(parent, 2, 0.5f, 3, -1);
    setTransformNodeTranslation(node, 4, 5, 6, false, -1);
    setTransformNodeRotation(node, 40, 50, 60, -1);
    setTransformNodeScale(node, 3, 2, 5, -1);
    setTransformNodeScalePivotTranslation(node, 1, -1, 2, -1);
    setTransformNodeRotatePivotTranslation(node, 0, 3, -2, -1);

    setTransformNodeScalePivot(node, 7, 8, 9, true, -1);
    expectVector(getTransformNodeScalePivot(node, true, -1), 7, 8, 9, 1e-4);
    // The scale pivot lies where the node's matrix takes it.
    const osg::Vec3f local = getTransformNodeScalePivot(node, false, -1);
    osg::Pnt3f world;
    node->getToWorld().multMatrixPnt(osg::Pnt3f(local[0], local[1], local[2]), world);
    expectVector(osg::Vec3f(world[0], world[1], world[2]), 7, 8, 9, 1e-4);

    setTransformNodeRotatePivot(node, -7, 1, 2, true, -1);
    expectVector(getTransformNodeRotatePivot(node, true, -1), -7, 1, 2, 1e-4);
    // Turning leaves that place alone.
    setTransformNodeRotation(node, -15, 25, 35, -1);
    expectVector(getTransformNodeRotatePivot(node, true, -1), -7, 1, 2, 1e-4);
}

TEST_F(moNodeUtilsTest, BelowParentsThatFlattenSpaceAPlaceInTheWorldCannotBeSet)
{
    const osg::NodePtr parent = keep(transformNode());
    const osg::NodePtr node = transformNode();
    parent->addChild(node);
    setTransformNodeTranslation(node, 1, 2, 3, false, -1);
    for (const float flat : {0.f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        setTransformNodeScale(parent, 1, flat, 1, -1);
        setTransformNodeTranslation(node, 7, 8, 9, true, -1);
        setTransformNodeScalePivot(node, 7, 8, 9, true, -1);
        setTransformNodeRotatePivot(node, 7, 8, 9, true, -1);
        expectVector(getTransformNodeTranslation(node, false, -1), 1, 2, 3);
        expectVector(getTransformNodeScalePivot(node, false, -1), 0, 0, 0);
        expectVector(getTransformNodeRotatePivot(node, false, -1), 0, 0, 0);
    }
}

TEST_F(moNodeUtilsTest, WithoutParentsTheWorldIsTheNodesOwnParentSpace)
{
    const osg::NodePtr node = keep(transformNode());
    setTransformNodeTranslation(node, 0.1f, 1e-20f, -1e20f, true, -1);
    expectVector(getTransformNodeTranslation(node, false, -1), double(0.1f), double(1e-20f), double(-1e20f));
    expectVector(getTransformNodeTranslation(node, true, -1), double(0.1f), double(1e-20f), double(-1e20f));
}

/// The components that can be placed in the world.
struct Placeable
{
    const char* name;
    std::function<osg::Vec3f(const osg::NodePtr&, bool, int)> get;
    std::function<void(const osg::NodePtr&, float, float, float, bool, int)> set;
};

const std::vector<Placeable> placeables{
    {"translation", getTransformNodeTranslation, setTransformNodeTranslation},
    {"scalePivot", getTransformNodeScalePivot, setTransformNodeScalePivot},
    {"rotatePivot", getTransformNodeRotatePivot, setTransformNodeRotatePivot},
};

void pose(const osg::NodePtr& node, std::mt19937& random)
{
    const auto number = [&random](float lowest, float highest) {
        return std::uniform_real_distribution<float>(lowest, highest)(random);
    };
    const auto set = [&](auto setter, float lowest, float highest) {
        setter(node, number(lowest, highest), number(lowest, highest), number(lowest, highest));
    };
    set([](auto& n, float x, float y, float z) { setTransformNodeTranslation(n, x, y, z, false, -1); }, -100, 100);
    set([](auto& n, float x, float y, float z) { setTransformNodeRotation(n, x, y, z, -1); }, -180, 180);
    set([](auto& n, float x, float y, float z) { setTransformNodeScale(n, x, y, z, -1); }, 0.3f, 3);
    set([](auto& n, float x, float y, float z) { setTransformNodeShear(n, x, y, z); }, -0.5f, 0.5f);
    set([](auto& n, float x, float y, float z) { setTransformNodeRotatePivot(n, x, y, z, false, -1); }, -10, 10);
    set([](auto& n, float x, float y, float z) { setTransformNodeScalePivot(n, x, y, z, false, -1); }, -10, 10);
    set([](auto& n, float x, float y, float z) { setTransformNodeRotatePivotTranslation(n, x, y, z, -1); }, -10, 10);
    set([](auto& n, float x, float y, float z) { setTransformNodeScalePivotTranslation(n, x, y, z, -1); }, -10, 10);
}

// What undo and redo do a hundred times: read the place, write the other one.
TEST_F(moNodeUtilsTest, AHundredExchangesOfTwoPlacesInTheWorldDoNotDrift)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<float> place(-100, 100);
    for (int i = 0; i < 60; ++i) {
        const osg::NodePtr root = keep(transformNode());
        osg::NodePtr node = root;
        pose(node, random);
        for (int depth = 0; depth < 3; ++depth) {
            const osg::NodePtr child = transformNode();
            node->addChild(child);
            node = child;
            pose(node, random);
        }
        addVariant(node, "A");
        for (const Placeable& placeable : placeables) {
            for (const int variantIndex : {-1, 0}) {
                SCOPED_TRACE(placeable.name);
                const osg::Vec3f first = placeable.get(node, false, variantIndex);
                const osg::Vec3f firstPlace = placeable.get(node, true, variantIndex);
                osg::Vec3f kept(place(random), place(random), place(random));
                for (int round = 0; round < 200; ++round) {
                    const osg::Vec3f before = placeable.get(node, true, variantIndex);
                    placeable.set(node, kept[0], kept[1], kept[2], true, variantIndex);
                    kept = before;
                }
                const auto tolerance = [](const osg::Vec3f& value) { return 1e-5f * value.length(); };
                EXPECT_LT((placeable.get(node, true, variantIndex) - firstPlace).length(), tolerance(firstPlace));
                EXPECT_LT((placeable.get(node, false, variantIndex) - first).length(),
                          tolerance(first) + tolerance(firstPlace));
            }
        }
    }
}

TEST_F(moNodeUtilsTest, AFarWayOutAndBackCostsAPlaceInTheWorldNoDigits)
{
    const osg::NodePtr root = keep(transformNode());
    const osg::NodePtr parent = transformNode();
    const osg::NodePtr node = transformNode();
    root->addChild(parent);
    parent->addChild(node);
    setTransformNodeTranslation(root, -1e7f, 3e7f, 0, false, -1);
    setTransformNodeTranslation(parent, 0.7f, 0.3f, -5e7f, false, -1);
    setTransformNodeTranslation(node, 1e7f, -3e7f, 5e7f, false, -1);
    expectVector(getTransformNodeTranslation(node, true, -1), 0.7, 0.3, 0, 1e-7);

    for (const Placeable& pivot : {placeables[1], placeables[2]}) {
        SCOPED_TRACE(pivot.name);
        pivot.set(node, 0.1f, 0.2f, 0.4f, false, -1);
        expectVector(pivot.get(node, true, -1), 0.8, 0.5, 0.4, 1e-7);
        pivot.set(node, 8, 9, 10, true, -1);
        expectVector(pivot.get(node, false, -1), 7.3, 8.7, 10, 1e-6);
        pivot.set(node, 0, 0, 0, false, -1);
    }
}

TEST_F(moNodeUtilsTest, ADirectionIsStoredAsGivenOrWithLengthOneAndAskedForByAxis)
{
    const osg::NodePtr node = keep(transformNode());
    setTransformNodeRotationDirection(node, 0, 3, 4, 1, false, -1);
    expectVector(getTransformNodeRotationDirection(node, -1, -1), 0, 3, 4);
    expectVector(getTransformNodeRotationDirection(node, -1, 1), 0, 0.6, 0.8, 1e-6);
    expectVector(getTransformNodeRotationDirection(node, -1, 0), 1, 0, 0, 1e-6);
    expectVector(getTransformNodeRotationDirection(node, -1, 2), 0, -0.8, 0.6, 1e-6);
    expectVector(getTransformNodeRotationDirection(node, -1, 3), 0, 0, 0);
    setTransformNodeRotationDirection(node, 0, 3, 4, 1, true, -1);
    expectVector(getTransformNodeRotationDirection(node, -1, -1), 0, 0.6, 0.8, 1e-7);
}

TEST_F(moNodeUtilsTest, AModeThatIsNoAxisKeepsTheOneThatIsStored)
{
    const osg::NodePtr node = keep(transformNode());
    setTransformNodeRotationDirection(node, 0, 1, 0, 2, false, -1);
    for (const int mode : {-1, 3, 1000, -5}) {
        setTransformNodeRotationDirection(node, 1, 0, 0, mode, false, -1);
        EXPECT_EQ(getTransform3D(node, -1)->getRotationDirectionMode(), 2);
    }
}

TEST_F(moNodeUtilsTest, ADirectionWithoutLengthIsStoredAsItIsAlsoWhenItShouldHaveLengthOne)
{
    const osg::NodePtr node = keep(transformNode());
    setTransformNodeRotationDirection(node, 1, 0, 0, 0, true, -1);
    setTransformNodeRotationDirection(node, 0, 0, 0, 0, true, -1);
    expectVector(getTransformNodeRotationDirection(node, -1, -1), 0, 0, 0);
    setTransformNodeRotationDirection(node, std::numeric_limits<float>::infinity(), 0, 0, 0, true, -1);
    expectVector(getTransformNodeRotationDirection(node, -1, 0), 1, 0, 0);
}

TEST_F(moNodeUtilsTest, AllValuesAreWrittenInOneEdit)
{
    const osg::NodePtr node = keep(transformNode());
    const osg::Transform3DPtr core = getTransform3D(node, -1);
    setTransformNodeShear(node, 1, 1, 1);
    const auto v = [](float x) { return osg::Vec3f(x, x + 1, x + 2); };
    const osg::BitVector mask =
        Base::TranslationFieldMask | Base::EulerRotationOrientationFieldMask | Base::EulerRotationFieldMask |
        Base::RotatePivotFieldMask | Base::RotatePivotTranslationFieldMask | Base::ScaleFieldMask |
        Base::ScalePivotFieldMask | Base::ScalePivotTranslationFieldMask | Base::RotationModeFieldMask |
        Base::EulerRotationOrderFieldMask | Base::RotationDirectionFieldMask | Base::RotationDirectionModeFieldMask;
    const Edits edits = editsOf([&] {
        setTransformNodeValues(node, v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), 1, "YZX", true, v(9), 2, -1);
    });
    EXPECT_THAT(edits, testing::Contains(testing::Pair(core.getFieldContainerId(), mask)).Times(1));
    expectVector(core->getTranslation(), 1, 2, 3);
    expectVector(core->getEulerRotationOrientation(), 2, 3, 4);
    expectVector(core->getEulerRotation(), 3, 4, 5);
    expectVector(core->getRotatePivot(), 4, 5, 6);
    expectVector(core->getRotatePivotTranslation(), 5, 6, 7);
    expectVector(core->getScale(), 6, 7, 8);
    expectVector(core->getScalePivot(), 7, 8, 9);
    expectVector(core->getScalePivotTranslation(), 8, 9, 10);
    EXPECT_EQ(core->getRotationMode(), 1);
    EXPECT_EQ(core->getEulerRotationOrder(), "YZX");
    expectVector(core->getRotationDirection(), 9, 10, 11);
    EXPECT_EQ(core->getRotationDirectionMode(), 2);
    expectVector(core->getShear(), 1, 1, 1);
    setTransformNodeValues(node, v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), 1, "YZX", false, v(9), 1, -1);
    expectVector(core->getRotationDirection(), 0, 0, 0);
    EXPECT_EQ(core->getRotationDirectionMode(), 1);
    const osg::Vec3f infinite(std::numeric_limits<float>::infinity(), 0, 0); // never in force
    setTransformNodeValues(node, v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), 1, "YZX", false, infinite, 1, -1);
    EXPECT_EQ(core->getRotationDirection()[0], infinite[0]);
}

TEST_F(moNodeUtilsTest, TheListOfVariantsHangsOnTheNode)
{
    const osg::NodePtr node = keep(osg::Node::create());
    EXPECT_EQ(getTransformVariantsAttachment(node), osg::NullFC);
    EXPECT_EQ(getTransformVariantCount(node), 0u);
    osg::TransformVariantsAttachmentPtr list;
    EXPECT_EQ(editsOf([&] { list = createTransformVariantsAttachment(node); }).back(),
              std::make_pair(node.getFieldContainerId(), osg::BitVector(osg::Node::AttachmentsFieldMask)));
    EXPECT_EQ(getTransformVariantsAttachment(node), list);
    EXPECT_EQ(createTransformVariantsAttachment(node), list);
    EXPECT_EQ(list.getRefCount(), 1);

    const osg::RefPtr<osg::TransformVariantsAttachmentPtr> other(osg::TransformVariantsAttachment::create());
    setTransformVariantsAttachment(node, other.get());
    EXPECT_EQ(getTransformVariantsAttachment(node), other.get());
    removeTransformVariantsAttachment(node);
    EXPECT_EQ(getTransformVariantsAttachment(node), osg::NullFC);
    EXPECT_EQ(other.get().getRefCount(), 1);
    removeTransformVariantsAttachment(node);
}

TEST_F(moNodeUtilsTest, TheListIsEditedInBracketsOfTheAttachment)
{
    const osg::NodePtr node = keep(osg::Node::create());
    const Edits edit{{createTransformVariantsAttachment(node).getFieldContainerId(),
                      osg::TransformVariantsAttachment::VariantsFieldMask}};
    const osg::RefPtr<osg::TransformVariantPtr> variant(osg::TransformVariant::create());
    EXPECT_EQ(editsOf([&] { insertTransformVariant(node, 1, variant.get()); }), Edits());
    EXPECT_EQ(editsOf([&] { insertTransformVariant(node, 0, variant.get()); }), edit);
    EXPECT_EQ(getTransformVariant(node, 0), variant.get());
    EXPECT_EQ(editsOf([&] { removeTransformVariant(node, 1); }), Edits());
    EXPECT_EQ(editsOf([&] { removeTransformVariant(node, 0); }), edit);
    EXPECT_EQ(getTransformVariant(node, 0), osg::NullFC);
    EXPECT_NE(getTransformVariantsAttachment(node), osg::NullFC);
}

TEST_F(moNodeUtilsTest, WithoutNodeOrListTheListOperationsDoNothing)
{
    const osg::RefPtr<osg::TransformVariantPtr> variant(osg::TransformVariant::create());
    for (const osg::NodePtr& node : {osg::NodePtr(), keep(osg::Node::create())}) {
        insertTransformVariant(node, 0, variant.get());
        removeTransformVariant(node, 0);
        removeTransformVariantsAttachment(node);
        setTransformVariantsAttachment(node, osg::NullFC);
        EXPECT_EQ(getTransformVariantCount(node), 0u);
        EXPECT_EQ(getTransformVariant(node, 0), osg::NullFC);
        EXPECT_EQ(getTransformVariantsAttachment(node), osg::NullFC);
    }
    EXPECT_EQ(createTransformVariantsAttachment(osg::NullFC), osg::NullFC);
    EXPECT_EQ(variant.get().getRefCount(), 1);
}

TEST_F(moNodeUtilsTest, TheNameOfAVariantIsEmptyWhereThereIsNone)
{
    const osg::NodePtr node = keep(transformNode());
    addVariant(node, "closed");
    EXPECT_EQ(getTransformVariantName(node, 0), "closed");
    EXPECT_EQ(getTransformVariantName(node, 1), "");
    EXPECT_EQ(getTransformVariantName(node, -1), "");
    EXPECT_EQ(getTransformVariantName(osg::NullFC, 0), "");
}
