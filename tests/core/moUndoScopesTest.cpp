#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/core/moUndoStackState.h>

#include <moUndoStack/core/moMultiCommand.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Scopes : public UndoTest
{
protected:
    ProbeCommand* child(const std::string& text)
    {
        return (new ProbeCommand(text, moUndoStack::getCurrentCommandParent()))->loggingTo(ran);
    }

    std::vector<std::string> ran;
};

using CompositionScope = Scopes;
using MacroScope = Scopes;
using RecordingScope = Scopes;
using Cancelled = Scopes;

// --- compositions ---------------------------------------------------------------------------------------------------

TEST_F(CompositionScope, MakesOneStepAtTheEndOfItsBlock)
{
    {
        const moCompositionScope composition(stack, "both", "description");
        child("a");
        child("b");
        EXPECT_TRUE(moUndoStack::isComposing());
        EXPECT_THAT(ran, IsEmpty());
    }
    EXPECT_THAT(ran, ElementsAre("redo a", "redo b"));
    EXPECT_EQ(describe(stack), "1 step, at \"both\", undo, no redo");
    const auto* composite = dynamic_cast<const moMultiCommand*>(stack.currentCommand());
    ASSERT_NE(composite, nullptr);
    EXPECT_EQ(composite->getDescription(), "description");
    EXPECT_FALSE(composite->isMergeEnabled()) << "unless asked for";
}

TEST_F(CompositionScope, MergesIfAskedTo)
{
    {
        const moCompositionScope composition(stack, "text", {}, true);
        child("a");
    }
    EXPECT_TRUE(static_cast<const moMultiCommand*>(stack.currentCommand())->isMergeEnabled());
}

TEST_F(CompositionScope, MakesTheStepAlsoWhenTheFunctionReturnsEarly)
{
    const auto edit = [&](bool enough) {
        const moCompositionScope composition(stack, "edit");
        child("a");
        if (enough) return;
        child("b");
    };
    edit(true);
    EXPECT_FALSE(moUndoStack::isComposing());
    EXPECT_THAT(ran, ElementsAre("redo a"));
    EXPECT_EQ(stack.size(), 1);
}

TEST_F(CompositionScope, DropsItsChildrenUnrunWhenAnExceptionLeavesIt)
{
    const auto edit = [&] {
        const moCompositionScope composition(stack, "edit");
        child("a");
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_FALSE(moUndoStack::isComposing());
    EXPECT_THAT(ran, IsEmpty());
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(ProbeCommand::liveCount(), 0);
}

TEST_F(CompositionScope, EndsAsUsualInsideAHandlerOfAnotherException)
{
    struct EditsWhileUnwinding
    {
        moUndoStack& stack;
        std::vector<std::string>& ran;
        ~EditsWhileUnwinding()
        {
            const moCompositionScope composition(stack, "restore");
            (new ProbeCommand("a", moUndoStack::getCurrentCommandParent()))->loggingTo(ran);
        }
    };
    const auto fails = [&] {
        const EditsWhileUnwinding guard{stack, ran};
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(fails(), std::runtime_error);
    EXPECT_THAT(ran, ElementsAre("redo a")) << "this exception did not leave the scope's own block";
}

TEST_F(CompositionScope, CanBeCancelledAndEndedByHand)
{
    {
        moCompositionScope composition(stack, "dropped");
        child("a");
        composition.cancel();
        EXPECT_FALSE(moUndoStack::isComposing());
    }
    EXPECT_TRUE(stack.isEmpty());
    {
        moCompositionScope composition(stack, "made");
        child("b");
        composition.end();
        EXPECT_EQ(stack.size(), 1);
    }
    EXPECT_EQ(stack.size(), 1);
    EXPECT_THAT(ran, ElementsAre("redo b"));
}

TEST_F(CompositionScope, EndsWhatWasLeftOpenInside)
{
    {
        const moCompositionScope composition(stack, "outer");
        stack.beginMultiCommand("inner", "", false);
        child("a");
        second.beginMultiCommand("of the other stack", "", false);
        child("b");
    }
    EXPECT_FALSE(moUndoStack::isComposing());
    EXPECT_THAT(ran, ElementsAre("redo a", "redo b"));
    EXPECT_EQ(stack.size(), 1);
    EXPECT_TRUE(second.isEmpty());
}

TEST_F(CompositionScope, DoesNothingToALaterCompositionWhenItsOwnIsOver)
{
    {
        const moCompositionScope composition(stack, "cleared");
        child("a");
        stack.clear();
        stack.beginMultiCommand("later", "", false);
        child("b");
    }
    EXPECT_TRUE(moUndoStack::isComposing());
    stack.endMultiCommand();
    EXPECT_EQ(describe(stack), "1 step, at \"later\", undo, no redo");
    EXPECT_THAT(log.take(),
                ElementsAre("warningNR: moUndoStack::clearMultiCommands() called while multi command is composed."));
}

TEST_F(CompositionScope, ThrowsWhatAListenerThrows)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [] { throw std::runtime_error("listener"); });
    const auto edit = [&] {
        const moCompositionScope composition(stack, "edit");
        child("a");
    };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_EQ(stack.size(), 1) << "the step stands";
}

