#include <moOpenSGUtils/moNodePtr.h>
#include <moOpenSGUtils/moOpenSGUtils.h>

#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

static osg::NodePtr pass(const moNodePtr& node)
{
    return node.getPtr();
}

TEST(moNodePtr, GivesTheNodeItWasMadeFromAndHoldsNoReference)
{
    const osg::NodeRefPtr node(osg::Node::create());
    const moNodePtr kept = node.get();
    EXPECT_EQ(kept.getPtr(), node.get());
    EXPECT_TRUE(kept);
    EXPECT_EQ(pass(node.get()), node.get());
    EXPECT_EQ(node.get().getRefCount(), 1);
}

TEST(moNodePtr, IsNullForNoNodeAndAfterTheNodeWasDestroyed)
{
    EXPECT_EQ(moNodePtr().getPtr(), osg::NullFC);
    EXPECT_EQ(moNodePtr(osg::NodePtr()).getPtr(), osg::NullFC);
    osg::NodePtr node = osg::Node::create();
    const moNodePtr kept = node;
    osg::subRefCP(node);
    EXPECT_EQ(kept.getPtr(), osg::NullFC);
    EXPECT_FALSE(kept);
}

TEST(moNodePtr, ComparesTheNodesThatTheyWereMadeFrom)
{
    osg::NodePtr first = osg::Node::create();
    const osg::NodeRefPtr second(osg::Node::create());
    const moNodePtr kept = first;
    EXPECT_EQ(kept, moNodePtr(first));
    EXPECT_NE(kept, moNodePtr(second.get()));
    osg::subRefCP(first);
    EXPECT_EQ(kept, moNodePtr(kept));
    EXPECT_NE(kept, moNodePtr());
}

TEST(moOpenSGUtils, TheRootIsNullUntilSetAndAfterItWasDestroyed)
{
    EXPECT_EQ(moOpenSGUtils::getRoot(), osg::NullFC);
    osg::NodePtr root = osg::Node::create();
    moOpenSGUtils::setRoot(root);
    EXPECT_EQ(moOpenSGUtils::getRoot(), root);
    EXPECT_EQ(root.getRefCount(), 0);
    osg::subRefCP(root);
    EXPECT_EQ(moOpenSGUtils::getRoot(), osg::NullFC);
    moOpenSGUtils::setRoot(osg::NullFC);
    EXPECT_EQ(moOpenSGUtils::getRoot(), osg::NullFC);
}
