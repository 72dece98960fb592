#include <support/Ground.h>

#include <moOpenSGUberLight/OSGLightLinkSet.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGThread.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using osg::LightLinkSet;

/// One of the two lists; the tests run for both.
struct List
{
    const char* name;
    osg::BitVector mask;
    osg::MFNodePtr* (LightLinkSet::*list)();
    bool (LightLinkSet::*contains)(const osg::NodePtr&) const;
    void (LightLinkSet::*add)(const osg::NodePtr&);
    void (LightLinkSet::*insert)(const osg::NodePtr&, osg::Int32);
    void (LightLinkSet::*sub)(const osg::NodePtr&);
};

const List lists[] = {
    {"Lights", LightLinkSet::LightsFieldMask, &LightLinkSet::getMFLights, &LightLinkSet::containsLight,
     &LightLinkSet::addLight, &LightLinkSet::insertLight, &LightLinkSet::subLight},
    {"SceneNodes", LightLinkSet::SceneNodesFieldMask, &LightLinkSet::getMFSceneNodes, &LightLinkSet::containsSceneNode,
     &LightLinkSet::addSceneNode, &LightLinkSet::insertSceneNode, &LightLinkSet::subSceneNode},
};

class LightLinkSetTest : public testing::TestWithParam<List>
{
protected:
    void add(const osg::NodePtr& node) { ((*set.get()).*the.add)(node); }
    void insert(const osg::NodePtr& node, osg::Int32 index) { ((*set.get()).*the.insert)(node, index); }
    void sub(const osg::NodePtr& node) { ((*set.get()).*the.sub)(node); }
    bool contains(const osg::NodePtr& node) { return ((*set.get()).*the.contains)(node); }

    std::string order()
    {
        std::string letters;
        for (const osg::NodePtr& node : *((*set.get()).*the.list)())
            letters += node == a ? 'a' : node == b ? 'b' : 'c';
        return letters;
    }

    const List the = GetParam();
    osg::RefPtr<osg::LightLinkSetPtr> set{LightLinkSet::create()};
    osg::NodeRefPtr heldA{osg::Node::create()}, heldB{osg::Node::create()}, heldC{osg::Node::create()};
    osg::NodePtr a = heldA, b = heldB, c = heldC;
};

TEST_P(LightLinkSetTest, AddAppendsAndInsertPutsAtTheIndex)
{
    add(a);
    add(b);
    insert(c, 1);
    EXPECT_EQ(order(), "acb");
    sub(c);
    insert(c, 0);
    EXPECT_EQ(order(), "cab");
    EXPECT_TRUE(contains(c));
}

TEST_P(LightLinkSetTest, AnIndexBeyondTheEndAppendsAndANegativeOneInsertsNothing)
{
    add(a);
    insert(b, std::numeric_limits<osg::Int32>::max());
    EXPECT_EQ(order(), "ab");
    insert(c, -1);
    insert(c, std::numeric_limits<osg::Int32>::min());
    EXPECT_EQ(order(), "ab");
    EXPECT_EQ(c.getRefCount(), 1);
}

TEST_P(LightLinkSetTest, NodesAreHeldOnceUntilTheyAreTakenOutOrTheSetGoes)
{
    add(a);
    add(a);
    insert(a, 0);
    add(b);
    EXPECT_EQ(order(), "ab");
    EXPECT_EQ(a.getRefCount(), 2);
    sub(a);
    sub(a);
    EXPECT_EQ(a.getRefCount(), 1);
    EXPECT_FALSE(contains(a));
    set = osg::LightLinkSetPtr();
    EXPECT_EQ(b.getRefCount(), 1);
}

TEST_P(LightLinkSetTest, NullIsNeverListed)
{
    add(osg::NullFC);
    insert(osg::NullFC, 0);
    sub(osg::NullFC);
    EXPECT_EQ(order(), "");
    EXPECT_FALSE(contains(osg::NullFC));
}

TEST_P(LightLinkSetTest, EachChangeIsOneEditOfTheListAndNoChangeIsNone)
{
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    changes.setReadOnly(false);
    changes.clearAll();
    add(a);
    insert(b, 0);
    sub(a);
    ASSERT_EQ(changes.sizeChanged(), 3u);
    for (auto change = changes.beginChanged(); change != changes.endChanged(); ++change) {
        EXPECT_EQ(change->first, osg::getContainerId(set.get()));
        EXPECT_EQ(change->second, the.mask);
    }
    add(b);
    insert(c, -1);
    sub(c);
    add(osg::NullFC);
    EXPECT_EQ(changes.sizeChanged(), 3u);
    changes.clearAll();
    changes.setReadOnly(true);
}

TEST_P(LightLinkSetTest, ACopyHoldsTheSameNodesOnItsOwn)
{
    add(a);
    osg::LightLinkSetPtr copy = osg::LightLinkSetPtr::dcast(set->shallowCopy());
    EXPECT_EQ(a.getRefCount(), 2 + ground::objectsPerContainer);
    sub(a);
    EXPECT_EQ(copy->getLights().size() + copy->getSceneNodes().size(), 1u);
    osg::subRefCP(copy);
    EXPECT_EQ(a.getRefCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Both, LightLinkSetTest, testing::ValuesIn(lists),
                         [](const auto& instance) { return instance.param.name; });

} // namespace
