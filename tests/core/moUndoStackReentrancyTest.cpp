#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;

std::vector<std::string> signalsOf(const std::vector<std::string>& lines)
{
    std::vector<std::string> signalLines;
    for (const std::string& line : lines) {
        if (line.rfind("message", 0) != 0) signalLines.push_back(line);
    }
    return signalLines;
}

/// Calls made while the stack is at work wait for their turn. Each case runs from every place a call can come from.
enum class From
{
    Slot,
    MessageCallback,
    ChangedCallback,
    Redo
};

std::function<void()> s_onMessage;

bool callFromMessage(const char*, moMessage&, int)
{
    if (const auto call = std::exchange(s_onMessage, {})) call();
    return true;
}

class Reentrancy : public UndoTest, public testing::WithParamInterface<From>
{
protected:
    void TearDown() override
    {
        stack.setMessageCallback(nullptr);
        s_onMessage = {};
        UndoTest::TearDown();
    }

    /// Pushes a command "outer"; the first time that the parameter's place is reached meanwhile, the call is made
    /// there.
    void pushWith(std::function<void()> call)
    {
        auto* outer = new ProbeCommand("outer");
        const auto once = std::make_shared<std::function<void()>>(std::move(call));
        const auto callOnce = [once] {
            if (const auto now = std::exchange(*once, {})) now();
        };
        auto context = std::make_unique<QObject>();
        switch (GetParam()) {
        case From::Slot:
            QObject::connect(&stack, &moUndoStack::redoPerformed, context.get(), callOnce);
            break;
        case From::MessageCallback:
            s_onMessage = callOnce;
            stack.setMessageCallback(callFromMessage);
            break;
        case From::ChangedCallback:
            outer->setChangedCB([callOnce](bool) { callOnce(); });
            break;
        case From::Redo:
            outer->onRedo(callOnce);
            break;
        }
        stack.addOrExecute(outer);
        context.reset();
        stack.setMessageCallback(nullptr);
    }
};

TEST_P(Reentrancy, UndoTakesTheOuterStepBack)
{
    pushWith([this] { stack.undo(); });
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
    Trace trace(stack);
    stack.redo();
    EXPECT_THAT(signalsOf(trace.take()), ElementsAre("signal redo \"outer\""));
}

TEST_P(Reentrancy, UndoAndRedoLeaveTheOuterStepDone)
{
    pushWith([this] {
        stack.undo();
        stack.redo();
    });
    EXPECT_EQ(describe(stack), "1 step, at \"outer\", undo, no redo");
}

TEST_P(Reentrancy, PushComesAfterTheOuterStep)
{
    pushWith([this] { stack.addOrExecute(new ProbeCommand("inner")); });
    EXPECT_EQ(describe(stack), "2 steps, at \"inner\", undo, no redo");
    stack.undo();
    EXPECT_EQ(describe(stack), "2 steps, at \"outer\", undo, redo");
}

TEST_P(Reentrancy, CompositionIsRecordedAfterTheOuterStep)
{
    pushWith([this] {
        stack.beginMultiCommand("composite", "", true);
        new ProbeCommand("child");
        stack.endMultiCommand();
    });
    EXPECT_EQ(describe(stack), "2 steps, at \"composite\", undo, no redo");
}

TEST_P(Reentrancy, MacroIsRecordedAfterTheOuterStep)
{
    pushWith([this] {
        stack.beginMacro("macro");
        stack.add(new ProbeCommand("inner"));
        stack.endMacro();
    });
    EXPECT_EQ(describe(stack), "2 steps, at \"macro\", undo, no redo");
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
}

TEST_P(Reentrancy, ClearEmptiesTheStack)
{
    stack.add(new ProbeCommand("before"));
    pushWith([this] { stack.clear(); });
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    Trace trace(stack);
    stack.add(new ProbeCommand("after"));
    EXPECT_THAT(signalsOf(trace.take()), ElementsAre("signal redo \"after\" added"));
}

TEST_P(Reentrancy, MarkTakesTheIndexOfItsTurn)
{
    pushWith([this] {
        stack.add(new ProbeCommand("inner"));
        stack.mark();
        stack.undo();
        stack.undo();
        stack.reset();
    });
    EXPECT_EQ(describe(stack), "2 steps, at \"inner\", undo, no redo");
}

