#include <support/ContextTranslator.h>
#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Composition : public UndoTest
{
protected:
    ProbeCommand* child(const char* name) { return (new ProbeCommand(name))->loggingTo(steps); }

    const moUndoCommandBase* top() const { return dynamic_cast<const moUndoCommandBase*>(stack.currentCommand()); }

    std::vector<std::string> steps;
};

TEST_F(Composition, WithoutACommandRecordsAndReportsNothing)
{
    Trace trace(stack);
    stack.beginMultiCommand("empty", "", true);
    stack.endMultiCommand();
    EXPECT_THAT(trace.take(), IsEmpty());
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
}

TEST_F(Composition, RunsItsCommandsOnlyWhenItEnds)
{
    stack.beginMultiCommand("composite", "", true);
    stack.addOrExecute(child("a"));
    stack.add(child("b"));
    EXPECT_THAT(steps, IsEmpty());
    stack.endMultiCommand();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b"));
    EXPECT_EQ(describe(stack), "1 step, at \"composite\", undo, no redo");
    stack.undo();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b", "undo b", "undo a"));
}

TEST_F(Composition, OfOneCommandIsRecordedAsAComposite)
{
    stack.beginMultiCommand("composite", "", true);
    child("a");
    stack.endMultiCommand();
    EXPECT_NE(dynamic_cast<const moMultiCommand*>(stack.currentCommand()), nullptr);
}

TEST_F(Composition, WithoutATextTakesThatOfItsOnlyChild)
{
    stack.beginMultiCommand("", "", true);
    child("Move");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "Set Move");
    EXPECT_EQ(const_cast<moUndoCommandBase*>(top())->getDescription(), "Set about Move");
}

TEST_F(Composition, WithoutATextListsTheTextsOfItsChildrenWithABlankAfterEach)
{
    stack.beginMultiCommand("", "", true);
    child("A");
    child("B");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "Set (A) (B) ");
    EXPECT_EQ(top()->getDescription(), "Set about A");
}

TEST_F(Composition, KeepsTheTextAndDescriptionItWasGiven)
{
    stack.beginMultiCommand("mine", "my description", true);
    child("A");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "mine");
    EXPECT_EQ(top()->getDescription(), "my description");
}

TEST_F(Composition, MakesUpOnlyWhatItWasNotGiven)
{
    stack.beginMultiCommand("mine", "", true);
    child("A");
    child("B");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "mine");
    EXPECT_EQ(top()->getDescription(), "Set about A");

    stack.beginMultiCommand("", "my description", true);
    child("A");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "Set A");
    EXPECT_EQ(top()->getDescription(), "my description");
}

TEST_F(Composition, WithoutATextTranslatesTheTextThatItMakesUpButNotTheDescription)
{
    const ContextTranslator translator;
    stack.beginMultiCommand("", "", true);
    child("Move");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "moUndoStack: Set Move");
    EXPECT_EQ(top()->getDescription(), "Set about Move");
}

TEST_F(Composition, KeepsATextOfNothingButABlank)
{
    stack.beginMultiCommand(" ", " ", true);
    child("A");
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), " ");
    EXPECT_EQ(top()->getDescription(), " ");
}

TEST_F(Composition, WhoseFirstChildHasNoDescriptionKeepsAnEmptyOne)
{
    stack.beginMultiCommand("", "", true);
    new QUndoCommand("plain", moUndoStack::getCurrentCommandParent());
    stack.endMultiCommand();
    EXPECT_EQ(top()->text(), "Set plain");
    EXPECT_EQ(top()->getDescription(), "");
}

TEST_F(Composition, ThatIsNestedIsAChildOfTheOneAroundIt)
{
    stack.beginMultiCommand("outer", "", true);
    child("a");
    stack.beginMultiCommand("inner", "", true);
    child("b");
    stack.endMultiCommand();
    EXPECT_THAT(steps, IsEmpty()) << "the end of a nested composition runs nothing";
    child("c");
    stack.endMultiCommand();
    EXPECT_EQ(describe(stack), "1 step, at \"outer\", undo, no redo");
    ASSERT_EQ(top()->childCount(), 3);
    EXPECT_EQ(top()->child(1)->text(), "inner");
    EXPECT_EQ(top()->child(1)->childCount(), 1);
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b", "redo c"));
}

