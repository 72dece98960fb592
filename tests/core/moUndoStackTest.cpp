#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <QtCore/QMetaMethod>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UndoStackTypes, AnyNumberThatIsNoTypeSelectsTheDefaultStack)
{
    moUndoStack& first = moUndoStack::get(0);
    EXPECT_EQ(&moUndoStack::get(moUndoStack::DefaultStack), &first);
    EXPECT_EQ(&moUndoStack::get(2), &first);
    EXPECT_EQ(&moUndoStack::get(7), &first);
    EXPECT_EQ(&moUndoStack::get(~0U), &first);
    EXPECT_NE(&moUndoStack::get(1), &first);
    EXPECT_EQ(&moUndoStack::get(1), &moUndoStack::get(moUndoStack::SecondStack));
}

TEST(UndoStackMetaObject, ListsItsMethodsInTheOrderThatScriptsRelyOn)
{
    const QMetaObject& type = moUndoStack::staticMetaObject;
    EXPECT_STREQ(type.className(), "moUndoStack");
    std::vector<std::string> methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        std::string line = method.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
        if (method.access() == QMetaMethod::Private) line = "private " + line;
        line += method.methodSignature().toStdString();
        for (const QByteArray& name : method.parameterNames())
            line += ' ' + name.toStdString();
        methods.push_back(line);
    }
    EXPECT_THAT(methods, ElementsAre("signal redoPerformed(const QUndoCommand*,bool) command added",
                                     "signal undoPerformed(const QUndoCommand*) command", "signal cleared()",
                                     "slot undo()", "slot redo()", "slot clear()", "slot mark()", "slot reset()",
                                     "slot showHistory()", "private slot indexChanged(int) i"));
}

/// The counters, which are off at the start here.
class Recording : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        moUndoStack::endUndo();
        log.take();
    }
    void TearDown() override
    {
        moUndoStack::beginUndo();
        UndoTest::TearDown();
    }

    /// "recorded", "run" (without being recorded) or "lost".
    std::string fateOfACommand()
    {
        const int before = stack.size();
        bool wasRun = false;
        stack.addOrExecute((new ProbeCommand("a"))->onRedo([&wasRun] { wasRun = true; }));
        const bool recorded = stack.size() > before;
        stack.clear();
        return !wasRun ? "lost" : recorded ? "recorded" : "run";
    }
};

TEST_F(Recording, IsOffUntilItIsSwitchedOn)
{
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_EQ(fateOfACommand(), "run");
}

TEST_F(Recording, NeedsAsManyEndsAsBegins)
{
    moUndoStack::beginUndo();
    moUndoStack::beginUndo();
    moUndoStack::endUndo();
    EXPECT_TRUE(moUndoStack::undoEnabled());
    EXPECT_EQ(fateOfACommand(), "recorded");
    moUndoStack::endUndo();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_EQ(fateOfACommand(), "run");
}

TEST_F(Recording, IsSuspendedWhileABlockIsOpen)
{
    moUndoStack::beginUndo();
    moUndoStack::beginBlockUndo();
    moUndoStack::beginBlockUndo();
    EXPECT_TRUE(moUndoStack::undoBlocked());
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_EQ(fateOfACommand(), "run");
    moUndoStack::endBlockUndo();
    EXPECT_TRUE(moUndoStack::undoBlocked());
    moUndoStack::endBlockUndo();
    EXPECT_FALSE(moUndoStack::undoBlocked());
    EXPECT_EQ(fateOfACommand(), "recorded");
    moUndoStack::endUndo();
}

TEST_F(Recording, CanBeBlockedWhileItIsOff)
{
    moUndoStack::beginBlockUndo();
    EXPECT_TRUE(moUndoStack::undoBlocked());
    moUndoStack::beginUndo();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    moUndoStack::endBlockUndo();
    EXPECT_TRUE(moUndoStack::undoEnabled());
    moUndoStack::endUndo();
}