TEST_P(Reentrancy, CommandThatIsNotRecordedRunsAtOnce)
{
    bool wasRun = false;
    bool wasRunAtOnce = false;
    pushWith([&] {
        moUndoStack::beginBlockUndo();
        stack.addOrExecute((new ProbeCommand("inner"))->onRedo([&wasRun] { wasRun = true; }));
        wasRunAtOnce = wasRun;
        moUndoStack::endBlockUndo();
    });
    EXPECT_TRUE(wasRunAtOnce);
    EXPECT_EQ(describe(stack), "1 step, at \"outer\", undo, no redo");
}

TEST_P(Reentrancy, CommandHandedInWhileRecordingIsOnIsRecordedEvenIfItIsBlockedWhenItsTurnComes)
{
    pushWith([this] {
        stack.addOrExecute(new ProbeCommand("inner"));
        moUndoStack::beginBlockUndo();
    });
    moUndoStack::endBlockUndo();
    EXPECT_EQ(describe(stack), "2 steps, at \"inner\", undo, no redo");
}

TEST_P(Reentrancy, FaultOfAWaitingCallReachesTheOutermostCallerAfterTheOthersWereCarriedOut)
{
    bool caught = false;
    try {
        pushWith([this] {
            stack.add((new ProbeCommand("bad"))->onRedo([] { throw std::runtime_error("redo"); }));
            stack.add(new ProbeCommand("good"));
        });
    } catch (const std::runtime_error&) {
        caught = true;
    }
    EXPECT_TRUE(caught);
    EXPECT_EQ(describe(stack), "2 steps, at \"good\", undo, no redo");
}

TEST_P(Reentrancy, LoopThatUndoesEverythingEndsWithEverythingUndone)
{
    for (const char* name : {"a", "b", "c"})
        stack.add(new ProbeCommand(name));
    int turns = 0;
    pushWith([&] {
        while (stack.canUndo() && ++turns < 100)
            stack.undo();
    });
    EXPECT_EQ(turns, 4) << "the step at hand included";
    EXPECT_EQ(describe(stack), "4 steps, at start, no undo, redo");
}

TEST_P(Reentrancy, LoopThatRedoesEverythingEndsWithEverythingDone)
{
    int turns = 0;
    pushWith([&] {
        stack.undo();
        while (stack.canRedo() && ++turns < 100)
            stack.redo();
    });
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(describe(stack), "1 step, at \"outer\", undo, no redo");
}

TEST_P(Reentrancy, QueriesTellWhatTheCallsThatWaitWillLeave)
{
    auto* before = new ProbeCommand("before");
    stack.add(before);
    std::vector<std::string> seen;
    ProbeCommand* inner = nullptr;
    const QUndoCommand* current = nullptr;
    const QUndoCommand* first = nullptr;
    pushWith([&] {
        const auto look = [&] { seen.push_back(describe(stack)); };
        look();
        stack.undo();
        look();
        stack.add((inner = new ProbeCommand("inner")));
        look();
        current = stack.currentCommand();
        stack.undo();
        first = stack.currentCommand();
        stack.mark();
        stack.redo();
        stack.reset();
        look();
        stack.beginMacro("macro");
        look();
        stack.add(new ProbeCommand("in the macro"));
        stack.undo();
        look();
        stack.endMacro();
        seen.push_back(std::to_string(stack.size()) + (stack.canUndo() ? " undo" : ""));
        stack.clear();
        look();
        stack.redo();
        EXPECT_TRUE(stack.isEmpty());
    });
    EXPECT_THAT(seen,
                ElementsAre("2 steps, at \"outer\", undo, no redo", "2 steps, at \"before\", undo, redo",
                            "2 steps, at \"inner\", undo, no redo", "2 steps, at \"before\", undo, redo",
                            "2 steps, at \"before\", no undo, no redo", "2 steps, at \"before\", no undo, no redo",
                            "2 undo", "0 steps, at start, no undo, no redo"));
    EXPECT_EQ(current, inner);
    EXPECT_EQ(first, before);
    EXPECT_TRUE(stack.isEmpty());
}

