// What QUndoStack does, as far as moUndoStack relies on it.

#include <qt/QtTest.h>

#include <QtCore/QString>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

[[noreturn]] void fail()
{
    throw std::runtime_error("of the command");
}

// --- push -----------------------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, RunsACommandBeforeItOwnsIt)
{
    auto* const pushed = command("a");
    int countInRedo = -1;
    pushed->onRedo = [&] { countInRedo = stack.count(); };
    stack.push(pushed);
    EXPECT_EQ(countInRedo, 0);
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(stack.command(0), pushed);
}

TEST_F(QtUndoStack, LeavesACommandWhoseRedoThrowsToTheCaller)
{
    push("a");
    push("b");
    stack.undo();
    take();
    const std::unique_ptr<LoggingCommand> failing(command("failing"));
    failing->onRedo = fail;
    EXPECT_THROW(stack.push(failing.get()), std::runtime_error);
    EXPECT_THAT(take(), ElementsAre("redo failing"));
    EXPECT_EQ(stack.count(), 2) << "what could have been done again is still there";
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(QtUndoStack, DropsWhatCouldHaveBeenDoneAgainAfterTheRedoOfThePushedCommand)
{
    push("a");
    push("b");
    stack.undo();
    take();
    push("c");
    EXPECT_THAT(take(), ElementsAre("redo c", "delete b", "index 2 of 2"));
}

TEST_F(QtUndoStack, TellsOfEachPushUndoAndRedoOnceWhenItHasMoved)
{
    push("a");
    EXPECT_THAT(take(), ElementsAre("redo a", "index 1 of 1"));
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("undo a", "index 0 of 1"));
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("redo a", "index 1 of 1"));
}

TEST_F(QtUndoStack, TellsNothingOfAnUndoOrRedoThatCannotMove)
{
    stack.undo();
    stack.redo();
    push("a");
    take();
    stack.redo();
    stack.setIndex(1);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(QtUndoStack, PutsACommandThatIsPushedFromARedoBelowTheOneThatRuns)
{
    auto* const outer = command("outer");
    outer->onRedo = [&] { push("inner"); };
    stack.push(outer);
    ASSERT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.command(0)->text(), "inner");
    EXPECT_EQ(stack.command(1)->text(), "outer");
}

TEST_F(QtUndoStack, HasNoLimitUnlessToldOtherwise)
{
    EXPECT_EQ(stack.undoLimit(), 0);
    for (int i = 0; i < 1000; ++i)
        push("a");
    EXPECT_EQ(stack.count(), 1000);
}

TEST_F(QtUndoStack, GivesNullForACommandThatThereIsNot)
{
    EXPECT_EQ(stack.command(-1), nullptr);
    EXPECT_EQ(stack.command(0), nullptr);
    push("a");
    EXPECT_EQ(stack.command(1), nullptr);
}

// --- merge ----------------------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, AsksTheTopCommandToMergeANewerOneOfTheSameId)
{
    stack.push(command("a", 1));
    stack.push(command("b", 1));
    EXPECT_THAT(take(), ElementsAre("redo a", "index 1 of 1", "redo b", "merge b into a", "index 2 of 2"));
}

TEST_F(QtUndoStack, AsksNobodyToMergeAnIdOfMinusOneOrAnotherId)
{
    push("a");
    push("b");
    stack.push(command("c", 1));
    stack.push(command("d", 2));
    EXPECT_THAT(take(), testing::Each(testing::Not(testing::StartsWith("merge"))));
    EXPECT_EQ(stack.count(), 4);
}

TEST_F(QtUndoStack, DeletesAMergedCommandAndThenReportsTheUnchangedIndex)
{
    auto* const older = command("a", 1);
    older->onMerge = [] { return true; };
    stack.push(older);
    take();
    stack.push(command("b", 1));
    EXPECT_THAT(take(), ElementsAre("redo b", "merge b into a", "delete b", "index 1 of 1"));
}