TEST_F(Composition, EndedOnceTooOftenIsLoggedAndIgnored)
{
    stack.endMultiCommand();
    EXPECT_THAT(log.take(), ElementsAre("errorNR: moUndoStack::endMultiCommand(): no matching beginMultiCommand()"));
}

TEST_F(Composition, EndedOnTheOtherStackIsLoggedWithThatStackAndStaysOpen)
{
    stack.beginMultiCommand("composite", "", true);
    child("a");
    second.endMultiCommand();
    EXPECT_THAT(log.take(),
                ElementsAre("errorNR: moUndoStack::endMultiCommand(): no matching beginMultiCommand() for stack 1."));
    EXPECT_NE(moUndoStack::getCurrentCommandParent(), nullptr);
    stack.endMultiCommand();
    EXPECT_EQ(describe(stack), "1 step, at \"composite\", undo, no redo");

    second.beginMultiCommand("composite", "", true);
    stack.endMultiCommand();
    EXPECT_THAT(log.take(),
                ElementsAre("errorNR: moUndoStack::endMultiCommand(): no matching beginMultiCommand() for stack 0."));
    second.endMultiCommand();
}

TEST_F(Composition, NestedOnTheOtherStackMustBeEndedThereFirst)
{
    stack.beginMultiCommand("outer", "", true);
    second.beginMultiCommand("inner", "", true);
    child("a");
    stack.endMultiCommand();
    EXPECT_THAT(log.take(),
                ElementsAre("errorNR: moUndoStack::endMultiCommand(): no matching beginMultiCommand() for stack 0."));
    second.endMultiCommand();
    stack.endMultiCommand();
    EXPECT_THAT(log.take(), IsEmpty());
    EXPECT_EQ(describe(stack), "1 step, at \"outer\", undo, no redo");
    EXPECT_TRUE(second.isEmpty());
}