TEST_P(Reentrancy, QueriesAreRightAgainWhenAPushThatWaitedWasMerged)
{
    const auto merging = [](const char* name) {
        return (new ProbeCommand(name))->withId(77)->onMerge([](const QUndoCommand*) { return true; });
    };
    stack.add(new ProbeCommand("before"));
    std::vector<int> sizes;
    pushWith([&] {
        stack.add(merging("first"));
        sizes.push_back(stack.size());
        stack.add(merging("second")->onDestroyed([&] { sizes.push_back(stack.size()); }));
        sizes.push_back(stack.size());
        stack.add(new ProbeCommand("last"));
        sizes.push_back(stack.size());
    });
    EXPECT_THAT(sizes, ElementsAre(3, 4, 5, 5)) << "counted as steps of their own until they are merged";
    EXPECT_EQ(describe(stack), "4 steps, at \"last\", undo, no redo");
}

TEST_P(Reentrancy, QueriesAreRightAgainWhenAPushThatWaitedFailed)
{
    std::vector<int> sizes;
    QObject context;
    const auto fault = [&] {
        pushWith([&] {
            stack.add((new ProbeCommand("bad"))->onRedo([] { throw std::runtime_error("redo"); }));
            stack.add(new ProbeCommand("good"));
            sizes.push_back(stack.size());
            QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] { sizes.push_back(stack.size()); });
        });
    };
    EXPECT_THROW(fault(), std::runtime_error);
    EXPECT_EQ(sizes.front(), 3);
    EXPECT_EQ(sizes.back(), 2);
}

std::string placeName(const testing::TestParamInfo<From>& parameter)
{
    static const char* const s_names[] = {"Slot", "MessageCallback", "ChangedCallback", "Redo"};
    return s_names[static_cast<int>(parameter.param)];
}

INSTANTIATE_TEST_SUITE_P(FromEachPlace, Reentrancy,
                         testing::Values(From::Slot, From::MessageCallback, From::ChangedCallback, From::Redo),
                         placeName);

using ReentrantSteps = UndoTest;

TEST_F(ReentrantSteps, AreReportedOneAfterTheOtherEachToAllListeners)
{
    Trace trace(stack);
    QObject context;
    bool first = true;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
        if (!std::exchange(first, false)) return;
        stack.undo();
        stack.add(trace.watch(new ProbeCommand("b"), "b"));
    });
    stack.add(trace.watch(new ProbeCommand("a"), "a"));
    const auto about = [](const char* name, int index, const char* added, const char* text) {
        return std::string("message moURManager::") + name + " index=int:" + std::to_string(index) +
               " added=bool:" + added + " text=string:\"" + text + "\" description=string:\"about " + text +
               "\" id=int:-1";
    };
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"a\" added", about("redo", 0, "true", "a"), "changed \"a\" true", //
                            "signal undo \"a\"", about("undo", 0, "false", "a"), "changed \"a\" false",     //
                            "signal redo \"b\" added", about("redo", 0, "true", "b"), "changed \"b\" true"));
}

TEST_F(ReentrantSteps, ClearFromAChangedCallbackDeletesTheCommandOnlyAfterItsCallbackEnded)
{
    auto* command = new ProbeCommand("a");
    std::vector<std::string> order;
    command->onDestroyed([&order] { order.emplace_back("deleted"); });
    command->setChangedCB([this, &order](bool) {
        stack.clear();
        order.emplace_back("callback ends");
    });
    stack.add(command);
    EXPECT_THAT(order, ElementsAre("callback ends", "deleted"));
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(ReentrantSteps, UndoFromWithinAnUndoTakesTheNextOneBackAfterwards)
{
    std::vector<std::string> steps;
    stack.add((new ProbeCommand("a"))->loggingTo(steps));
    bool first = true;
    stack.add((new ProbeCommand("b"))->loggingTo(steps)->onUndo([&] {
        if (std::exchange(first, false)) stack.undo();
    }));
    steps.clear();
    stack.undo();
    EXPECT_THAT(steps, ElementsAre("undo b", "undo a"));
    EXPECT_EQ(describe(stack), "2 steps, at start, no undo, redo");
}

TEST_F(ReentrantSteps, ClearFromWithinAnUndoDoesNotDeleteTheCommandThatIsRunning)
{
    int state = 1;
    stack.add((new ProbeCommand("a"))->onUndo([&] {
        stack.clear();
        state = 2;
    }));
    stack.undo();
    EXPECT_EQ(state, 2);
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(ReentrantSteps, OneStackDoesNotWaitForTheOther)
{
    bool atOnce = false;
    stack.add((new ProbeCommand("a"))->onRedo([&] {
        second.add(new ProbeCommand("b"));
        atOnce = second.size() == 1;
    }));
    EXPECT_TRUE(atOnce);
}

TEST_F(ReentrantSteps, QueriesFromASlotOfAMergeSeeTheStackAsItIs)
{
    const auto merging = [](const char* name) {
        return (new ProbeCommand(name))->withId(78)->onMerge([](const QUndoCommand*) { return true; });
    };
    stack.add(merging("older"));
    QObject context;
    int size = 0;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] { size = stack.size(); });
    stack.add(merging("newer"));
    EXPECT_EQ(size, 1);
}

