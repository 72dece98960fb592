#include <moSceneData/moSceneDataManager.h>

#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(SceneDataManager, OnlySceneZeroIsThereAndAlwaysTheSame)
{
    ASSERT_NE(moSceneDataManager::getSceneData(0), nullptr);
    EXPECT_EQ(moSceneDataManager::getSceneData(0), moSceneDataManager::getSceneData(0));
    EXPECT_EQ(moSceneDataManager::getSceneData(1), nullptr);
    EXPECT_EQ(moSceneDataManager::getSceneData(std::numeric_limits<unsigned int>::max()), nullptr);
}

TEST(SceneDataManager, ASceneHoldsItsTopNodeUntilAnotherOneIsSet)
{
    moSceneData& scene = *moSceneDataManager::getSceneData(0);
    EXPECT_TRUE(scene.getSceneNode() == osg::NullFC);
    const osg::NodeRefPtr first(osg::Node::create());
    const osg::NodeRefPtr second(osg::Node::create());

    scene.setSceneNode(first);
    scene.setSceneNode(first);
    EXPECT_EQ(first.get().getRefCount(), 2);
    EXPECT_TRUE(scene.getSceneNode() == first.get());

    scene.setSceneNode(second);
    EXPECT_EQ(first.get().getRefCount(), 1);
    EXPECT_EQ(second.get().getRefCount(), 2);

    scene.setSceneNode(osg::NullFC);
    EXPECT_EQ(second.get().getRefCount(), 1);
    EXPECT_TRUE(scene.getSceneNode() == osg::NullFC);
}

} // namespace
