#include <support/UndoTest.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;

class GenericFunctionUndoCommand : public UndoTest
{
protected:
    moGenericFunctionUndoCommand* made(const QString& text)
    {
        const std::string name = text.toStdString();
        return new moGenericFunctionUndoCommand(
            moUndoString(text, "", ""), [this, name] { calls.push_back("undo " + name); },
            [this, name] { calls.push_back("redo " + name); }, nullptr);
    }

    std::vector<std::string> calls;
};

TEST_F(GenericFunctionUndoCommand, TakesTheUndoFunctionFirst)
{
    stack.add(made("a"));
    stack.undo();
    stack.redo();
    EXPECT_THAT(calls, ElementsAre("redo a", "undo a", "redo a"));
}

TEST_F(GenericFunctionUndoCommand, IsNeverMerged)
{
    stack.add(made("a"));
    stack.add(made("a"));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(GenericFunctionUndoCommand, DoesNotKeepItsCompositeFromBeingMergedAndLosesTheNewerFunctionsAsIntended)
{
    const auto compose = [this](const QString& name) {
        stack.beginMultiCommand("composite", "", true);
        stack.addOrExecute(made(name));
        stack.endMultiCommand();
    };
    compose("a");
    compose("b");
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    stack.redo();
    EXPECT_THAT(calls, ElementsAre("redo a", "redo b", "undo a", "redo a"));
}

TEST_F(GenericFunctionUndoCommand, KeepsItsCompositeApartWhereMergingIsDisabledInEither)
{
    const auto compose = [this](bool compositeMerges, bool commandMerges) {
        stack.beginMultiCommand("composite", "", compositeMerges);
        auto* const command = made("a");
        command->setMergeEnabled(commandMerges);
        stack.addOrExecute(command);
        stack.endMultiCommand();
    };
    compose(true, true);
    compose(true, false);
    EXPECT_EQ(stack.size(), 2);
    stack.clear();
    compose(false, true);
    compose(false, true);
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(GenericFunctionUndoCommand, StepDidNotHappenIfItsFunctionThrows)
{
    bool fails = false;
    const auto step = [this, &fails](const char* what) {
        return [this, &fails, what] {
            calls.emplace_back(what);
            if (fails) throw std::runtime_error(what);
        };
    };
    auto* const command = new moGenericFunctionUndoCommand(moUndoString("a", ""), step("undo"), step("redo"), nullptr);
    stack.add(command);
    fails = true;
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
    EXPECT_THROW(command->undo(), std::runtime_error) << "also by hand";
    fails = false;
    stack.undo();
    EXPECT_EQ(describe(stack), "1 step, at start, no undo, redo");
    EXPECT_THAT(calls, ElementsAre("redo", "undo", "undo", "undo"));
}

TEST_F(GenericFunctionUndoCommand, FunctionThatRunsCommandsIsFinishedBeforeWhatTheirCallbacksThrowComesOut)
{
    moGenericFunctionUndoCommand command(
        moUndoString("a", ""), [] {},
        [this] {
            moMultiCommand inner(moUndoString("inner", ""), std::function<void()>([] { throw 1; }));
            inner.redo();
            calls.emplace_back("rest");
        },
        nullptr);
    EXPECT_THROW(command.redo(), int);
    EXPECT_THAT(calls, ElementsAre("rest"));
}

TEST_F(GenericFunctionUndoCommand, DescribesItselfWithTheIdMinusOne)
{
    const std::unique_ptr<moGenericFunctionUndoCommand> command(made("a"));
    moMessage message;
    command->makeMessage(message);
    EXPECT_EQ(describe(message), "id=int:-1");
}

TEST_F(GenericFunctionUndoCommand, ThrowsBadFunctionCallWhenTheStepOfAnEmptyFunctionComes)
{
    EXPECT_THROW(stack.add(new moGenericFunctionUndoCommand(
                     moUndoString("a", ""), [] {}, {}, nullptr)),
                 std::bad_function_call);
    EXPECT_TRUE(stack.isEmpty());
    stack.add(new moGenericFunctionUndoCommand(
        moUndoString("a", ""), {}, [] {}, nullptr));
    EXPECT_THROW(stack.undo(), std::bad_function_call);
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
}

TEST_F(GenericFunctionUndoCommand, ReleasesWhatItsFunctionsHoldWhenItIsDeleted)
{
    const auto held = std::make_shared<int>(0);
    stack.add(new moGenericFunctionUndoCommand(
        moUndoString("a", ""), [held] { --*held; }, [held] { ++*held; }, nullptr));
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 3);
    stack.clear();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(GenericFunctionUndoCommand, TakesTheGivenParent)
{
    QUndoCommand parent;
    auto* command = new moGenericFunctionUndoCommand(
        moUndoString("a", ""), [] {}, [] {}, &parent);
    EXPECT_EQ(command->parent(), &parent);
    EXPECT_EQ(parent.child(0), command);
}

} // namespace
