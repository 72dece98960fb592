#include "TracedConstraints.h"

#include <support/WholeSteps.h>

#include <moUndoStack/constraint/moDeleteConstraintReferenceUndoCommand.h>
#include <moUndoStack/constraint/moSetConstraintTargetUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>

#include <moUndoUtils/moUndoString.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using SetConstraintTarget = ConstraintTest;

TEST_F(SetConstraintTarget, RedoMakesTheObjectTheTargetAndUndoLeavesNone)
{
    moSetConstraintTargetUndoCommand command(plain, lamp, nullptr);
    EXPECT_EQ(describe(plain), "sources target -");
    for (int round = 0; round < 2; ++round) {
        command.redo();
        EXPECT_EQ(describe(plain), "sources target lamp*1");
        command.undo();
        EXPECT_EQ(describe(plain), "sources target -");
    }
    EXPECT_THAT(edits.take(), ElementsAre("plain target 1", "plain target 1", "plain target 1", "plain target 1"));
}

TEST_F(SetConstraintTarget, UndoDoesNotBringBackTheTargetBefore)
{
    aim->createTarget(door);
    moSetConstraintTargetUndoCommand command(aim, lamp, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources up target lamp*1");
    command.undo();
    EXPECT_EQ(describe(aim), "sources up target -");
}

TEST_F(SetConstraintTarget, ReplacedInACompositeThatFirstDeletesTheReferenceComesBackByUndo)
{
    aim->createTarget(door);
    moMultiCommand replace(moUndoString("replace", QString()));
    new moDeleteConstraintReferenceUndoCommand(aim, {door}, &replace);
    new moSetConstraintTargetUndoCommand(aim, lamp, &replace);
    for (int round = 0; round < 2; ++round) {
        replace.redo();
        EXPECT_EQ(describe(aim), "sources up target lamp*1");
        replace.undo();
        EXPECT_EQ(describe(aim), "sources up target door*1");
    }
}

TEST_F(SetConstraintTarget, TargetThatItIsAlreadyIsMadeAnewWithItsWeightAndToldOf)
{
    aim->createTarget(lamp);
    aim->getTarget()->setWeight(0.25f);
    const osg::UInt32 before = aim->getTarget().getFieldContainerId();
    moSetConstraintTargetUndoCommand command(aim, lamp, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources up target lamp*1");
    EXPECT_NE(aim->getTarget().getFieldContainerId(), before);
    command.redo();
    command.undo();
    command.undo();
    EXPECT_EQ(describe(aim), "sources up target -");
    EXPECT_THAT(edits.take(), ElementsAre("aim target 1", "aim target 1", "aim target 1", "aim target 1"));
}

TEST_F(SetConstraintTarget, NullTargetTakesTheTargetAway)
{
    aim->createTarget(door);
    moSetConstraintTargetUndoCommand command(aim, osg::NullFC, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources up target -");
    EXPECT_THAT(edits.take(), ElementsAre("aim target 1"));
}

TEST_F(SetConstraintTarget, TargetThatWasDestroyedLeavesTheConstraintUneditedAtRedo)
{
    aim->createTarget(door);
    moSetConstraintTargetUndoCommand command(aim, lamp, nullptr);
    destroy(lamp);
    command.redo();
    EXPECT_EQ(describe(aim), "sources up target door*1");
    EXPECT_THAT(edits.take(), IsEmpty());
    command.undo();
    EXPECT_EQ(describe(aim), "sources up target -");
}

TEST_F(SetConstraintTarget, NullAndDestroyedConstraintsArePassedOver)
{
    moSetConstraintTargetUndoCommand inert(osg::NullFC, lamp, nullptr);
    inert.redo();
    inert.undo();

    moSetConstraintTargetUndoCommand command(aim, lamp, nullptr);
    command.redo();
    edits.take();
    destroy(aim);
    command.undo();
    command.redo();
    EXPECT_THAT(edits.take(), IsEmpty());
}

TEST_F(SetConstraintTarget, ObjectMayBeSourceAndTargetAtOnce)
{
    aim->addSource(lamp, 0.5f);
    moSetConstraintTargetUndoCommand command(aim, lamp, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources lamp*0.5 up target lamp*1");
    command.undo();
    EXPECT_EQ(describe(aim), "sources lamp*0.5 up target -");
}

TEST_F(SetConstraintTarget, HoldsNeitherTargetNorConstraint)
{
    stack.add(new moSetConstraintTargetUndoCommand(aim, lamp, nullptr));
    EXPECT_EQ(aim.getRefCount(), 1);
    EXPECT_EQ(lamp.getRefCount(), 1);
}

TEST_F(SetConstraintTarget, TellsItsTextAndIdAlone)
{
    Trace trace(stack);
    stack.add(new moSetConstraintTargetUndoCommand(aim, lamp, nullptr));
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Set Constraint Target\" "
                            "description=string:\"Set Constraint Target\" id=int:" +
                            std::to_string(moSetConstraintTargetUndoCommand::commandId())));
}

TEST_F(SetConstraintTarget, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new moSetConstraintTargetUndoCommand(aim, lamp, &parent);
    EXPECT_EQ(parent.childCount(), 1);
}

TEST_F(SetConstraintTarget, TwoInARowNeverMerge)
{
    auto* first = new moSetConstraintTargetUndoCommand(aim, lamp, nullptr);
    stack.add(first);
    const moSetConstraintTargetUndoCommand newer(aim, lamp, nullptr);
    EXPECT_FALSE(first->canMergeWith(&newer));
    EXPECT_FALSE(first->mergeWith(&newer));
    stack.add(new moSetConstraintTargetUndoCommand(aim, lamp, nullptr));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(SetConstraintTarget, StandsThoughAListenerThrows)
{
    expectStepsStandThoughAListenerThrows(stack, edits, new moSetConstraintTargetUndoCommand(aim, lamp, nullptr),
                                          [this] { return describe(aim); });
}

} // namespace