TEST_F(ReentrantSteps, LoopInTheSlotOfEachUndoEnds)
{
    constexpr int steps = 20000;
    for (int i = 0; i < steps; ++i)
        stack.add(new ProbeCommand("a"));
    QObject context;
    int calls = 0;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, [&] {
        for (; stack.canUndo(); ++calls)
            stack.undo();
    });
    stack.undo();
    EXPECT_EQ(calls, steps - 1);
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(ReentrantSteps, LoopInARedoOfARecordedStepUndoesThatStepToo)
{
    bool loops = false;
    stack.add(new ProbeCommand("a"));
    stack.add((new ProbeCommand("b"))->onRedo([&] {
        while (loops && stack.canUndo())
            stack.undo();
    }));
    stack.undo();
    loops = true;
    stack.redo();
    EXPECT_EQ(describe(stack), "2 steps, at start, no undo, redo");
}

TEST_F(ReentrantSteps, QueriesAreRightAgainWhenThePushAtHandFailed)
{
    std::vector<int> sizes;
    const auto failAfterAsking = [&] {
        stack.add((new ProbeCommand("bad"))->onRedo([&] {
            sizes.push_back(stack.size());
            stack.add((new ProbeCommand("good"))->onRedo([&] { sizes.push_back(stack.size()); }));
            throw std::runtime_error("redo");
        }));
    };
    EXPECT_THROW(failAfterAsking(), std::runtime_error);
    EXPECT_THAT(sizes, ElementsAre(1, 1)) << "each counts itself";
    // As many steps now as the first round expected in vain.
    stack.add(new ProbeCommand("between"));
    sizes.clear();
    EXPECT_THROW(failAfterAsking(), std::runtime_error);
    EXPECT_THAT(sizes, ElementsAre(3, 3));
}

TEST_F(ReentrantSteps, QueriesFromACommandThatIsBeingClearedFindNothing)
{
    std::vector<std::string> seen;
    for (const char* name : {"a", "b"})
        stack.add((new ProbeCommand(name))->onDestroyed([&] { seen.push_back(describe(stack)); }));
    stack.clear();
    EXPECT_THAT(seen, testing::Each("0 steps, at start, no undo, no redo"));
    EXPECT_EQ(seen.size(), 2U);
}

TEST_F(ReentrantSteps, AnEndOfAMacroThatWasNotBegunChangesNoAnswer)
{
    for (const char* name : {"a", "b", "c"})
        stack.add(new ProbeCommand(name));
    stack.undo();
    std::string seen;
    QObject context;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, [&] {
        stack.endMacro();
        seen = describe(stack);
    });
    stack.undo();
    EXPECT_EQ(seen, "3 steps, at \"a\", undo, redo");
    EXPECT_EQ(describe(stack), seen);
}

TEST_F(ReentrantSteps, LoopInAMacroIsRefusedAsQtRefusesIt)
{
    stack.add(new ProbeCommand("a"));
    stack.beginMacro("macro");
    bool could = true;
    stack.add((new ProbeCommand("b"))->onRedo([&] { could = stack.canUndo(); }));
    EXPECT_FALSE(could);
    EXPECT_FALSE(stack.canUndo());
    stack.endMacro();
    EXPECT_TRUE(stack.canUndo());
}

} // namespace