TEST_F(Composition, IsRecordedOnTheStackThatBeganIt)
{
    second.beginMultiCommand("composite", "", true);
    child("a");
    second.endMultiCommand();
    EXPECT_EQ(describe(second), "1 step, at \"composite\", undo, no redo");
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(Composition, IsNoParentWhileRecordingIsBlocked)
{
    stack.beginMultiCommand("composite", "", true);
    EXPECT_NE(moUndoStack::getCurrentCommandParent(), nullptr);
    moUndoStack::beginBlockUndo();
    EXPECT_EQ(moUndoStack::getCurrentCommandParent(), nullptr);
    stack.addOrExecute(child("blocked"));
    EXPECT_THAT(steps, ElementsAre("redo blocked"));
    moUndoStack::endBlockUndo();
    stack.endMultiCommand();
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(Composition, EndedWhileRecordingIsBlockedIsRunAndDeleted)
{
    Trace trace(stack);
    int deleted = 0;
    stack.beginMultiCommand("composite", "", true);
    child("a")->onDestroyed([&deleted] { ++deleted; });
    moUndoStack::beginBlockUndo();
    stack.endMultiCommand();
    moUndoStack::endBlockUndo();
    EXPECT_THAT(steps, ElementsAre("redo a"));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(trace.take().front(), "signal redo \"composite\" added");
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(Composition, BegunWhileRecordingIsBlockedIsRecordedIfItIsNotWhenItEnds)
{
    moUndoStack::beginBlockUndo();
    stack.beginMultiCommand("composite", "", true);
    stack.addOrExecute(child("a"));
    EXPECT_THAT(steps, ElementsAre("redo a")) << "nobody's child: run at once";
    moUndoStack::endBlockUndo();
    stack.addOrExecute(child("b"));
    stack.endMultiCommand();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b"));
    EXPECT_EQ(describe(stack), "1 step, at \"composite\", undo, no redo");
    EXPECT_EQ(top()->childCount(), 1);
}

TEST_F(Composition, KeepsAChildThatIsHandedInWhileRecordingIsBlocked)
{
    stack.beginMultiCommand("composite", "", true);
    auto* made = child("a");
    moUndoStack::beginBlockUndo();
    stack.addOrExecute(made);
    moUndoStack::endBlockUndo();
    EXPECT_THAT(steps, IsEmpty());
    stack.endMultiCommand();
    EXPECT_THAT(steps, ElementsAre("redo a"));
    EXPECT_EQ(top()->child(0), made);
}

TEST_F(Composition, NestedOneBegunWhileRecordingWasBlockedIsNeitherRunNorRecorded)
{
    stack.beginMultiCommand("outer", "", true);
    child("a");
    moUndoStack::beginBlockUndo();
    stack.beginMultiCommand("lost", "", true);
    moUndoStack::endBlockUndo();
    new QUndoCommand("of the lost one", moUndoStack::getCurrentCommandParent());
    stack.endMultiCommand();
    stack.endMultiCommand();
    EXPECT_EQ(top()->childCount(), 1);
    EXPECT_THAT(steps, ElementsAre("redo a"));
}

TEST_F(Composition, UnderWayIsDeletedByClearWithAWarning)
{
    int deleted = 0;
    const auto count = [&deleted] { ++deleted; };
    stack.beginMultiCommand("outer", "", true);
    child("a")->onDestroyed(count);
    stack.beginMultiCommand("inner", "", true);
    child("b")->onDestroyed(count);
    stack.clear();
    EXPECT_EQ(deleted, 2);
    EXPECT_EQ(moUndoStack::getCurrentCommandParent(), nullptr);
    EXPECT_THAT(log.take(),
                ElementsAre("warningNR: moUndoStack::clearMultiCommands() called while multi command is composed."));
    stack.add(child("next"));
    EXPECT_EQ(describe(stack), "1 step, at \"next\", undo, no redo");
}

TEST_F(Composition, UnderWayIsDeletedAfterTheStepsAndBeforeClearedIsHeard)
{
    std::vector<std::string> order;
    const auto note = [&order](const char* what) { return [&order, what] { order.emplace_back(what); }; };
    stack.add(child("step")->onDestroyed(note("step deleted")));
    stack.beginMultiCommand("composite", "", true);
    child("part")->onDestroyed(note("part deleted"));
    QObject context;
    QObject::connect(&stack, &moUndoStack::cleared, &context, note("cleared"));
    stack.clear();
    EXPECT_THAT(order, ElementsAre("step deleted", "part deleted", "cleared"));
}

TEST_F(Composition, UnderWayOnTheOtherStackIsDeletedByClearToo)
{
    second.beginMultiCommand("composite", "", true);
    child("a");
    stack.clear();
    EXPECT_EQ(moUndoStack::getCurrentCommandParent(), nullptr);
    EXPECT_EQ(log.take().size(), 1U);
}

class MultiCommandConstructors : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        stack.beginMultiCommand("composing", "", true);
        composing = moUndoStack::getCurrentCommandParent();
    }
    void TearDown() override
    {
        stack.endMultiCommand();
        UndoTest::TearDown();
    }

    QUndoCommand* composing = nullptr;
    QUndoCommand given;
};

TEST_F(MultiCommandConstructors, TakeTheCompositeBeingComposedAsParentUnlessTheTwoArgumentOneIsGivenAnother)
{
    EXPECT_EQ((new moMultiCommand(moUndoString("a", "")))->parent(), composing);
    EXPECT_EQ((new moMultiCommand(moUndoString("a", ""), nullptr))->parent(), composing);
    EXPECT_EQ((new moMultiCommand(moUndoString("a", ""), &given))->parent(), &given);
    EXPECT_EQ((new moMultiCommand(moUndoString("a", ""), &given, true))->parent(), composing);
    EXPECT_EQ((new moMultiCommand(moUndoString("a", ""), [] {}))->parent(), composing);
}

TEST_F(MultiCommandConstructors, EnableMergingUnlessToldOtherwise)
{
    EXPECT_TRUE((new moMultiCommand(moUndoString("a", "")))->isMergeEnabled());
    EXPECT_TRUE((new moMultiCommand(moUndoString("a", ""), [] {}))->isMergeEnabled());
    EXPECT_FALSE((new moMultiCommand(moUndoString("a", ""), nullptr, false))->isMergeEnabled());
    auto* command = new moMultiCommand(moUndoString("a", ""), nullptr, true);
    EXPECT_TRUE(command->isMergeEnabled());
    command->setMergeEnabled(false);
    EXPECT_FALSE(command->isMergeEnabled());
}

class MultiCommand : public UndoTest
{
protected:
    ProbeCommand* childOf(QUndoCommand* parent, const char* name)
    {
        return (new ProbeCommand(name, parent))->loggingTo(steps);
    }

    std::vector<std::string> steps;
};

TEST_F(MultiCommand, CallsItsAfterFunctionAfterTheChildrenInBothDirections)
{
    auto* command = new moMultiCommand(moUndoString("a", ""), [this] { steps.emplace_back("after"); });
    childOf(command, "a");
    childOf(command, "b");
    stack.add(command);
    stack.undo();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b", "after", "undo b", "undo a", "after"));
}

TEST_F(MultiCommand, CallsItsAfterFunctionWithoutAnyChildrenToo)
{
    stack.add(new moMultiCommand(moUndoString("a", ""), [this] { steps.emplace_back("after"); }));
    stack.undo();
    EXPECT_THAT(steps, ElementsAre("after", "after"));
}

TEST_F(MultiCommand, KnowsItsDirectChildrenOnly)
{
    moMultiCommand command(moUndoString("a", ""));
    auto* inner = new moMultiCommand(moUndoString("b", ""), &command);
    auto* leaf = childOf(inner, "c");
    EXPECT_TRUE(command.hasChild(inner));
    EXPECT_FALSE(command.hasChild(leaf));
    EXPECT_FALSE(command.hasChild(nullptr));
    EXPECT_FALSE(command.hasChild(&command));
}

TEST_F(MultiCommand, StaysDoneWhenItsAfterFunctionFails)
{
    moMultiCommand command(moUndoString("a", ""), [] { throw std::runtime_error("after"); });
    childOf(&command, "a");
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_THROW(command.undo(), std::runtime_error);
    EXPECT_THAT(steps, ElementsAre("redo a", "undo a"));
}

TEST_F(MultiCommand, DoesNotCallItsAfterFunctionWhenAChildFailedAndTheOthersWereTakenBack)
{
    moMultiCommand command(moUndoString("a", ""), [this] { steps.emplace_back("after"); });
    bool broken = true;
    const auto fail = [&broken] {
        if (broken) throw std::runtime_error("child");
    };
    childOf(&command, "a")->onUndo(fail);
    childOf(&command, "b")->onRedo(fail);
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_THAT(std::exchange(steps, {}), ElementsAre("redo a", "redo b", "undo a"));
    broken = false;
    command.redo();
    EXPECT_THAT(std::exchange(steps, {}), ElementsAre("redo a", "redo b", "after"));
    broken = true;
    EXPECT_THROW(command.undo(), std::runtime_error);
    EXPECT_THAT(steps, ElementsAre("undo b", "undo a", "redo b"));
}

TEST_F(MultiCommand, IsRecordedWhenItsAfterFunctionFailsAndTheCallerHearsOfIt)
{
    auto* command = new moMultiCommand(moUndoString("a", ""), [] { throw std::runtime_error("after"); });
    childOf(command, "a");
    EXPECT_THROW(stack.add(command), std::runtime_error);
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
    EXPECT_THAT(steps, ElementsAre("redo a", "undo a"));
}

TEST_F(MultiCommand, LogsWhatGoesWrongWhileItTakesBackAFailedStep)
{
    moMultiCommand command(moUndoString("a", ""));
    childOf(&command, "a")->onUndo([] { throw std::logic_error("undo a"); });
    childOf(&command, "b")->onUndo([] { throw std::logic_error("undo b"); });
    childOf(&command, "c")->onRedo([] { throw std::runtime_error("redo c"); });
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation: undo b",
                                        "error: moUndoStack: another exception in the same operation: undo a"));
}