TEST_F(Recording, LogsEveryEndWithoutItsBeginAndStaysOff)
{
    moUndoStack::endUndo();
    moUndoStack::endUndo();
    moUndoStack::endBlockUndo();
    EXPECT_THAT(log.take(), ElementsAre("errorNR: moUndoStack::endUndo(): no matching beginUndo()",
                                        "errorNR: moUndoStack::endUndo(): no matching beginUndo()",
                                        "errorNR: moUndoStack::endBlockUndo(): no matching beginBlockUndo()"));
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_FALSE(moUndoStack::undoBlocked());

    moUndoStack::beginUndo();
    EXPECT_TRUE(moUndoStack::undoEnabled()) << "a surplus end is not remembered";
    moUndoStack::endUndo();
}

TEST_F(Recording, SwitchedOffMakesACommandRunReportedAsFirstExecutionAndDeleted)
{
    Trace trace(stack);
    std::vector<std::string> steps;
    auto* command = (new ProbeCommand("a"))->loggingTo(steps)->onDestroyed([&trace] { trace.add("deleted"); });
    trace.watch(command, "a");
    stack.addOrExecute(command);
    EXPECT_THAT(steps, ElementsAre("redo a"));
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"a\" added",
                                          "message moURManager::redo index=int:-1 added=bool:true text=string:\"a\" "
                                          "description=string:\"about a\" id=int:-1",
                                          "changed \"a\" true", "deleted"));
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
}

TEST_F(Recording, SwitchedOffDoesNotKeepAddFromRecording)
{
    stack.add(new ProbeCommand("a"));
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
}

TEST_F(Recording, SwitchedOffDoesNotKeepACommandWithAParentFromBeingPushed)
{
    // Both the parent and Qt's stack own the child now. A parent that is never destroyed leaves it to the stack.
    alignas(QUndoCommand) static unsigned char storage[sizeof(QUndoCommand)];
    auto* parent = new (storage) QUndoCommand;
    auto* child = new ProbeCommand("child", parent);
    stack.addOrExecute(child);
    EXPECT_EQ(describe(stack), "1 step, at \"child\", undo, no redo");
    EXPECT_EQ(stack.currentCommand(), child);
}

TEST_F(Recording, SwitchedOffAsksACommandForItsParent)
{
    struct Adopted : ProbeCommand
    {
        explicit Adopted(QUndoCommand* by) : ProbeCommand("adopted"), foster(by) {}
        QUndoCommand* parent() const override { return foster; }
        QUndoCommand* foster;
    };
    QUndoCommand foster;
    stack.addOrExecute(new Adopted(&foster));
    EXPECT_EQ(describe(stack), "1 step, at \"adopted\", undo, no redo");
}

TEST_F(Recording, SwitchedOffIsReportedByTheStackThatRanTheCommand)
{
    Trace first(stack);
    Trace other(second);
    second.addOrExecute(new ProbeCommand("a"));
    EXPECT_THAT(first.take(), IsEmpty());
    EXPECT_EQ(other.take().size(), 2U);
}

TEST_F(Recording, CountersAreSharedByBothStacks)
{
    moUndoStack::beginUndo();
    second.addOrExecute(new ProbeCommand("b"));
    stack.addOrExecute(new ProbeCommand("a"));
    EXPECT_EQ(describe(second), "1 step, at \"b\", undo, no redo");
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
    moUndoStack::endUndo();
}

using UndoStack = UndoTest;

TEST_F(UndoStack, IgnoresANullCommand)
{
    stack.add(nullptr);
    stack.addOrExecute(nullptr);
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
}

TEST_F(UndoStack, RunsACommandOnceWhenItIsPushed)
{
    std::vector<std::string> steps;
    stack.add((new ProbeCommand("a"))->loggingTo(steps));
    stack.addOrExecute((new ProbeCommand("b"))->loggingTo(steps));
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b"));
    EXPECT_EQ(describe(stack), "2 steps, at \"b\", undo, no redo");
}