TEST_F(QtUndoStack, LeavesACommandToTheCallerWhenMergingItThrowsAndHasDroppedWhatCouldHaveBeenDoneAgain)
{
    auto* const older = command("a", 1);
    older->onMerge = []() -> bool { fail(); };
    stack.push(older);
    push("b");
    stack.undo();
    take();
    const std::unique_ptr<LoggingCommand> newer(command("c", 1));
    EXPECT_THROW(stack.push(newer.get()), std::runtime_error);
    EXPECT_THAT(take(), ElementsAre("redo c", "delete b", "merge c into a"));
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(stack.command(0), older);
}

// --- steps that throw -----------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, KeepsItsIndexWhenAnUndoOrRedoThrows)
{
    auto* const pushed = command("a");
    stack.push(pushed);
    pushed->onUndo = fail;
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(stack.index(), 1);
    pushed->onUndo = nullptr;
    stack.undo();
    pushed->onRedo = fail;
    take();
    EXPECT_THROW(stack.redo(), std::runtime_error);
    EXPECT_EQ(stack.index(), 0);
    EXPECT_THAT(take(), ElementsAre("redo a"));
}

TEST_F(QtUndoStack, ReportsAJumpOnceAndKeepsItsIndexWhenACommandOnTheWayThrows)
{
    push("a");
    auto* const second = command("b");
    stack.push(second);
    push("c");
    take();
    stack.setIndex(0);
    EXPECT_THAT(take(), ElementsAre("undo c", "undo b", "undo a", "index 0 of 3"));
    second->onRedo = fail;
    EXPECT_THROW(stack.setIndex(3), std::runtime_error);
    EXPECT_THAT(take(), ElementsAre("redo a", "redo b")) << "a has been run, and the stack does not say so";
    EXPECT_EQ(stack.index(), 0);
}

// --- commands that turn obsolete ------------------------------------------------------------------------------------

/// Three commands are done; the two upper ones can be told to turn obsolete when they are undone or redone.
class QtUndoStackWithObsoleteCommands : public QtUndoStack
{
protected:
    QtUndoStackWithObsoleteCommands()
    {
        for (LoggingCommand* each : {a, b, c})
            stack.push(each);
        take();
    }

    static std::function<void()> turn(LoggingCommand* command)
    {
        return [command] { command->setObsolete(true); };
    }

    LoggingCommand* const a = command("a", 1);
    LoggingCommand* const b = command("b", 2);
    LoggingCommand* const c = command("c", 3);
};

TEST_F(QtUndoStackWithObsoleteCommands, DeletesTheOneThatItUndoesAndMoves)
{
    c->onUndo = turn(c);
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("undo c", "delete c", "index 2 of 2"));
}

TEST_F(QtUndoStackWithObsoleteCommands, DeletesTheOneThatItRedoesAndTellsNothing)
{
    stack.undo();
    c->onRedo = turn(c);
    take();
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("redo c", "delete c"));
    EXPECT_EQ(stack.index(), 2);
}

TEST_F(QtUndoStackWithObsoleteCommands, DeletesThemInAJumpAndReportsItOnce)
{
    c->onUndo = turn(c);
    a->onRedo = turn(a);
    stack.setIndex(0);
    EXPECT_THAT(take(), ElementsAre("undo c", "delete c", "undo b", "undo a", "index 0 of 2"));
    stack.setIndex(2);
    EXPECT_THAT(take(), ElementsAre("redo a", "delete a", "redo b", "index 1 of 1"));
}

TEST_F(QtUndoStackWithObsoleteCommands, StillCountsThemBelowItsIndexWhenAJumpBackThrowsAfterwards)
{
    c->onUndo = turn(c);
    b->onUndo = fail;
    EXPECT_THROW(stack.setIndex(0), std::runtime_error);
    EXPECT_THAT(take(), ElementsAre("undo c", "delete c", "undo b"));
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.index(), 3) << "a push, undo, redo or jump would read past the end";
    stack.clear();
    EXPECT_EQ(stack.index(), 0);
    push("d");
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(QtUndoStackWithObsoleteCommands, CountsRightWhenAJumpForwardThrowsAfterwards)
{
    stack.setIndex(0);
    b->onRedo = turn(b);
    c->onRedo = fail;
    EXPECT_THROW(stack.setIndex(3), std::runtime_error);
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.index(), 0);
}