TEST_F(MultiCommand, DoesAgainWhatWasUndoneWhenAChildFailsToUndo)
{
    moMultiCommand command(moUndoString("a", ""));
    childOf(&command, "a")->onUndo([] { throw std::runtime_error("undo"); });
    childOf(&command, "b");
    EXPECT_THROW(command.undo(), std::runtime_error);
    EXPECT_THAT(steps, ElementsAre("undo b", "undo a", "redo b"));
}

TEST_F(MultiCommand, RunsAChildThatAnotherOneAddsWhileItRuns)
{
    moMultiCommand command(moUndoString("a", ""));
    childOf(&command, "a")->onRedo([&] {
        if (command.childCount() == 1) childOf(&command, "late");
    });
    command.redo();
    command.undo();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo late", "undo late", "undo a"));
}

TEST_F(MultiCommand, ReportsTheFirstFaultWhenTakingBackFailsToo)
{
    moMultiCommand command(moUndoString("a", ""));
    childOf(&command, "a")->onUndo([] { throw std::logic_error("undo"); });
    childOf(&command, "b")->onRedo([] { throw std::runtime_error("redo"); });
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_EQ(log.take().size(), 1U);
}

/// Two composites of probes that merge whenever they are asked.
class CompositeMerge : public UndoTest
{
protected:
    static constexpr int id = 91;

