#include <light/LightLinkTest.h>
#include <support/WholeSteps.h>

#include <moOpenSGUtils/moOpenSGUtils.h>
#include <moSceneData/moSceneDataManager.h>

#include <QUndoStack>

namespace {

/// The same tests for both lists.
class LightLinkList : public LightLinkTest, public testing::WithParamInterface<unsigned int>
{
protected:
    unsigned int listType() const { return GetParam(); }
    bool ofLights() const { return listType() == lights; }
    std::string list() const { return ofLights() ? inLights() : inSceneNodes(); }
    std::string otherList() const { return ofLights() ? inSceneNodes() : inLights(); }
    osg::BitVector mask() const
    {
        return ofLights() ? osg::LightLinkSet::LightsFieldMask : osg::LightLinkSet::SceneNodesFieldMask;
    }

    void put(const osg::NodePtr& node) { ofLights() ? set->addLight(node) : set->addSceneNode(node); }

    /// Nodes with these one-letter names, in the list already.
    std::vector<osg::NodePtr> listed(const std::string& names)
    {
        std::vector<osg::NodePtr> nodes;
        for (const char name : names) {
            nodes.push_back(make(std::string(1, name)));
            put(nodes.back());
        }
        return nodes;
    }
};

TEST_P(LightLinkList, AddAppendsInTheOrderGivenAndUndoTakesOut)
{
    listed("ab");
    const auto c = make("c"), d = make("d");
    stack.addOrExecute(new Command(set, {d, c}, listType(), adding, nullptr));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(list(), "a b d c");
        EXPECT_EQ(otherList(), "");
        stack.undo();
        EXPECT_EQ(list(), "a b");
        stack.redo();
    }
}

TEST_P(LightLinkList, RemoveTakesOutAndUndoPutsEachBackAtItsIndex)
{
    const auto nodes = listed("abcdef");
    stack.addOrExecute(new Command(set, {nodes[0], nodes[1], nodes[3], nodes[5]}, listType(), removing, nullptr));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(list(), "c e");
        stack.undo();
        EXPECT_EQ(list(), "a b c d e f");
        stack.redo();
    }
}

