#include "TracedConstraints.h"

#include <support/WholeSteps.h>

#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>
#include <moUndoStack/constraint/moDeleteConstraintReferenceUndoCommand.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The aim constraint has the sources lamp, door and car, the up-vector sources lamp and car, and the target lamp.
class DeleteConstraintReference : public ConstraintTest
{
protected:
    using Command = moDeleteConstraintReferenceUndoCommand;
    using References = std::vector<osg::AttachmentContainerPtr>;

    void SetUp() override
    {
        ConstraintTest::SetUp();
        aim->addSource(lamp, 0.25f);
        aim->addSource(door, 0.5f);
        aim->addSource(car, 0.75f);
        aim->addUpVectorSource(lamp, 2);
        aim->addUpVectorSource(car, 3);
        aim->createTarget(lamp);
        ASSERT_EQ(describe(aim), before);
    }

    const std::string before = "sources lamp*0.25 door*0.5 car*0.75 up lamp*2 car*3 target lamp*1";
};

TEST_F(DeleteConstraintReference, TakesTheObjectOutOfEveryRoleAndPutsItBack)
{
    Command command(aim, {lamp}, nullptr);
    EXPECT_EQ(describe(aim), before);
    EXPECT_THAT(edits.take(), IsEmpty());
    for (int round = 0; round < 2; ++round) {
        command.redo();
        EXPECT_EQ(describe(aim), "sources door*0.5 car*0.75 up car*3 target -");
        EXPECT_THAT(edits.take(), ElementsAre("aim sources 1", "aim upVectorSources 1", "aim target 1"));
        command.undo();
        EXPECT_EQ(describe(aim), "sources door*0.5 car*0.75 lamp*0.25 up car*3 lamp*2 target lamp*1");
        EXPECT_THAT(edits.take(), ElementsAre("aim sources 1", "aim upVectorSources 1", "aim target 1"));
    }
}

TEST_F(DeleteConstraintReference, LeavesEveryRoleThoughAListenerToTheFirstThrows)
{
    expectStepsStandThoughAListenerThrows(stack, edits, new Command(aim, {lamp, car}, nullptr),
                                          [this] { return describe(aim); });
}

TEST_F(DeleteConstraintReference, UndoPutsTheVerySameObjectsBack)
{
    const auto source = aim->findSourceConstraintObject(lamp);
    const auto upVector = aim->findUpVectorConstraintObject(lamp);
    const auto target = aim->getTarget();
    Command command(aim, {lamp}, nullptr);
    command.redo();
    source->setWeight(9);
    command.undo();
    EXPECT_EQ(aim->findSourceConstraintObject(lamp), source);
    EXPECT_EQ(aim->findUpVectorConstraintObject(lamp), upVector);
    EXPECT_EQ(aim->getTarget(), target);
    EXPECT_EQ(source->getWeight(), 9);
}