    moMultiCommand* composite(const char* text, std::vector<std::string> children, bool mergeEnabled = true)
    {
        auto* command = new moMultiCommand(moUndoString(text, QString("about ") + text, ""), nullptr, mergeEnabled);
        for (const std::string& name : children) {
            (new ProbeCommand(name, command))->withId(id)->onMerge([this, name](const QUndoCommand* other) {
                merges.push_back(name + " <- " + other->text().toStdString());
                return false;
            });
        }
        return command;
    }

    std::vector<std::string> merges;
};

TEST_F(CompositeMerge, MergesChildByChildTakesTheNewerTextAndKeepsTheDescription)
{
    stack.add(composite("first", {"a", "b"}));
    stack.add(composite("second", {"c", "d"}));
    EXPECT_EQ(describe(stack), "1 step, at \"second\", undo, no redo");
    EXPECT_EQ(dynamic_cast<const moUndoCommandBase*>(stack.currentCommand())->getDescription(), "about first");
    EXPECT_THAT(merges, ElementsAre("a <- c", "b <- d")) << "what the children answer is not looked at";
}

TEST_F(CompositeMerge, NeedsTheSameNumberOfChildren)
{
    stack.add(composite("first", {"a", "b"}));
    stack.add(composite("second", {"c"}));
    EXPECT_EQ(stack.size(), 2);
    EXPECT_THAT(merges, IsEmpty());
}

TEST_F(CompositeMerge, OfCompositesWithoutChildrenSucceeds)
{
    stack.add(composite("first", {}));
    stack.add(composite("second", {}));
    EXPECT_EQ(describe(stack), "1 step, at \"second\", undo, no redo");
}

TEST_F(CompositeMerge, IsDecidedByTheOlderOnesFlag)
{
    stack.add(composite("first", {"a"}, true));
    stack.add(composite("second", {"b"}, false));
    EXPECT_EQ(describe(stack), "1 step, at \"second\", undo, no redo");
    stack.add(composite("third", {"c"}, false));
    EXPECT_EQ(describe(stack), "1 step, at \"third\", undo, no redo") << "a merge does not hand the flag over";
    stack.clear();
    stack.add(composite("first", {"a"}, false));
    stack.add(composite("second", {"b"}, true));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(CompositeMerge, NeedsEveryChildToAgree)
{
    stack.add(composite("first", {"a", "b"}));
    auto* newer = composite("second", {"c", "d"});
    dynamic_cast<moUndoCommand*>(const_cast<QUndoCommand*>(newer->child(1)))->setMergeEnabled(false);
    stack.add(newer);
    EXPECT_EQ(stack.size(), 2);
    EXPECT_THAT(merges, IsEmpty());
}

TEST_F(CompositeMerge, NeedsEveryChildToBeACommandOfOurs)
{
    for (int i = 0; i < 2; ++i) {
        auto* command = composite("composite", {"a"});
        new QUndoCommand("plain", command);
        stack.add(command);
    }
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(CompositeMerge, FollowsTheMergeIntervalOfTheChildren)
{
    stack.add(composite("first", {"a"}));
    clock.advance(0.5);
    stack.add(composite("second", {"b"}));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(CompositeMerge, OfChildrenWithoutAnIdOfTheirOwnDropsTheNewerOnes)
{
    int undone = 0;
    const auto count = [&undone] { ++undone; };
    for (const char* name : {"first", "second"}) {
        auto* command = new moMultiCommand(moUndoString(name, ""));
        new moGenericFunctionUndoCommand(
            moUndoString("a", ""), count, [] {}, command);
        stack.add(command);
    }
    EXPECT_EQ(describe(stack), "1 step, at \"second\", undo, no redo");
    stack.undo();
    EXPECT_EQ(undone, 1) << "what a child answers when it is merged is not looked at";
}

TEST_F(CompositeMerge, RefusesNull)
{
    const std::unique_ptr<moMultiCommand> command(composite("first", {}));
    EXPECT_FALSE(command->canMergeWith(nullptr));
    EXPECT_FALSE(command->mergeWith(nullptr));
}

} // namespace
