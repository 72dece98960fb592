#include <support/UndoTest.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <functional>
#include <memory>

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