TEST_F(UndoStack, UndoesTheNewestFirstAndRedoesTheOldestFirst)
{
    std::vector<std::string> steps;
    for (const char* name : {"a", "b", "c"})
        stack.add((new ProbeCommand(name))->loggingTo(steps));
    steps.clear();
    for (int i = 0; i < 4; ++i)
        stack.undo();
    EXPECT_EQ(describe(stack), "3 steps, at start, no undo, redo");
    for (int i = 0; i < 4; ++i)
        stack.redo();
    EXPECT_EQ(describe(stack), "3 steps, at \"c\", undo, no redo");
    EXPECT_THAT(steps, ElementsAre("undo c", "undo b", "undo a", "redo a", "redo b", "redo c"));
}

TEST_F(UndoStack, CurrentCommandIsTheOneJustBelowTheIndex)
{
    EXPECT_EQ(stack.currentCommand(), nullptr);
    auto* a = new ProbeCommand("a");
    auto* b = new ProbeCommand("b");
    stack.add(a);
    stack.add(b);
    EXPECT_EQ(stack.currentCommand(), b);
    stack.undo();
    EXPECT_EQ(stack.currentCommand(), a);
    stack.undo();
    EXPECT_EQ(stack.currentCommand(), nullptr);
}

TEST_F(UndoStack, PushAfterUndoDeletesWhatCouldHaveBeenRedone)
{
    int deleted = 0;
    stack.add(new ProbeCommand("a"));
    stack.add((new ProbeCommand("b"))->onDestroyed([&deleted] { ++deleted; }));
    stack.undo();
    stack.add(new ProbeCommand("c"));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(describe(stack), "2 steps, at \"c\", undo, no redo");
}

TEST_F(UndoStack, DeletesACommandThatWasMergedIntoTheTopOne)
{
    int deleted = 0;
    stack.add((new ProbeCommand("a"))->withId(77)->onMerge([](const QUndoCommand*) { return true; }));
    stack.add((new ProbeCommand("b"))->withId(77)->onDestroyed([&deleted] { ++deleted; }));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
}

TEST_F(UndoStack, TakesAPlainQtCommandToo)
{
    stack.add(new QUndoCommand("plain"));
    EXPECT_EQ(describe(stack), "1 step, at \"plain\", undo, no redo");
}

TEST_F(UndoStack, WhileComposingLeavesACommandThatIsNoChildToTheCaller)
{
    const std::unique_ptr<ProbeCommand> made(new ProbeCommand("made before"));
    std::vector<std::string> steps;
    made->loggingTo(steps);
    stack.beginMultiCommand("composite", "", true);
    stack.add(made.get());
    stack.addOrExecute(made.get());
    stack.endMultiCommand();
    EXPECT_THAT(steps, IsEmpty());
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
}

TEST_F(UndoStack, StacksDoNotShareTheirSteps)
{
    stack.add(new ProbeCommand("a"));
    second.add(new ProbeCommand("b"));
    stack.undo();
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
    EXPECT_EQ(describe(second), "1 step, at \"b\", undo, no redo");
}

TEST_F(UndoStack, ClearAllEmptiesTheDefaultStackFirst)
{
    std::vector<std::string> order;
    stack.add((new ProbeCommand("a"))->onDestroyed([&order] { order.emplace_back("default"); }));
    second.add((new ProbeCommand("b"))->onDestroyed([&order] { order.emplace_back("second"); }));
    moUndoStack::clearAll();
    EXPECT_THAT(order, ElementsAre("default", "second"));
}

TEST_F(UndoStack, SlotsCanBeCalledByName)
{
    stack.add(new ProbeCommand("a"));
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "undo"));
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "redo"));
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "mark"));
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "reset"));
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "clear"));
    EXPECT_TRUE(stack.isEmpty());
}

class Mark : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        for (const char* name : {"a", "b", "c", "d"})
            stack.add((new ProbeCommand(name))->loggingTo(steps));
        steps.clear();
    }

    std::vector<std::string> steps;
};

