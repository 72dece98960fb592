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

} // namespace