TEST_F(QtUndoStackWithObsoleteCommands, KeepsTheOneThatThrowsAfterItHasTurned)
{
    c->onUndo = [this] {
        c->setObsolete(true);
        fail();
    };
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(stack.index(), 3);
}

TEST_F(QtUndoStackWithObsoleteCommands, KeepsTheOneThatThrowsWhenANewerOneIsMerged)
{
    c->onMerge = [this]() -> bool {
        c->setObsolete(true);
        fail();
    };
    const std::unique_ptr<LoggingCommand> newer(command("newer", 3));
    EXPECT_THROW(stack.push(newer.get()), std::runtime_error);
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(stack.index(), 3);
}

TEST_F(QtUndoStackWithObsoleteCommands, ReportsAStepBackWhenTheTopOneTurnsAsANewerOneIsMerged)
{
    c->onMerge = [this] {
        c->setObsolete(true);
        return true;
    };
    stack.push(command("newer", 3));
    EXPECT_THAT(take(), ElementsAre("redo newer", "merge newer into c", "delete newer", "delete c", "index 2 of 2"));
}

// --- clear and the end ----------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, DeletesAllCommandsWhenItIsClearedAndThenReportsIndexZero)
{
    push("a");
    push("b");
    stack.undo();
    take();
    stack.clear();
    EXPECT_THAT(take(), ElementsAre("delete a", "delete b", "index 0 of 0"));
}

TEST_F(QtUndoStack, TellsNothingWhenItIsClearedEmpty)
{
    stack.clear();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(QtUndoStack, StillCountsItsCommandsWhileItIsClearedOfThem)
{
    int countInDestructor = -1;
    auto* const pushed = command("a");
    pushed->onDestroyed = [&] { countInDestructor = stack.count(); };
    stack.push(pushed);
    stack.clear();
    EXPECT_EQ(countInDestructor, 1) << "if this is 0, moStackCalls need not answer for it any more";
}

TEST(QtUndoStackAtItsEnd, EmitsSignalsFromItsDestructor)
{
    Lines log;
    auto stack = std::make_unique<QUndoStack>();
    stack->push(new LoggingCommand(log, "a"));
    QObject listener;
    QObject::connect(stack.get(), &QUndoStack::indexChanged, &listener,
                     [&log](int index) { log.push_back("index " + std::to_string(index)); });
    log.clear();
    stack.reset();
    EXPECT_THAT(log, ElementsAre("delete a", "index 0"));
}

TEST(QtUndoStackAtItsEnd, TellsNobodyOnceItWasDisconnected)
{
    Lines log;
    auto stack = std::make_unique<QUndoStack>();
    stack->push(new LoggingCommand(log, "a"));
    QObject listener;
    QObject::connect(stack.get(), &QUndoStack::indexChanged, &listener, [&log](int) { log.emplace_back("index"); });
    log.clear();
    stack->disconnect();
    stack.reset();
    EXPECT_THAT(log, ElementsAre("delete a"));
}

// --- macros ---------------------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, CountsAMacroFromItsBeginAndMovesOnlyAtItsEnd)
{
    stack.beginMacro("macro");
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(stack.index(), 0);
    push("a");
    push("b");
    EXPECT_THAT(take(), ElementsAre("redo a", "redo b")) << "no index change inside";
    EXPECT_EQ(stack.count(), 1);
    stack.endMacro();
    EXPECT_THAT(take(), ElementsAre("index 1 of 1"));
    ASSERT_EQ(stack.command(0)->childCount(), 2);
    EXPECT_EQ(stack.command(0)->child(1)->text(), "b");
}

TEST_F(QtUndoStack, ReportsAMacroInAMacroOnce)
{
    stack.beginMacro("outer");
    stack.beginMacro("inner");
    push("a");
    stack.endMacro();
    EXPECT_THAT(take(), ElementsAre("redo a"));
    stack.endMacro();
    EXPECT_THAT(take(), ElementsAre("index 1 of 1"));
}

TEST_F(QtUndoStack, DropsWhatCouldHaveBeenDoneAgainWhenAMacroBegins)
{
    push("a");
    stack.undo();
    take();
    stack.beginMacro("macro");
    EXPECT_THAT(take(), ElementsAre("delete a"));
    stack.endMacro();
}

TEST_F(QtUndoStack, RefusesToMoveWhileAMacroIsOpen)
{
    push("a");
    push("b");
    stack.undo();
    stack.beginMacro("macro");
    take();
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.canRedo());
    stack.undo();
    stack.redo();
    stack.setIndex(0);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(stack.index(), 1);
    stack.endMacro();
}

