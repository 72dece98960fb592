#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moInvokeMultiCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <QtCore/QObject>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Receiver : public QObject
{
    Q_OBJECT

public:
    std::vector<std::string> calls;

public Q_SLOTS:
    void refresh() { calls.emplace_back("refresh"); }
    void refreshWith(int) { calls.emplace_back("refreshWith"); }
    void fail() { throw std::runtime_error("receiver"); }
    int answer()
    {
        calls.emplace_back("answer");
        return 42;
    }
};

class InvokeMultiCommand : public UndoTest
{
protected:
    moInvokeMultiCommand* made(const char* method)
    {
        auto* command = new moInvokeMultiCommand(moUndoString("invoke", ""), &receiver, method);
        (new ProbeCommand("a", command))->onRedo([this] { receiver.calls.emplace_back("redo a"); })->onUndo([this] {
            receiver.calls.emplace_back("undo a");
        });
        return command;
    }

    Receiver receiver;
};

TEST_F(InvokeMultiCommand, CallsTheMethodAfterTheChildrenInBothDirections)
{
    stack.add(made("refresh()"));
    stack.undo();
    stack.redo();
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "refresh", "undo a", "refresh", "redo a", "refresh"));
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(InvokeMultiCommand, NormalisesTheSignature)
{
    stack.add(made("  refresh( ) "));
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "refresh"));
}

TEST_F(InvokeMultiCommand, DropsWhatTheMethodReturns)
{
    stack.add(made("answer()"));
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "answer"));
}

TEST_F(InvokeMultiCommand, LogsAMisspeltMethodOnceAndStillRunsItsChildren)
{
    stack.add(made("refrehs( )"));
    stack.undo();
    EXPECT_THAT(log.take(), ElementsAre("error: Method not found: Receiver::refrehs()"));
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "undo a"));
}

TEST_F(InvokeMultiCommand, LogsACallThatQtRefusesEachTime)
{
    stack.add(made("refreshWith(int)"));
    stack.undo();
    EXPECT_THAT(log.take(), ElementsAre("error: Could not invoke: Receiver::refreshWith(int)",
                                        "error: Could not invoke: Receiver::refreshWith(int)"));
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "undo a"));
}

TEST_F(InvokeMultiCommand, FindsTheVeryFirstMethodOfAClass)
{
    stack.add(made("destroyed(QObject*)"));
    EXPECT_THAT(log.take(), ElementsAre("error: Could not invoke: Receiver::destroyed(QObject*)"));
}

TEST_F(InvokeMultiCommand, WithoutAReceiverOrAMethodRunsItsChildrenOnly)
{
    auto* command = new moInvokeMultiCommand(moUndoString("invoke", ""), nullptr, "refresh()");
    int runs = 0;
    (new ProbeCommand("a", command))->onRedo([&runs] { ++runs; });
    stack.add(command);
    EXPECT_THAT(log.take(), IsEmpty());
    stack.add(made(nullptr));
    EXPECT_EQ(runs, 1);
    EXPECT_THAT(log.take(), ElementsAre("error: Method not found: Receiver::"));
}

TEST_F(InvokeMultiCommand, StandsThoughTheMethodThrows)
{
    auto* const command = made("fail()");
    EXPECT_THROW(stack.add(command), std::runtime_error);
    EXPECT_EQ(stack.size(), 1);
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_THROW(stack.redo(), std::runtime_error);
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "undo a", "redo a"));
    EXPECT_EQ(describe(stack), "1 step, at \"invoke\", undo, no redo");
    EXPECT_THROW(command->undo(), std::runtime_error) << "also by hand";
}

TEST_F(InvokeMultiCommand, CallsNothingIfAChildsStepDoesNotHappen)
{
    auto* const command = made("refresh()");
    (new ProbeCommand("b", command))->onRedo([] { throw std::runtime_error("child"); });
    EXPECT_THROW(stack.add(command), std::runtime_error);
    EXPECT_THAT(receiver.calls, ElementsAre("redo a", "undo a"));
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(InvokeMultiCommand, RunsItsChildrenOnlyOnceTheReceiverWasDestroyed)
{
    for (const char* method : {"refresh()", "refreshWith(int)"}) {
        auto shortLived = std::make_unique<Receiver>();
        auto* const command = new moInvokeMultiCommand(moUndoString("invoke", ""), shortLived.get(), method);
        int runs = 0;
        (new ProbeCommand("a", command))->onRedo([&runs] { ++runs; })->onUndo([&] {
            ++runs;
            shortLived.reset();
        });
        stack.add(command);
        log.take();
        stack.undo();
        stack.redo();
        EXPECT_EQ(runs, 3);
        EXPECT_THAT(log.take(), IsEmpty());
    }
}

TEST_F(InvokeMultiCommand, HasAnIdOfItsOwnAndNeverMergesWithAPlainComposite)
{
    EXPECT_NE(moInvokeMultiCommand::commandId(), moMultiCommand::commandId());
    const moMultiCommand plain(moUndoString("plain", ""));
    const moInvokeMultiCommand invoke(moUndoString("invoke", ""), &receiver, "refresh()");
    EXPECT_FALSE(plain.canMergeWith(&invoke));
    EXPECT_FALSE(invoke.canMergeWith(&plain));
    stack.add(new moMultiCommand(moUndoString("plain", "")));
    stack.add(new moInvokeMultiCommand(moUndoString("invoke", ""), &receiver, "refresh()"));
    stack.add(new moMultiCommand(moUndoString("plain", "")));
    EXPECT_EQ(stack.size(), 3);
}

TEST_F(InvokeMultiCommand, MergesWithItsLike)
{
    stack.add(new moInvokeMultiCommand(moUndoString("first", ""), &receiver, "refresh()"));
    stack.add(new moInvokeMultiCommand(moUndoString("second", ""), &receiver, "refresh()"));
    EXPECT_EQ(describe(stack), "1 step, at \"second\", undo, no redo");
    EXPECT_THAT(receiver.calls, ElementsAre("refresh", "refresh"));
}

} // namespace

#include "moInvokeMultiCommandTest.moc"
