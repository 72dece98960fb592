#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <QUndoStack>

#include <random>

namespace {

/// Saved state, limit, position and texts: all as QUndoStack has them.
class CleanState : public UndoTest
{
protected:
    ProbeCommand* push(const std::string& text)
    {
        auto* command = new ProbeCommand(text);
        stack.add(command);
        return command;
    }

    /// Pushes a step of a drag: it merges with the one before.
    void drag(const std::string& text)
    {
        stack.add((new ProbeCommand(text))->withId(7)->onMerge([](const QUndoCommand*) { return true; }));
    }

    /// Makes the calls while a step is being reported, so that all of them wait.
    template<class Calls>
    void whileAtWork(const Calls& calls)
    {
        QObject context;
        bool called = false;
        QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
            if (!std::exchange(called, true)) calls();
        });
        push("outer");
        EXPECT_TRUE(called);
    }
};

using UndoLimit = CleanState;
using Position = CleanState;

TEST_F(Position, GivesThePositionAndTheStepsThere)
{
    EXPECT_EQ(stack.index(), 0);
    const QUndoCommand* a = push("a");
    const QUndoCommand* b = push("b");
    stack.undo();
    EXPECT_EQ(stack.index(), 1);
    EXPECT_EQ(stack.command(0), a);
    EXPECT_EQ(stack.command(1), b);
    EXPECT_EQ(stack.command(2), nullptr);
    EXPECT_EQ(stack.command(-1), nullptr);
}

TEST_F(Position, GivesTheTextsOfTheStepsBesideThePosition)
{
    EXPECT_EQ(stack.undoText(), "");
    push("a");
    push("b\nshort b");
    push("c");
    stack.undo();
    EXPECT_EQ(stack.undoText(), "short b") << "what an action shows";
    EXPECT_EQ(stack.redoText(), "c");
    stack.beginMacro("macro");
    EXPECT_EQ(stack.undoText(), "") << "nothing can be undone while a macro is open";
    stack.endMacro();
    EXPECT_EQ(stack.undoText(), "macro");
}

TEST_F(CleanState, IsCleanAtFirstAndAfterClear)
{
    EXPECT_TRUE(stack.isClean());
    push("a");
    EXPECT_FALSE(stack.isClean());
    stack.resetClean();
    EXPECT_EQ(stack.cleanIndex(), -1);
    stack.clear();
    EXPECT_TRUE(stack.isClean());
    stack.resetClean();
    stack.clear();
    EXPECT_TRUE(stack.isClean()) << "also if there was no step";
    EXPECT_EQ(stack.cleanIndex(), 0);
}

TEST_F(CleanState, ThatWasSavedIsReachedAgainByUndoAndRedo)
{
    push("a");
    stack.setClean();
    push("b");
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CleanState, ThatWasSavedIsNotDraggedAwayInsideAMergedStep)
{
    drag("1");
    drag("2");
    stack.setClean();
    drag("3");
    drag("4");
    EXPECT_EQ(describe(stack), "2 steps, at \"3\", undo, no redo");
    stack.undo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CleanState, ThatIsNoLongerCleanMergesAgain)
{
    drag("1");
    stack.setClean();
    stack.resetClean();
    drag("2");
    EXPECT_EQ(stack.size(), 1);
}

TEST_F(CleanState, ThatWasSavedIsLostWhenItsStepIsDeletedByAPush)
{
    push("a");
    push("b");
    stack.setClean();
    stack.undo();
    push("c");
    EXPECT_EQ(stack.cleanIndex(), -1);
    EXPECT_FALSE(stack.isClean());
}

TEST_F(CleanState, CannotBeSavedInTheMiddleOfAMacro)
{
    stack.beginMacro("macro");
    push("a");
    stack.setClean();
    EXPECT_FALSE(stack.isClean());
    stack.endMacro();
    EXPECT_FALSE(stack.isClean());
    EXPECT_EQ(stack.cleanIndex(), 0);
}

TEST_F(CleanState, CanBeSavedDuringAComposition)
{
    push("a");
    stack.beginMultiCommand("composite", "", false);
    stack.setClean();
    new ProbeCommand("child", moUndoStack::getCurrentCommandParent());
    EXPECT_TRUE(stack.isClean()) << "the children have not run yet";
    stack.endMultiCommand();
    EXPECT_FALSE(stack.isClean());
    EXPECT_EQ(stack.cleanIndex(), 1);
}