TEST_F(QtUndoStack, ClosesAnOpenMacroWhenItIsCleared)
{
    stack.beginMacro("macro");
    push("a");
    stack.clear();
    push("b");
    EXPECT_EQ(stack.index(), 1) << "inside a macro it would not move";
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(QtUndoStack, IgnoresTheEndOfAMacroThatWasNotBegun)
{
    stack.endMacro();
    EXPECT_THAT(take(), IsEmpty());
    push("a");
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(QtUndoStack, MergesInsideAMacroWithTheCommandBefore)
{
    auto* const older = command("a", 1);
    older->onMerge = [] { return true; };
    stack.beginMacro("macro");
    stack.push(older);
    stack.push(command("b", 1));
    EXPECT_THAT(take(), ElementsAre("redo a", "redo b", "merge b into a", "delete b"));
    stack.endMacro();
    EXPECT_EQ(stack.command(0)->childCount(), 1);
}

TEST_F(QtUndoStack, OwnsACommandThatThrowsInAMacroNeither)
{
    stack.beginMacro("macro");
    const std::unique_ptr<LoggingCommand> failing(command("failing"));
    failing->onRedo = fail;
    EXPECT_THROW(stack.push(failing.get()), std::runtime_error);
    stack.endMacro();
    EXPECT_EQ(stack.command(0)->childCount(), 0);
}

// --- clean state and limit ------------------------------------------------------------------------------------------

TEST_F(QtUndoStack, NeverMergesIntoTheCleanCommand)
{
    auto* const older = command("a", 1);
    older->onMerge = [] { return true; };
    stack.push(older);
    stack.setClean();
    stack.push(command("b", 1));
    EXPECT_EQ(stack.count(), 2);
}

TEST_F(QtUndoStack, LosesTheCleanStateWhenAPushOrAMacroDeletesItsCommand)
{
    push("a");
    stack.setClean();
    stack.undo();
    push("b");
    EXPECT_EQ(stack.cleanIndex(), -1);
    stack.setClean();
    stack.undo();
    stack.beginMacro("macro");
    EXPECT_EQ(stack.cleanIndex(), -1);
    stack.endMacro();
}

TEST_F(QtUndoStack, IsCleanAfterClearOnlyIfItHeldACommand)
{
    stack.resetClean();
    stack.clear();
    EXPECT_FALSE(stack.isClean());
    push("a");
    stack.resetClean();
    stack.clear();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(QtUndoStack, DeletesTheOldestCommandAfterAppendingAndThenReportsTheUnchangedIndex)
{
    stack.setUndoLimit(2);
    push("a");
    push("b");
    stack.setClean();
    take();
    push("c");
    EXPECT_THAT(take(), ElementsAre("redo c", "delete a", "index 2 of 2"));
    EXPECT_EQ(stack.cleanIndex(), 1);
}

TEST_F(QtUndoStack, AppliesTheLimitToAMacroAtItsEnd)
{
    stack.setUndoLimit(1);
    push("a");
    stack.beginMacro("macro");
    EXPECT_EQ(stack.count(), 2);
    stack.endMacro();
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(QtUndoStack, RefusesALimitWhileItHoldsACommand)
{
    push("a");
    stack.setUndoLimit(5);
    EXPECT_EQ(stack.undoLimit(), 0);
}

} // namespace