TEST_F(Mark, IsWhereResetGoesBackTo)
{
    stack.undo();
    stack.undo();
    stack.mark();
    stack.redo();
    stack.redo();
    steps.clear();
    stack.reset();
    EXPECT_THAT(steps, ElementsAre("undo d", "undo c"));
    EXPECT_EQ(describe(stack), "4 steps, at \"b\", undo, redo");
}

TEST_F(Mark, IsWhereResetGoesForwardTo)
{
    stack.mark();
    stack.undo();
    stack.undo();
    steps.clear();
    stack.reset();
    EXPECT_THAT(steps, ElementsAre("redo c", "redo d"));
    EXPECT_EQ(describe(stack), "4 steps, at \"d\", undo, no redo");
}

TEST_F(Mark, IsTheStartUntilItIsSet)
{
    stack.reset();
    EXPECT_EQ(describe(stack), "4 steps, at start, no undo, redo");
}

TEST_F(Mark, StaysAfterResetAndCanBeReturnedToAgain)
{
    stack.undo();
    stack.mark();
    for (int i = 0; i < 2; ++i) {
        stack.undo();
        stack.reset();
        EXPECT_EQ(describe(stack), "4 steps, at \"c\", undo, redo");
    }
}

TEST_F(Mark, BeyondTheStepsThatAreLeftMeansTheLastOfThem)
{
    stack.mark();
    for (int i = 0; i < 3; ++i)
        stack.undo();
    stack.add(new ProbeCommand("e"));
    stack.undo();
    stack.reset();
    EXPECT_EQ(describe(stack), "2 steps, at \"e\", undo, no redo");
}

TEST_F(Mark, IsForgottenByClear)
{
    stack.mark();
    stack.clear();
    stack.add(new ProbeCommand("a"));
    stack.reset();
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
}

class Macro : public UndoTest
{
protected:
    std::vector<std::string> steps;
};

TEST_F(Macro, IsOneStepOfAllThatWasAdded)
{
    stack.beginMacro("both");
    stack.add((new ProbeCommand("a"))->loggingTo(steps));
    stack.addOrExecute((new ProbeCommand("b"))->loggingTo(steps));
    stack.endMacro();
    EXPECT_EQ(describe(stack), "1 step, at \"both\", undo, no redo");
    stack.undo();
    stack.redo();
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b", "undo b", "undo a", "redo a", "redo b"));
}

TEST_F(Macro, IsReportedOnceAndAsAdded)
{
    Trace trace(stack);
    stack.beginMacro("both");
    auto* child = new ProbeCommand("a");
    trace.watch(child, "a");
    stack.add(child);
    EXPECT_THAT(trace.take(), IsEmpty());
    stack.endMacro();
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"both\" added",
                            "message moURManager::redo index=int:0 added=bool:true text=string:\"both\""));
    stack.undo();
    stack.redo();
    EXPECT_THAT(trace.take(),
                ElementsAre("signal undo \"both\"",
                            "message moURManager::undo index=int:0 added=bool:false text=string:\"both\"",
                            "signal redo \"both\"",
                            "message moURManager::redo index=int:0 added=bool:false text=string:\"both\""));
}

TEST_F(Macro, MergesInsideItself)
{
    stack.beginMacro("drag");
    stack.add((new ProbeCommand("a"))->withId(78)->onMerge([](const QUndoCommand*) { return true; }));
    stack.add((new ProbeCommand("b"))->withId(78));
    stack.endMacro();
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
}

TEST_F(Macro, EndWithoutABeginDoesNotMakeTheNextRedoLookLikeAFirstExecution)
{
    stack.add(new ProbeCommand("a"));
    stack.undo();
    stack.endMacro();
    Trace trace(stack);
    stack.redo();
    EXPECT_EQ(trace.take().front(), "signal redo \"a\"");
}

TEST_F(Macro, LeftOpenIsThrownAwayByClear)
{
    stack.beginMacro("open");
    stack.add(new ProbeCommand("a"));
    stack.clear();
    stack.add(new ProbeCommand("b"));
    EXPECT_EQ(describe(stack), "1 step, at \"b\", undo, no redo");
}

} // namespace