TEST_P(LightLinkList, NodesReturnInTheOrderGivenWhichIsExactOnlyInTheOrderOfTheList)
{
    const auto nodes = listed("abcd");
    stack.addOrExecute(new Command(set, {nodes[1], nodes[0]}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "c d");
    stack.undo();
    EXPECT_EQ(list(), "a c b d") << "b went to index 1 of \"c d\" before a came to index 0";
}

TEST_P(LightLinkList, IndicesAreThoseOfConstruction)
{
    const auto nodes = listed("abc");
    auto* command = new Command(set, nodes[2], listType(), removing, nullptr);
    ofLights() ? set->subLight(nodes[0]) : set->subSceneNode(nodes[0]);
    ofLights() ? set->insertLight(nodes[0], 2) : set->insertSceneNode(nodes[0], 2);
    stack.addOrExecute(command);
    EXPECT_EQ(list(), "b a");
    ofLights() ? set->insertLight(make("x"), 2) : set->insertSceneNode(make("x"), 2);
    stack.undo();
    EXPECT_EQ(list(), "b a c x");
}

TEST_P(LightLinkList, RemovingWhatIsNotListedPassesMinusOneOnAndChangesNothing)
{
    listed("ab");
    const auto stranger = make("x");
    EditLog edits;
    stack.addOrExecute(new Command(set, stranger, listType(), removing, nullptr));
    stack.undo();
    EXPECT_EQ(list(), "a b");
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_P(LightLinkList, ANodeThatCameInAfterConstructionIsRemovedAtRedoAndDoesNotReturn)
{
    const auto late = make("x");
    auto* command = new Command(set, late, listType(), removing, nullptr);
    put(late);
    stack.addOrExecute(command);
    EXPECT_EQ(list(), "");
    stack.undo();
    EXPECT_EQ(list(), "") << "its index was -1 when the command was made";
}

TEST_P(LightLinkList, AddingWhatIsListedIsAnEmptyCommand)
{
    const auto nodes = listed("ab");
    EditLog edits;
    stack.addOrExecute(new Command(set, nodes[0], listType(), adding, nullptr));
    stack.addOrExecute(new Command(set, nodes, listType(), adding, nullptr));
    stack.undo();
    stack.undo();
    EXPECT_EQ(list(), "a b") << "undo would have taken out what was in the list before";
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_P(LightLinkList, ANodeThatCameInAfterConstructionIsLeftAtRedoAndGoesAtUndo)
{
    listed("a");
    const auto late = make("x");
    auto* command = new Command(set, late, listType(), adding, nullptr);
    put(late);
    stack.addOrExecute(command);
    EXPECT_EQ(list(), "a x");
    stack.undo();
    EXPECT_EQ(list(), "a") << "it was not in the list when the command was made";
}

TEST_P(LightLinkList, TheSameNodeTwiceIsListedOnceAndGoesAtUndo)
{
    listed("a");
    const auto b = make("b");
    stack.addOrExecute(new Command(set, {b, b}, listType(), adding, nullptr));
    EXPECT_EQ(list(), "a b");
    stack.undo();
    EXPECT_EQ(list(), "a");
    stack.redo();
    stack.addOrExecute(new Command(set, {b, b}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "a");
    stack.undo();
    EXPECT_EQ(list(), "a b");
}

TEST_P(LightLinkList, NodesGivenTwiceDoNotMoveThePlacesOfTheOthers)
{
    const auto nodes = listed("abcdef");
    const std::vector<osg::NodePtr> given = {nodes[0], nodes[0], nodes[2], nodes[0], nodes[2], nodes[5], nodes[4]};
    stack.addOrExecute(new Command(set, {given[0], given[1], given[2], given[5]}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "b d e");
    stack.undo();
    EXPECT_EQ(list(), "a b c d e f");
    stack.addOrExecute(
        new Command(set, {given[0], given[2], given[3], given[4], given[6]}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "b d f");
    stack.undo();
    EXPECT_EQ(list(), "a b c d e f");
}

TEST_P(LightLinkList, NullNodesAndEmptyListsAreSilent)
{
    const auto a = make("a");
    for (const bool direction : {adding, removing}) {
        stack.addOrExecute(new Command(set, std::vector<osg::NodePtr>(), listType(), direction, nullptr));
        stack.addOrExecute(new Command(set, {osg::NullFC, osg::NullFC}, listType(), direction, nullptr));
        stack.addOrExecute(new Command(set, osg::NodePtr(), listType(), direction, nullptr));
    }
    EXPECT_EQ(list(), "");
    stack.addOrExecute(new Command(set, {osg::NullFC, a}, listType(), adding, nullptr));
    EXPECT_EQ(list(), "a");
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(list(), "");
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_P(LightLinkList, TheRootIsRefusedWithOneErrorEachAndTheOthersGoIn)
{
    const auto a = make("a"), b = make("b");
    const std::string error = "error: Cannot add Root to Light Link Set.";
    stack.addOrExecute(new Command(set, {a, root, b}, listType(), adding, nullptr));
    EXPECT_THAT(log.take(), testing::ElementsAre(error));
    EXPECT_EQ(list(), "a b");
    stack.addOrExecute(new Command(set, {root, root}, listType(), removing, nullptr));
    EXPECT_THAT(log.take(), testing::ElementsAre(error, error));
    stack.addOrExecute(new Command(set, root, listType(), adding, nullptr));
    EXPECT_THAT(log.take(), testing::ElementsAre(error));
    EXPECT_EQ(list(), "a b");
    EXPECT_EQ(root.getRefCount(), 1);
}

TEST_P(LightLinkList, ANullSetIsInertAndLogsNothing)
{
    const auto a = make("a");
    Trace trace(stack);
    stack.addOrExecute(new Command(osg::NullFC, {a, root}, listType(), adding, nullptr));
    stack.addOrExecute(new Command(osg::NullFC, a, listType(), removing, nullptr));
    stack.undo();
    stack.undo();
    for (const std::string& message : trace.takeMessages()) {
        EXPECT_THAT(message, testing::HasSubstr("lightlinkset=uint:0"));
    }
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_P(LightLinkList, ASetDestroyedBetweenRedoAndUndoMakesBothNoOps)
{
    const auto a = make("a");
    stack.addOrExecute(new Command(set, a, listType(), adding, nullptr));
    stack.addOrExecute(new Command(set, a, listType(), removing, nullptr));
    destroy(setNode);
    EditLog edits;
    while (stack.canUndo())
        stack.undo();
    while (stack.canRedo())
        stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
    EXPECT_EQ(a.getRefCount(), 1);
}

TEST_P(LightLinkList, ANodeThatWasDestroyedIsSkippedAndTheOthersKeepTheirIndices)
{
    const auto nodes = listed("abcd");
    stack.addOrExecute(new Command(set, {nodes[0], nodes[1], nodes[2]}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "d");
    const unsigned int id = idOf(nodes[1]);
    destroy(nodes[1]);
    EXPECT_FALSE(isAlive(id)) << "the command holds no reference";
    stack.undo();
    EXPECT_EQ(list(), "a d c") << "c is at its old index 2";
    stack.redo();
    EXPECT_EQ(list(), "d");
}

TEST_P(LightLinkList, OnlyTheAddressedListIsEdited)
{
    const auto a = make("a"), b = make("b");
    const std::vector<EditLog::Edit> expected{{idOf(set), mask()}, {idOf(set), mask()}};
    EditLog edits;
    stack.addOrExecute(new Command(set, {a, b}, listType(), adding, nullptr));
    EXPECT_EQ(edits.take(), expected);
    stack.undo();
    EXPECT_EQ(edits.take(), expected);
}

TEST_P(LightLinkList, NodesThatAreNotTakenLeaveTheIndicesWithTheirNodes)
{
    const auto nodes = listed("abcd");
    stack.addOrExecute(
        new Command(set, {nodes[0], root, osg::NullFC, nodes[2], nodes[3]}, listType(), removing, nullptr));
    EXPECT_EQ(list(), "b");
    stack.undo();
    EXPECT_EQ(list(), "a b c d");
    EXPECT_THAT(log.take(), testing::SizeIs(1));
}

TEST_P(LightLinkList, ASetDestroyedByAListenerIsNotEditedAnyMore)
{
    const auto a = make("a"), b = make("b");
    const osg::NodePtr holder = place(root, "traced set", makeTracedSet());
    auto* command = new Command(osg::LightLinkSetPtr::dcast(holder->getCore()), {a, b}, listType(), adding, nullptr);
    EditTrace edits;
    edits.onChange([&] { destroy(holder); });
    stack.addOrExecute(command);
    EXPECT_THAT(edits.take(),
                testing::ElementsAre(ofLights() ? "TracedLightLinkSet lights 1" : "TracedLightLinkSet sceneNodes 1",
                                     "TracedLightLinkSet parents 1"))
        << "the second is what the set's node does when it goes";
    EXPECT_EQ(a.getRefCount(), 1);
    EXPECT_EQ(b.getRefCount(), 1);
}

TEST_P(LightLinkList, TakesAllNodesThoughAListenerToTheFirstThrows)
{
    const auto a = make("a"), b = make("b");
    const osg::NodePtr holder = place(root, "traced set", makeTracedSet());
    set = osg::LightLinkSetPtr::dcast(holder->getCore());
    EditTrace edits;
    expectStepsStandThoughAListenerThrows(stack, edits, new Command(set, {a, b}, listType(), adding, nullptr),
                                          [this] { return list(); });
}

TEST_P(LightLinkList, ASetDestroyedWithTheNodeTakenOutIsNotEditedAnyMore)
{
    const auto above = make("above"), b = make("b");
    const osg::NodePtr holder = place(above, "set", osg::LightLinkSet::create());
    stack.addOrExecute(
        new Command(osg::LightLinkSetPtr::dcast(holder->getCore()), {above, b}, listType(), adding, nullptr));
    const unsigned int id = idOf(holder);
    destroy(above);
    ASSERT_TRUE(isAlive(id)) << "the set holds the node above it";
    stack.undo();
    EXPECT_FALSE(isAlive(id));
    EXPECT_EQ(b.getRefCount(), 1);
}

TEST_P(LightLinkList, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    const auto a = make("a");
    new Command(set, a, listType(), adding, &parent);
    new Command(set, std::vector{a}, listType(), adding, &parent);
    EXPECT_EQ(parent.childCount(), 2);
}

TEST_P(LightLinkList, TheMessageNamesTheSet)
{
    const auto a = make("a");
    Trace trace(stack);
    stack.addOrExecute(new Command(set, a, listType(), removing, nullptr));
    stack.addOrExecute(new Command(set, std::vector{a}, listType(), removing, nullptr));
    const auto message = [this](int index, const std::string& text) {
        return "moURManager::redo index=int:" + std::to_string(index) + " added=bool:true text=string:\"" + text +
               "\" description=string:\"" + text + "\" id=int:" + std::to_string(Command::commandId()) +
               " lightlinkset=uint:" + std::to_string(idOf(set));
    };
    EXPECT_THAT(trace.takeMessages(), testing::ElementsAre(message(0, "Add Node to Light Link Set"),
                                                           message(1, "Add Nodes to Light Link Set")));
}

TEST_P(LightLinkList, NothingMergesHoweverFast)
{
    const auto a = make("a");
    auto* first = new Command(set, a, listType(), adding, nullptr);
    auto* again = new Command(set, a, listType(), adding, nullptr);
    again->setMergeResponseDelta(-1.);
    EXPECT_FALSE(first->canMergeWith(again));
    EXPECT_FALSE(first->mergeWith(again));
    stack.addOrExecute(first);
    stack.addOrExecute(again);
    EXPECT_EQ(stack.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Lists, LightLinkList, testing::Values(lights, 0u),
                         [](const auto& instance) { return instance.param == lights ? "Lights" : "SceneNodes"; });

using LightLinkListType = LightLinkTest;

TEST_F(LightLinkListType, OnlyThreeIsTheListOfLights)
{
    for (const unsigned int listType : {0u, 1u, 2u, 4u, 0x80000003u}) {
        stack.addOrExecute(new Command(set, make("a"), listType, adding, nullptr));
        EXPECT_EQ(inSceneNodes(), "a") << listType;
        EXPECT_EQ(inLights(), "");
        stack.undo();
    }
    stack.addOrExecute(new Command(set, make("b"), 3, adding, nullptr));
    EXPECT_EQ(inLights(), "b");
}

} // namespace
