#include <light/LightTest.h>
#include <support/WholeSteps.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/light/moAddNodeAsVisibilityReferenceUndoCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGGroup.h>

namespace {

class VisibilityReference : public LightTest
{
protected:
    using Command = moAddNodeAsVisibilityReferenceUndoCommand;
    static constexpr bool adding = false, removing = true;

    void SetUp() override
    {
        LightTest::SetUp();
        light = coreOf(makeLight());
        node = makeNode<osg::Group>("node");
        node->setExternalFlags(0x25);
    }

    std::string state() const
    {
        const osg::NodePtr reference = light->getVisibilityReference();
        return std::string(reference == node          ? "node"
                           : reference == osg::NullFC ? "none"
                                                      : "other") +
               ((node->getExternalFlags() & 0x10) ? ", marked" : ", unmarked") +
               ((node->getExternalFlags() & ~0x10u) == 0x25 ? "" : ", other flags changed");
    }

    osg::UberLightPtr light;
    osg::NodePtr node;
};

TEST_F(VisibilityReference, AddSetsTheNodeAndMarksItAndUndoClearsBoth)
{
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(state(), "node, marked");
        stack.undo();
        EXPECT_EQ(state(), "none, unmarked");
        stack.redo();
    }
}

TEST_F(VisibilityReference, RemoveClearsBothAndUndoSetsThemAgain)
{
    light->setVisibilityReference(node);
    node->setExternalFlags(0x35);
    stack.addOrExecute(new Command(light, node, removing, nullptr));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(state(), "none, unmarked");
        stack.undo();
        EXPECT_EQ(state(), "node, marked");
        stack.redo();
    }
}

TEST_F(VisibilityReference, TheReferenceThatTheLightHadBeforeIsNotRemembered)
{
    light->setVisibilityReference(makeNode<osg::Group>("other"));
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    stack.undo();
    EXPECT_EQ(state(), "none, unmarked");
}

TEST_F(VisibilityReference, KeepsItsMarkWhenAnotherNodeTakesItsPlace)
{
    light->setVisibilityReference(node);
    node->setExternalFlags(0x35);
    stack.addOrExecute(new Command(light, makeNode<osg::Group>("other"), adding, nullptr));
    EXPECT_EQ(state(), "other, marked");
}

TEST_F(VisibilityReference, ReplacedInACompositeThatFirstRemovesItComesBackByUndo)
{
    light->setVisibilityReference(node);
    node->setExternalFlags(0x35);
    auto* const replace = new moMultiCommand(moUndoString("replace", QString()));
    new Command(light, node, removing, replace);
    new Command(light, makeNode<osg::Group>("other"), adding, replace);
    stack.addOrExecute(replace);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(state(), "other, unmarked");
        stack.undo();
        EXPECT_EQ(state(), "node, marked");
        stack.redo();
    }
}

TEST_F(VisibilityReference, ClearsTheReferenceWhicheverNodeItIsByThen)
{
    const osg::NodePtr other = makeNode<osg::Group>("other");
    light->setVisibilityReference(other);
    node->setExternalFlags(0x35);
    stack.addOrExecute(new Command(light, node, removing, nullptr));
    EXPECT_EQ(state(), "none, unmarked") << "by a removal";
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    light->setVisibilityReference(other);
    stack.undo();
    EXPECT_EQ(state(), "none, unmarked") << "by undo of an addition";
}

TEST_F(VisibilityReference, IsSetAndClearedAnewAlsoWhereItIsSoAlready)
{
    const std::vector<EditLog::Edit> expected{{idOf(light), osg::UberLight::VisibilityReferenceFieldMask},
                                              {idOf(node), osg::Node::ExternalFlagsFieldMask}};
    light->setVisibilityReference(node);
    EditLog edits;
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    EXPECT_EQ(state(), "node, marked") << "the mark was missing";
    EXPECT_EQ(edits.take(), expected);
    light->setVisibilityReference(osg::NullFC);
    stack.undo();
    EXPECT_EQ(state(), "none, unmarked");
    EXPECT_EQ(edits.take(), expected);
}

TEST_F(VisibilityReference, ClosesTheLightsEditBeforeTheNodes)
{
    const std::vector<EditLog::Edit> expected{{idOf(light), osg::UberLight::VisibilityReferenceFieldMask},
                                              {idOf(node), osg::Node::ExternalFlagsFieldMask}};
    EditLog edits;
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    EXPECT_EQ(edits.take(), expected);
    stack.undo();
    EXPECT_EQ(edits.take(), expected);
}

TEST_F(VisibilityReference, TheMessageGivesTheLightsIdAsLightCommandInBothDirections)
{
    Trace trace(stack);
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    stack.undo();
    const std::string tail = " text=string:\"Add Node as Visibility Reference\" "
                             "description=string:\"Add Node as Visibility Reference\" id=int:" +
                             std::to_string(Command::commandId()) + " lightCommand=uint:" + std::to_string(idOf(light));
    EXPECT_THAT(trace.takeMessages(), testing::ElementsAre("moURManager::redo index=int:0 added=bool:true" + tail,
                                                           "moURManager::undo index=int:0 added=bool:false" + tail));
    EXPECT_EQ(Command(light, node, removing, nullptr).text(), Command(light, node, adding, nullptr).text());
}