TEST_F(CompositionScope, NestedAndLeftByAnExceptionDropsOnlyItsOwnChildren)
{
    {
        const moCompositionScope outer(stack, "outer");
        child("a");
        try {
            const moCompositionScope inner(stack, "inner");
            child("dropped");
            throw std::runtime_error("failed");
        } catch (const std::runtime_error&) {
        }
        child("b");
    }
    EXPECT_THAT(ran, ElementsAre("redo a", "redo b"));
    ran.clear();
    stack.undo();
    stack.redo();
    EXPECT_THAT(ran, ElementsAre("undo b", "undo a", "redo a", "redo b"));
}

// --- cancelMultiCommand() -------------------------------------------------------------------------------------------

TEST_F(Cancelled, CompositionDeletesItsChildrenUnrun)
{
    stack.beginMultiCommand("text", "", true);
    child("a");
    stack.cancelMultiCommand();
    EXPECT_FALSE(moUndoStack::isComposing());
    EXPECT_EQ(ProbeCommand::liveCount(), 0);
    EXPECT_THAT(ran, IsEmpty());
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(Cancelled, CompositionIsThatOfItsOwnStack)
{
    stack.cancelMultiCommand();
    EXPECT_THAT(log.take(), ElementsAre("errorNR: moUndoStack::cancelMultiCommand(): no matching beginMultiCommand()"));
    stack.beginMultiCommand("text", "", true);
    child("a");
    second.cancelMultiCommand();
    EXPECT_THAT(
        log.take(),
        ElementsAre("errorNR: moUndoStack::cancelMultiCommand(): no matching beginMultiCommand() for stack 1."));
    EXPECT_TRUE(moUndoStack::isComposing());
    stack.endMultiCommand();
    EXPECT_THAT(ran, ElementsAre("redo a"));
}

TEST_F(Cancelled, NestedCompositionTakesNoPartInTextDescriptionCallbacksAndMerging)
{
    std::vector<std::string> changed;
    for (int i = 0; i < 2; ++i) {
        stack.beginMultiCommand("", "", true);
        stack.beginMultiCommand("inner", "inner", true);
        child("dropped")->setChangedCB([&](bool) { changed.emplace_back("dropped"); });
        stack.cancelMultiCommand();
        child("kept")->setChangedCB([&](bool) { changed.emplace_back("kept"); });
        stack.endMultiCommand();
    }
    EXPECT_THAT(ran, ElementsAre("redo kept", "redo kept"));
    EXPECT_THAT(changed, ElementsAre("kept", "kept"));
    EXPECT_EQ(stack.size(), 2) << "what holds a cancelled composition does not merge";
    EXPECT_EQ(stack.undoText(), "Set kept");
    const auto* composite = dynamic_cast<const moMultiCommand*>(stack.currentCommand());
    EXPECT_EQ(composite->getDescription(), "Set about kept");
}

TEST_F(Cancelled, NestedCompositionLeavesAnOuterOneWithNothingElseEmpty)
{
    stack.beginMultiCommand("outer", "", true);
    stack.beginMultiCommand("inner", "", true);
    child("dropped");
    stack.cancelMultiCommand();
    stack.endMultiCommand();
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(ProbeCommand::liveCount(), 0);
}

// --- macros ---------------------------------------------------------------------------------------------------------

TEST_F(MacroScope, MakesOneStepOfWhatIsAddedInItsBlock)
{
    {
        const moMacroScope macro(stack, "macro");
        stack.add(new ProbeCommand("a"));
        stack.add(new ProbeCommand("b"));
        EXPECT_FALSE(stack.canUndo());
    }
    EXPECT_EQ(describe(stack), "1 step, at \"macro\", undo, no redo");
}

TEST_F(MacroScope, EndsAlsoByAnExceptionAndKeepsWhatHasRun)
{
    const auto edit = [&] {
        const moMacroScope macro(stack, "macro");
        stack.add((new ProbeCommand("a"))->loggingTo(ran));
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_TRUE(stack.canUndo());
    stack.undo();
    EXPECT_THAT(ran, ElementsAre("redo a", "undo a"));
}

TEST_F(MacroScope, EndsOnceAndOnlyItsOwn)
{
    stack.beginMacro("around");
    {
        moMacroScope macro(stack, "macro");
        stack.beginMacro("left open");
        macro.end();
        macro.end();
        stack.beginMacro("later");
    }
    stack.endMacro();
    EXPECT_FALSE(stack.canUndo()) << "the one around it is open still";
    stack.endMacro();
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(MacroScope, DoesNothingToALaterMacroWhenTheStackWasCleared)
{
    {
        const moMacroScope macro(stack, "macro");
        stack.clear();
        stack.beginMacro("later");
    }
    EXPECT_FALSE(stack.canUndo());
    stack.endMacro();
    EXPECT_EQ(describe(stack), "1 step, at \"later\", undo, no redo");
}

TEST_F(MacroScope, WorksWhileTheStackIsAtWork)
{
    QObject context;
    bool called = false;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
        if (std::exchange(called, true)) return;
        const moMacroScope macro(stack, "macro");
        stack.add(new ProbeCommand("a"));
    });
    stack.add(new ProbeCommand("outer"));
    EXPECT_EQ(describe(stack), "2 steps, at \"macro\", undo, no redo");
}

TEST_F(MacroScope, ThrowsWhatAListenerThrows)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [] { throw std::runtime_error("listener"); });
    const auto edit = [&] { const moMacroScope macro(stack, "macro"); };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(MacroScope, EndsOnTheStackThatItWasBegunOn)
{
    {
        const moMacroScope macro(second, "macro");
        stack.beginMacro("of the other stack");
        second.add(new ProbeCommand("a"));
    }
    EXPECT_EQ(describe(second), "1 step, at \"macro\", undo, no redo");
    EXPECT_FALSE(stack.canUndo());
    stack.endMacro();
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(MacroScope, LeftByAnExceptionLogsWhatAListenerThrows)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [] { throw std::logic_error("listener"); });
    const auto edit = [&] {
        const moMacroScope macro(stack, "macro");
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation: listener"));
    EXPECT_TRUE(stack.canUndo());
}