TEST_F(CleanState, DoesNotSeeWhatIsNotRecorded)
{
    moUndoStack::beginBlockUndo();
    stack.addOrExecute(new ProbeCommand("unrecorded"));
    moUndoStack::endBlockUndo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CleanState, IsSavedForEachStackOnItsOwn)
{
    push("a");
    second.add(new ProbeCommand("b"));
    stack.setClean();
    EXPECT_TRUE(stack.isClean());
    EXPECT_FALSE(second.isClean());
    EXPECT_EQ(stack.cleanIndex(), 1);
    EXPECT_EQ(second.cleanIndex(), 0);
}

TEST_F(UndoLimit, DeletesTheOldestSteps)
{
    stack.setUndoLimit(2);
    EXPECT_EQ(stack.undoLimit(), 2);
    EXPECT_EQ(second.undoLimit(), 0);
    push("a");
    push("b");
    push("c");
    EXPECT_EQ(ProbeCommand::liveCount(), 2);
    EXPECT_EQ(describe(stack), "2 steps, at \"c\", undo, no redo");
    stack.undo();
    stack.undo();
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(UndoLimit, IsRefusedWhenThereAreSteps)
{
    push("a");
    stack.setUndoLimit(1);
    EXPECT_EQ(stack.undoLimit(), 0);
}

TEST_F(UndoLimit, StaysThroughClear)
{
    stack.setUndoLimit(3);
    push("a");
    stack.clear();
    EXPECT_EQ(stack.undoLimit(), 3);
}

TEST_F(UndoLimit, MovesTheMarkAndTheCleanIndexWithTheirSteps)
{
    stack.setUndoLimit(3);
    push("a");
    const QUndoCommand* b = push("b");
    stack.mark();
    stack.setClean();
    push("c");
    push("d");
    EXPECT_EQ(stack.cleanIndex(), 1);
    stack.reset();
    EXPECT_EQ(stack.currentCommand(), b);
    EXPECT_TRUE(stack.isClean());
}

TEST_F(UndoLimit, MovesTheMarkAlsoWhenAMacroIsOneStepTooMany)
{
    stack.setUndoLimit(2);
    push("a");
    const QUndoCommand* b = push("b");
    stack.mark();
    stack.beginMacro("macro");
    push("c");
    push("d");
    stack.endMacro();
    stack.reset();
    EXPECT_EQ(stack.currentCommand(), b);
}

TEST_F(UndoLimit, LeavesTheMarkAloneWhenAFullStackMergesOrFails)
{
    stack.setUndoLimit(2);
    push("a");
    stack.mark();
    drag("1");
    drag("2");
    EXPECT_THROW(stack.add((new ProbeCommand("fails"))->onRedo([] { throw 1; })), int);
    stack.reset();
    EXPECT_EQ(describe(stack), "2 steps, at \"a\", undo, redo");
}

TEST_F(UndoLimit, TakesAMarkThatItDeletedToTheOldestState)
{
    stack.setUndoLimit(1);
    push("a");
    stack.mark();
    for (const char* text : {"b", "c", "d"})
        push(text);
    stack.reset();
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
}

TEST_F(UndoLimit, LosesACleanStateThatItDeleted)
{
    stack.setUndoLimit(1);
    push("a");
    push("b");
    EXPECT_EQ(stack.cleanIndex(), -1);
}

// --- calls that wait ------------------------------------------------------------------------------------------------

TEST_F(Position, AnswersInAListenerAsIfTheCallsThatWaitWereDone)
{
    whileAtWork([&] {
        stack.setClean();
        EXPECT_TRUE(stack.isClean());
        push("a");
        EXPECT_FALSE(stack.isClean());
        EXPECT_EQ(stack.cleanIndex(), 1);
        EXPECT_EQ(stack.index(), 2);
        EXPECT_EQ(stack.undoText(), "a");
        stack.undo();
        EXPECT_EQ(stack.redoText(), "a");
        EXPECT_EQ(stack.undoText(), "outer");
        stack.resetClean();
        EXPECT_EQ(stack.cleanIndex(), -1);
        stack.clear();
        stack.setUndoLimit(1);
        EXPECT_EQ(stack.undoLimit(), 1);
        push("b");
        EXPECT_TRUE(stack.command(0) == stack.currentCommand() && stack.currentCommand());
    });
    EXPECT_EQ(describe(stack), "1 step, at \"b\", undo, no redo");
    EXPECT_EQ(stack.undoLimit(), 1);
}

TEST_F(UndoLimit, MovesTheMarkAlsoInWhatIsAnsweredBeforehand)
{
    stack.setUndoLimit(2);
    whileAtWork([&] {
        push("a");
        stack.mark();
        push("b");
        stack.reset();
        EXPECT_EQ(stack.currentCommand()->text(), "a");
    });
    EXPECT_EQ(describe(stack), "2 steps, at \"a\", undo, redo");
}

TEST_F(Position, AnswersBeforehandThatClearForgetsTheMarkAndKeepsTheLimit)
{
    stack.setUndoLimit(3);
    whileAtWork([&] {
        push("a");
        stack.mark();
        EXPECT_EQ(stack.index(), 2);
        stack.clear();
        EXPECT_EQ(stack.undoLimit(), 3);
        push("b");
        stack.reset();
        EXPECT_EQ(stack.index(), 0);
    });
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
}

/// The same random calls on a stack of Qt, with the same answers after each.
class Twin
{
public:
    explicit Twin(moUndoStack& ours) : m_ours(ours) {}

    void call(std::mt19937& random, bool merging)
    {
        const auto pick = random() % 12;
        const int id = merging && pick < 2 ? 7 : -1;
        switch (pick) {
        case 0:
        case 1:
        case 2:
        case 3:
            push(id);
            break;
        case 4:
        case 5:
            m_ours.undo();
            m_qt.undo();
            break;
        case 6:
            m_ours.redo();
            m_qt.redo();
            break;
        case 7:
            m_ours.setClean();
            m_qt.setClean();
            break;
        case 8:
            m_ours.resetClean();
            m_qt.resetClean();
            break;
        case 9:
            m_ours.beginMacro("macro");
            m_qt.beginMacro("macro");
            break;
        case 10:
            m_ours.endMacro();
            m_qt.endMacro();
            break;
        default:
            if (random() % 4 == 0) {
                m_ours.clear();
                m_qt.clear();
                m_qt.setClean(); // Qt forgets that if there was no step
            }
            const int limit = static_cast<int>(random() % 4);
            m_ours.setUndoLimit(limit);
            m_qt.setUndoLimit(limit);
            break;
        }
    }

    void compare() const
    {
        EXPECT_EQ(m_ours.index(), m_qt.index());
        EXPECT_EQ(m_ours.size(), m_qt.count());
        EXPECT_EQ(m_ours.canUndo(), m_qt.canUndo());
        EXPECT_EQ(m_ours.canRedo(), m_qt.canRedo());
        EXPECT_EQ(m_ours.isClean(), m_qt.isClean());
        EXPECT_EQ(m_ours.cleanIndex(), m_qt.cleanIndex());
        EXPECT_EQ(m_ours.undoLimit(), m_qt.undoLimit());
    }

    void compareTexts() const
    {
        EXPECT_EQ(m_ours.undoText(), m_qt.undoText());
        EXPECT_EQ(m_ours.redoText(), m_qt.redoText());
    }

    void push(int id)
    {
        const std::string text = "step " + std::to_string(++m_made);
        for (const bool ours : {false, true}) {
            auto* command = (new ProbeCommand(text))->withId(id)->onMerge([](const QUndoCommand*) { return true; });
            if (ours)
                m_ours.add(command);
            else
                m_qt.push(command);
        }
    }

private:
    moUndoStack& m_ours;
    QUndoStack m_qt;
    int m_made = 0;
};

TEST_F(Position, IsThatOfQtAfterAnyCalls)
{
    for (unsigned int seed = 1; seed <= 200 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        stack.clear();
        stack.setUndoLimit(0);
        std::mt19937 random(seed);
        Twin twin(stack);
        for (int i = 0; i < 40; ++i) {
            twin.call(random, true);
            twin.compare();
            twin.compareTexts();
        }
        stack.clear();
    }
}

TEST_F(Position, IsThatOfQtAfterAnyCallsThatWait)
{
    for (unsigned int seed = 1; seed <= 200 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        stack.clear();
        stack.setUndoLimit(0);
        std::mt19937 random(seed);
        Twin twin(stack);
        QObject context;
        bool called = false;
        QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
            if (std::exchange(called, true)) return;
            for (int i = 0; i < 40; ++i) {
                twin.call(random, false);
                twin.compare();
            }
        });
        twin.push(-1);
        EXPECT_TRUE(called);
        twin.compare();
        twin.compareTexts();
        stack.clear();
    }
}

} // namespace