TEST_F(VisibilityReference, NothingHappensAtConstructionAndTheCommandHoldsNothing)
{
    delete new Command(light, node, adding, nullptr);
    EXPECT_EQ(state(), "none, unmarked");
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    EXPECT_EQ(node.getRefCount(), 2) << "the scene's and the light's";
    EXPECT_EQ(light.getRefCount(), 1);
    stack.undo();
    EXPECT_EQ(node.getRefCount(), 1);
}

TEST_F(VisibilityReference, ANodeThatOnlyTheLightHoldsGoesAfterItsEdit)
{
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    const osg::UInt32 id = idOf(node);
    destroy(node);
    ASSERT_TRUE(isAlive(id));
    EditLog edits;
    stack.undo();
    EXPECT_FALSE(isAlive(id));
    auto closed = edits.take();
    ASSERT_GE(closed.size(), 2u) << "what follows is what a node does when it goes";
    closed.resize(2);
    EXPECT_THAT(closed, testing::ElementsAre(EditLog::Edit(idOf(light), osg::UberLight::VisibilityReferenceFieldMask),
                                             EditLog::Edit(id, osg::Node::ExternalFlagsFieldMask)));
    stack.redo();
    EXPECT_TRUE(light->getVisibilityReference() == osg::NullFC);
}

TEST_F(VisibilityReference, ANodeThatNobodyHoldsYetSurvivesBothSteps)
{
    const osg::NodePtr fresh = osg::Node::create();
    const osg::UInt32 id = idOf(fresh);
    Command command(light, fresh, removing, nullptr);
    command.redo();
    ASSERT_TRUE(isAlive(id));
    command.undo();
    EXPECT_EQ(light->getVisibilityReference(), fresh);
    EXPECT_EQ(fresh.getRefCount(), 1) << "the light's";
}

TEST_F(VisibilityReference, ANodeThatAListenerOfTheLightReleasesIsNotEditedAnyMore)
{
    light = coreOf(makeTracedLight());
    const osg::NodePtr fresh = osg::Node::create();
    const osg::UInt32 id = idOf(fresh);
    Command command(light, fresh, adding, nullptr);
    EditTrace edits;
    edits.onChange([this] { light->setVisibilityReference(osg::NullFC); });
    command.redo();
    EXPECT_FALSE(isAlive(id));
    EXPECT_THAT(edits.take(), testing::ElementsAre("TracedUberLight visibilityReference 1"));
}

TEST_F(VisibilityReference, ALightDestroyedWithTheReferenceItReleasesIsNotEditedAnyMoreAndHoldsNoOtherNode)
{
    const osg::NodePtr group = makeNode<osg::Group>("group");
    light = coreOf(place(group, "light", osg::UberLight::create()));
    light->setVisibilityReference(group);
    destroy(group);
    const osg::NodePtr fresh = osg::Node::create();
    const osg::UInt32 lightId = idOf(light), freshId = idOf(fresh);
    ASSERT_TRUE(isAlive(lightId)) << "the group holds the light and the light the group";

    Command(light, fresh, adding, nullptr).redo();
    EXPECT_FALSE(isAlive(lightId));
    EXPECT_FALSE(isAlive(freshId)) << "only the light held it";
}

TEST_F(VisibilityReference, MarksTheNodeThoughAListenerOfTheLightThrows)
{
    light = coreOf(makeTracedLight());
    EditTrace edits;
    expectStepsStandThoughAListenerThrows(stack, edits, new Command(light, node, adding, nullptr),
                                          [this] { return state(); });
}

TEST_F(VisibilityReference, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new Command(light, node, adding, &parent);
    EXPECT_EQ(parent.childCount(), 1);
}

TEST_F(VisibilityReference, NothingMergesHoweverFast)
{
    auto* first = new Command(light, node, adding, nullptr);
    auto* again = new Command(light, node, adding, nullptr);
    again->setMergeResponseDelta(-1.);
    EXPECT_FALSE(first->canMergeWith(again));
    EXPECT_FALSE(first->mergeWith(again));
    stack.addOrExecute(first);
    stack.addOrExecute(again);
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(VisibilityReference, NullLightOrNodeMakesTheCommandInert)
{
    light->setVisibilityReference(makeNode<osg::Group>("other"));
    Trace trace(stack);
    EditLog edits;
    stack.addOrExecute(new Command(osg::NullFC, node, adding, nullptr));
    stack.addOrExecute(new Command(light, osg::NullFC, removing, nullptr));
    stack.addOrExecute(new Command(osg::NullFC, osg::NullFC, adding, nullptr));
    EXPECT_THAT(trace.takeMessages().at(0), testing::HasSubstr("lightCommand=uint:0"));
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(state(), "other, unmarked");
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(VisibilityReference, ALightThatWasDestroyedLeavesTheNodeAsItIs)
{
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    destroy(light->getParents()[0]);
    EditLog edits;
    stack.undo();
    stack.redo();
    EXPECT_EQ(node->getExternalFlags(), 0x35u);
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(VisibilityReference, ANodeThatWasDestroyedLeavesTheLightAsItIs)
{
    stack.addOrExecute(new Command(light, node, adding, nullptr));
    stack.undo();
    destroy(node);
    EditLog edits;
    stack.redo();
    stack.undo();
    EXPECT_TRUE(light->getVisibilityReference() == osg::NullFC);
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

} // namespace
