#include <light/LightLinkTest.h>

#include <moSceneData/moSceneDataManager.h>

namespace {

/// A stand-in is a node outside the scene whose core is that of a light in the scene.
class SharedCoreLight : public LightLinkTest
{
protected:
    static constexpr osg::UInt32 sharedCore = 0x2, notInScene = 0x1000;

    void SetUp() override
    {
        LightLinkTest::SetUp();
        core = osg::UberLight::create();
        standIn = place(root, "standIn", core);
        standIn->setExternalFlags(sharedCore | 0x4);
    }

    osg::NodePtr share(const osg::NodePtr& parent, const std::string& name) { return place(parent, name, core); }

    /// The nodes in the list of lights after the stand-in was added.
    std::string added()
    {
        stack.addOrExecute(new Command(set, standIn, lights, adding, nullptr));
        return inLights();
    }

    osg::UberLightPtr core;
    osg::NodePtr standIn;
};

TEST_F(SharedCoreLight, TheOneRealNodeTakesItsPlaceInBothDirections)
{
    const auto real = share(sceneNode, "real");
    EXPECT_EQ(added(), "real");
    stack.undo();
    EXPECT_EQ(inLights(), "");
    set->addLight(make("a"));
    set->addLight(real);
    stack.addOrExecute(new Command(set, standIn, lights, removing, nullptr));
    EXPECT_EQ(inLights(), "a");
    stack.undo();
    EXPECT_EQ(inLights(), "a real");
}

TEST_F(SharedCoreLight, TheRealNodeIsThatOfConstruction)
{
    share(sceneNode, "real");
    auto* command = new Command(set, standIn, lights, adding, nullptr);
    share(sceneNode, "late");
    stack.addOrExecute(command);
    EXPECT_EQ(inLights(), "real");
}

TEST_F(SharedCoreLight, ARealNodeThatIsListedAlreadyIsNotAddedAgain)
{
    set->addLight(share(sceneNode, "real"));
    EXPECT_EQ(added(), "real");
    stack.undo();
    EXPECT_EQ(inLights(), "real");
}

TEST_F(SharedCoreLight, WithoutARealNodeItIsSkippedSilently)
{
    EXPECT_EQ(added(), "");
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(SharedCoreLight, WithTwoRealNodesItIsSkipped)
{
    share(sceneNode, "one");
    share(sceneNode, "two");
    EXPECT_EQ(added(), "");
}

TEST_F(SharedCoreLight, OtherStandInsAndNodesKeptBesideTheSceneAreNoCandidates)
{
    share(sceneNode, "standIn too")->setExternalFlags(sharedCore);
    share(sceneNode, "beside")->setFlags(notInScene);
    EXPECT_EQ(added(), "");
    share(sceneNode, "real")->setFlags(~notInScene);
    EXPECT_EQ(added(), "real");
}

TEST_F(SharedCoreLight, OnlyNodesBelowTheTopNodeOfSceneZeroAreCandidates)
{
    share(root, "beside the scene");
    EXPECT_EQ(added(), "");
    share(make("group"), "deep");
    EXPECT_EQ(added(), "deep");
}

TEST_F(SharedCoreLight, WithoutASceneThereIsNoCandidate)
{
    share(sceneNode, "real");
    moSceneDataManager::getSceneData(0)->setSceneNode(osg::NullFC);
    EXPECT_EQ(added(), "");
}

TEST_F(SharedCoreLight, NullParentsOfTheCoreAreSkipped)
{
    share(sceneNode, "real");
    core->getParents().push_back(osg::NullFC);
    EXPECT_EQ(added(), "real");
    core->getParents().erase(core->getParents().end() - 1);
}

TEST_F(SharedCoreLight, AStandInWithoutCoreOrWhoseCoreKnowsNoParentsIsSkipped)
{
    standIn->setCore(osg::NullFC);
    EXPECT_EQ(added(), "");
    standIn->setCore(osg::UberLight::create());
    const auto parents = standIn->getCore()->getParents();
    standIn->getCore()->getParents().clear();
    EXPECT_EQ(added(), "");
    standIn->getCore()->getParents() = parents;
}

TEST_F(SharedCoreLight, InTheListOfSceneNodesAStandInIsANodeLikeAnyOther)
{
    share(sceneNode, "real");
    stack.addOrExecute(new Command(set, standIn, 0, adding, nullptr));
    EXPECT_EQ(inSceneNodes(), "standIn");
}

TEST_F(SharedCoreLight, ANodeWithoutTheFlagIsTakenAsItIsEvenIfItIsNoLight)
{
    share(sceneNode, "real");
    standIn->setExternalFlags(0x1 | 0x4 | 0x10);
    EXPECT_EQ(added(), "standIn");
    stack.addOrExecute(new Command(set, make("group"), lights, adding, nullptr));
    EXPECT_EQ(inLights(), "standIn group");
}

TEST_F(SharedCoreLight, TheRootIsRefusedBeforeItsFlagsAreLookedAt)
{
    root->setExternalFlags(sharedCore);
    stack.addOrExecute(new Command(set, root, lights, adding, nullptr));
    EXPECT_THAT(log.take(), testing::ElementsAre("error: Cannot add Root to Light Link Set."));
}

TEST_F(SharedCoreLight, OtherNodesOfTheCallAreNotAffected)
{
    const auto a = make("a"), b = make("b");
    stack.addOrExecute(new Command(set, {a, standIn, b}, lights, adding, nullptr));
    EXPECT_EQ(inLights(), "a b");
}

} // namespace