TEST_F(DeleteConstraintReference, RestoresInTheOrderInWhichTheObjectsWereMade)
{
    Command command(aim, {car, lamp, door}, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources up target -");
    command.undo();
    EXPECT_EQ(describe(aim), before);
}

TEST_F(DeleteConstraintReference, OnlyTheRolesConcernedAreEdited)
{
    Command command(aim, {door}, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources lamp*0.25 car*0.75 up lamp*2 car*3 target lamp*1");
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1"));

    aim->setTarget(osg::NullFC);
    aim->createTarget(door);
    Command targetOnly(aim, {door}, nullptr);
    targetOnly.redo();
    EXPECT_THAT(edits.take(), ElementsAre("aim target 1"));
    targetOnly.undo();
    EXPECT_EQ(describe(aim), "sources lamp*0.25 car*0.75 up lamp*2 car*3 target door*1");
}

TEST_F(DeleteConstraintReference, ObjectThatPlaysNoRoleOpensNoEdit)
{
    const auto stranger = osg::Node::create();
    osg::addRefCP(stranger);
    for (const References& references : {References(), References{osg::NullFC}, References{stranger}}) {
        Command command(aim, references, nullptr);
        command.redo();
        command.undo();
    }
    EXPECT_THAT(edits.take(), IsEmpty());
    EXPECT_EQ(describe(aim), before);
    osg::subRefCP(stranger);
}

TEST_F(DeleteConstraintReference, RepeatedAndNullReferencesCountOnce)
{
    const auto source = aim->findSourceConstraintObject(lamp);
    const auto target = aim->getTarget();
    {
        Command command(aim, {lamp, osg::NullFC, lamp, lamp}, nullptr);
        EXPECT_EQ(source.getRefCount(), 2);
        EXPECT_EQ(target.getRefCount(), 2);
        command.redo();
        EXPECT_EQ(source.getRefCount(), 1);
        command.undo();
        EXPECT_EQ(describe(aim), "sources door*0.5 car*0.75 lamp*0.25 up car*3 lamp*2 target lamp*1");
    }
    EXPECT_EQ(source.getRefCount(), 1);
    EXPECT_EQ(target.getRefCount(), 1);
}

TEST_F(DeleteConstraintReference, OneObjectInTwoRolesIsHeldForEach)
{
    const auto source = aim->findSourceConstraintObject(door);
    aim->setTarget(source);
    ASSERT_EQ(source.getRefCount(), 2);
    {
        Command command(aim, {door}, nullptr);
        EXPECT_EQ(source.getRefCount(), 4);
        command.redo();
        EXPECT_EQ(source.getRefCount(), 2);
        command.undo();
        EXPECT_EQ(aim->getTarget(), source);
        EXPECT_EQ(aim->findSourceConstraintObject(door), source);
    }
    EXPECT_EQ(source.getRefCount(), 2);
}

TEST_F(DeleteConstraintReference, DestroyedWhileDoneItDestroysWhatItHolds)
{
    const std::size_t containers = liveContainerCount();
    {
        Command command(aim, {lamp}, nullptr);
        command.redo();
        EXPECT_EQ(liveContainerCount(), containers);
    }
    EXPECT_EQ(liveContainerCount(), containers - 3);
}

TEST_F(DeleteConstraintReference, TargetSetInBetweenIsReplacedAtUndo)
{
    Command command(aim, {lamp}, nullptr);
    command.redo();
    aim->createTarget(door);
    command.undo();
    EXPECT_TRUE(aim->hasTarget(lamp));
}

TEST_F(DeleteConstraintReference, TargetSetAfterUndoGoesAtRedoAndTheRecordedOneComesBack)
{
    Command command(aim, {lamp}, nullptr);
    command.redo();
    command.undo();
    for (int round = 0; round < 2; ++round) {
        aim->createTarget(door);
        command.redo();
        EXPECT_EQ(aim->getTarget(), osg::NullFC);
        command.undo();
        EXPECT_TRUE(aim->hasTarget(lamp));
    }
}

TEST_F(DeleteConstraintReference, EachRoleIsToldOfAlsoWhenSomebodyElseWasThereBefore)
{
    Command command(aim, {lamp}, nullptr);
    const auto target = aim->getTarget();
    osg::addRefCP(target);
    aim->setTarget(osg::NullFC);
    command.redo();
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1", "aim upVectorSources 1", "aim target 1"));
    aim->setTarget(target);
    command.undo();
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1", "aim upVectorSources 1", "aim target 1"));
    EXPECT_EQ(aim->getTarget(), target);
    osg::subRefCP(target);
}

TEST_F(DeleteConstraintReference, SceneObjectThatWasDestroyedComesBackAsARoleWithoutObject)
{
    Command command(aim, {lamp}, nullptr);
    command.redo();
    destroy(lamp);
    command.undo();
    EXPECT_EQ(describe(aim), "sources door*0.5 car*0.75 gone*0.25 up car*3 gone*2 target gone*1");
    command.redo();
    EXPECT_EQ(describe(aim), "sources door*0.5 car*0.75 up car*3 target -");
}

TEST_F(DeleteConstraintReference, RemovesAgainWhatASourceCommandBeforeItHasAddedAgain)
{
    stack.add(new moAddConstraintSourcesUndoCommand(plain, {lamp, door}, nullptr));
    stack.add(new Command(plain, {lamp}, nullptr));
    EXPECT_EQ(describe(plain), "sources door*1 target -");
    stack.undo();
    stack.undo();
    EXPECT_EQ(describe(plain), "sources target -");
    stack.redo();
    EXPECT_EQ(describe(plain), "sources lamp*1 door*1 target -");
    stack.redo();
    EXPECT_EQ(describe(plain), "sources door*1 target -");
    stack.undo();
    EXPECT_EQ(describe(plain), "sources door*1 lamp*1 target -");
    stack.undo();
    EXPECT_EQ(describe(plain), "sources target -");
}

TEST_F(DeleteConstraintReference, ObjectsOfAnotherConstraintAreLeftAlone)
{
    plain->addSource(lamp, 5);
    plain->createTarget(lamp);
    Command command(aim, {lamp}, nullptr);
    command.redo();
    EXPECT_EQ(describe(plain), "sources lamp*5 target lamp*1");
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1", "aim upVectorSources 1", "aim target 1"));
}

TEST_F(DeleteConstraintReference, ConstraintWithoutUpVectorsHasTwoRoles)
{
    plain->addSource(lamp, 5);
    plain->createTarget(lamp);
    Command command(plain, {lamp}, nullptr);
    command.redo();
    EXPECT_EQ(describe(plain), "sources target -");
    command.undo();
    EXPECT_EQ(describe(plain), "sources lamp*5 target lamp*1");
    EXPECT_THAT(edits.take(), ElementsAre("plain sources 1", "plain target 1", "plain sources 1", "plain target 1"));
}

TEST_F(DeleteConstraintReference, NullAndDestroyedConstraintsArePassedOver)
{
    Command inert(osg::NullFC, {lamp}, nullptr);
    inert.redo();
    inert.undo();

    const auto source = aim->findSourceConstraintObject(lamp);
    {
        Command command(aim, {lamp}, nullptr);
        destroy(aim);
        command.redo();
        command.undo();
        EXPECT_EQ(source.getRefCount(), 1);
    }
    EXPECT_THAT(edits.take(), IsEmpty());
}

TEST_F(DeleteConstraintReference, ConstraintDestroyedByAListenerIsNotEditedAnyMore)
{
    Command command(aim, {lamp}, nullptr);
    edits.onChange([this] { destroy(aim); });
    command.redo();
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1"));
}

TEST_F(DeleteConstraintReference, TellsItsTextAndIdAlone)
{
    Trace trace(stack);
    stack.add(new Command(aim, {lamp}, nullptr));
    EXPECT_THAT(
        trace.takeMessages(),
        ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Remove References from Constraint\" "
                    "description=string:\"Remove References from Constraint\" id=int:" +
                    std::to_string(Command::commandId())));
}

TEST_F(DeleteConstraintReference, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new Command(aim, {lamp}, &parent);
    EXPECT_EQ(parent.childCount(), 1);
}

TEST_F(DeleteConstraintReference, TwoInARowNeverMerge)
{
    auto* first = new Command(aim, {lamp}, nullptr);
    stack.add(first);
    const Command newer(aim, {lamp}, nullptr);
    EXPECT_FALSE(first->canMergeWith(&newer));
    EXPECT_FALSE(first->mergeWith(&newer));
    stack.add(new Command(aim, {door}, nullptr));
    EXPECT_EQ(stack.size(), 2);
}

} // namespace