TEST_F(MacroScope, ThrowsWhatAListenerThrowsAlsoInsideAHandlerOfAnotherException)
{
    struct EditsWhileUnwinding
    {
        moUndoStack& stack;
        std::vector<std::string>& ran;
        ~EditsWhileUnwinding()
        {
            try {
                const moMacroScope macro(stack, "restore");
            } catch (const std::logic_error& error) {
                ran.emplace_back(error.what());
            }
        }
    };
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [] { throw std::logic_error("listener"); });
    const auto fails = [&] {
        const EditsWhileUnwinding guard{stack, ran};
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(fails(), std::runtime_error);
    EXPECT_THAT(ran, ElementsAre("listener"));
}

TEST_F(MacroScope, LeavesNoMacroOpenIfItCannotBeMade)
{
    stack.add(new ProbeCommand("a"));
    const moUndoStackState state(stack);
    QObject context;
    QObject::connect(&state, &moUndoStackState::canUndoChanged, &context, [](bool can) {
        if (!can) throw std::runtime_error("listener");
    });
    EXPECT_THROW(const moMacroScope macro(stack, "macro"), std::runtime_error);
    EXPECT_EQ(describe(stack), "2 steps, at \"macro\", undo, no redo");
}

// --- recording ------------------------------------------------------------------------------------------------------

TEST_F(RecordingScope, IsBalancedOnEveryWayOut)
{
    moUndoStack::endUndo();
    const auto edit = [] {
        const moRecordingScope recording;
        EXPECT_TRUE(moUndoStack::undoEnabled());
        {
            const moBlockedRecordingScope blocked;
            EXPECT_FALSE(moUndoStack::undoEnabled());
            EXPECT_TRUE(moUndoStack::undoBlocked());
        }
        EXPECT_TRUE(moUndoStack::undoEnabled());
        const moBlockedRecordingScope blocked;
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_FALSE(moUndoStack::undoBlocked());
    moUndoStack::beginUndo();
}

} // namespace
