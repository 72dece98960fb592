#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Fault : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::function<void()> fails(const char* what)
{
    return [what] { throw Fault(what); };
}

/// Before the fault there is one step "kept"; after it the stack must work as if nothing had been.
class Exceptions : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        stack.add(new ProbeCommand("kept"));
    }

    void expectTheStackToWork()
    {
        Trace trace(stack);
        auto* next = (new ProbeCommand("next"))->loggingTo(steps);
        const int before = stack.size();
        steps.clear();
        stack.addOrExecute(next);
        stack.undo();
        stack.redo();
        EXPECT_THAT(steps, ElementsAre("redo next", "undo next", "redo next"));
        EXPECT_EQ(stack.size(), before + 1);
        EXPECT_THAT(trace.take(), ElementsAre("signal redo \"next\" added", testing::HasSubstr("added=bool:true"),
                                              "signal undo \"next\"", testing::HasSubstr("moURManager::undo"),
                                              "signal redo \"next\"", testing::HasSubstr("added=bool:false")));
        stack.clear();
        EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    }

    template<class Call>
    std::string faultOf(Call call)
    {
        try {
            call();
        } catch (const Fault& fault) {
            return fault.what();
        }
        return "none";
    }

    std::vector<std::string> steps;
    int deleted = 0;
    std::function<void()> countDeletion = [this] { ++deleted; };
};

TEST_F(Exceptions, OutOfRedoWhilePushedReachTheCallerAndTheCommandIsDeletedOnce)
{
    stack.add(new ProbeCommand("redone later"));
    stack.undo();
    EXPECT_EQ(
        faultOf([this] { stack.add((new ProbeCommand("a"))->onRedo(fails("redo"))->onDestroyed(countDeletion)); }),
        "redo");
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(describe(stack), "2 steps, at \"kept\", undo, redo") << "what could be redone still can";
    stack.redo();
    expectTheStackToWork();
}

/// Brings one undone step, then does what is to be tested, and expects the step's redo to be told as a redo.
class ExceptionsBeforeARedo : public Exceptions
{
protected:
    template<class Call>
    void expectTheNextRedoToBeNoPush(Call call)
    {
        stack.add(new ProbeCommand("redone later"));
        stack.undo();
        call();
        Trace trace(stack);
        stack.redo();
        EXPECT_THAT(trace.take(),
                    ElementsAre("signal redo \"redone later\"", testing::HasSubstr("index=int:1 added=bool:false")));
    }
};

TEST_F(ExceptionsBeforeARedo, OutOfAPushDoNotMakeItAPush)
{
    expectTheNextRedoToBeNoPush(
        [this] { EXPECT_EQ(faultOf([this] { stack.add((new ProbeCommand("a"))->onRedo(fails("redo"))); }), "redo"); });
}

TEST_F(ExceptionsBeforeARedo, OutOfAPushThatWaitedDoNotMakeItAPush)
{
    expectTheNextRedoToBeNoPush([this] {
        bool broken = true;
        auto* waits = (new ProbeCommand("a"))->onRedo(fails("redo"));
        stack.undo();
        QObject context;
        QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
            if (std::exchange(broken, false)) stack.add(waits);
        });
        EXPECT_EQ(faultOf([this] { stack.redo(); }), "redo");
        QObject::disconnect(&stack, nullptr, &context, nullptr);
    });
}

TEST_F(ExceptionsBeforeARedo, OutOfACompositeDoNotMakeItAPush)
{
    expectTheNextRedoToBeNoPush([this] {
        stack.beginMultiCommand("composite", "", true);
        (new ProbeCommand("a"))->onRedo(fails("redo"));
        EXPECT_EQ(faultOf([this] { stack.endMultiCommand(); }), "redo");
    });
}

TEST_F(ExceptionsBeforeARedo, OutOfARedoDoNotMakeItAPush)
{
    bool broken = false;
    stack.add((new ProbeCommand("a"))->onRedo([&broken] {
        if (broken) throw Fault("redo");
    }));
    stack.undo();
    broken = true;
    EXPECT_EQ(faultOf([this] { stack.redo(); }), "redo");
    broken = false;
    Trace trace(stack);
    stack.redo();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"a\"", testing::HasSubstr("added=bool:false")));
}

TEST_F(Exceptions, OutOfRedoWhilePushedLeaveACommandToItsParent)
{
    QUndoCommand parent;
    auto* child = (new ProbeCommand("a", &parent))->onRedo(fails("redo"))->onDestroyed(countDeletion);
    EXPECT_EQ(faultOf([&] { stack.addOrExecute(child); }), "redo");
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(parent.child(0), child);
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfRedoInAMacroLeaveTheMacroOpenAndWithoutTheCommand)
{
    stack.beginMacro("macro");
    stack.add((new ProbeCommand("good"))->loggingTo(steps));
    EXPECT_EQ(
        faultOf([this] { stack.add((new ProbeCommand("a"))->onRedo(fails("redo"))->onDestroyed(countDeletion)); }),
        "redo");
    EXPECT_EQ(deleted, 1);
    stack.endMacro();
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfAnUnrecordedRedoReachTheCallerAndTheCommandIsDeletedOnce)
{
    moUndoStack::beginBlockUndo();
    EXPECT_EQ(faultOf([this] {
                  stack.addOrExecute((new ProbeCommand("a"))->onRedo(fails("redo"))->onDestroyed(countDeletion));
              }),
              "redo");
    moUndoStack::endBlockUndo();
    EXPECT_EQ(deleted, 1);
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfAChildTakeBackWhatTheCompositeHadDoneAndDropIt)
{
    stack.beginMultiCommand("composite", "", true);
    (new ProbeCommand("a"))->loggingTo(steps)->onDestroyed(countDeletion);
    (new ProbeCommand("b"))->loggingTo(steps)->onDestroyed(countDeletion);
    (new ProbeCommand("c"))->loggingTo(steps)->onRedo(fails("third child"))->onDestroyed(countDeletion);
    (new ProbeCommand("d"))->loggingTo(steps)->onDestroyed(countDeletion);
    EXPECT_EQ(faultOf([this] { stack.endMultiCommand(); }), "third child");
    EXPECT_THAT(steps, ElementsAre("redo a", "redo b", "redo c", "undo b", "undo a"));
    EXPECT_EQ(deleted, 4);
    EXPECT_EQ(moUndoStack::getCurrentCommandParent(), nullptr);
    EXPECT_EQ(describe(stack), "1 step, at \"kept\", undo, no redo");
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfUndoLeaveTheStepDoneAndItCanBeTriedAgain)
{
    bool broken = true;
    stack.add((new ProbeCommand("a"))->loggingTo(steps)->onUndo([&broken] {
        if (broken) throw Fault("undo");
    }));
    Trace trace(stack);
    EXPECT_EQ(faultOf([this] { stack.undo(); }), "undo");
    EXPECT_THAT(trace.take(), IsEmpty());
    EXPECT_EQ(describe(stack), "2 steps, at \"a\", undo, no redo");
    broken = false;
    stack.undo();
    EXPECT_EQ(describe(stack), "2 steps, at \"kept\", undo, redo");
    EXPECT_EQ(trace.take().size(), 2U);
}

TEST_F(Exceptions, OutOfRedoOfARecordedStepLeaveItUndone)
{
    bool broken = false;
    stack.add((new ProbeCommand("a"))->onRedo([&broken] {
        if (broken) throw Fault("redo");
    }));
    stack.undo();
    broken = true;
    EXPECT_EQ(faultOf([this] { stack.redo(); }), "redo");
    EXPECT_EQ(describe(stack), "2 steps, at \"kept\", undo, redo");
    broken = false;
    stack.redo();
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfMergeDeleteTheNewerCommandOnceAndKeepTheOlderOne)
{
    stack.add(
        (new ProbeCommand("older"))->withId(81)->onMerge([](const QUndoCommand*) -> bool { throw Fault("merge"); }));
    EXPECT_EQ(faultOf([this] {
                  stack.add((new ProbeCommand("newer"))->withId(81)->loggingTo(steps)->onDestroyed(countDeletion));
              }),
              "merge");
    EXPECT_THAT(steps, ElementsAre("redo newer"));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(describe(stack), "2 steps, at \"older\", undo, no redo");
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfMergeInAMacroDeleteTheNewerCommandOnce)
{
    stack.beginMacro("macro");
    stack.add(
        (new ProbeCommand("older"))->withId(81)->onMerge([](const QUndoCommand*) -> bool { throw Fault("merge"); }));
    EXPECT_EQ(faultOf([this] { stack.add((new ProbeCommand("newer"))->withId(81)->onDestroyed(countDeletion)); }),
              "merge");
    EXPECT_EQ(deleted, 1);
    stack.endMacro();
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
    expectTheStackToWork();
}

/// The three kinds of listener that can throw.
enum class Listener
{
    Slot,
    Message,
    Changed
};

bool failingMessageCallback(const char*, moMessage&, int)
{
    throw Fault("listener");
}

class ListenerExceptions : public Exceptions, public testing::WithParamInterface<Listener>
{
protected:
    ProbeCommand* breakListener(ProbeCommand* command)
    {
        switch (GetParam()) {
        case Listener::Slot:
            m_context = std::make_unique<QObject>();
            QObject::connect(&stack, &moUndoStack::redoPerformed, m_context.get(), fails("listener"));
            QObject::connect(&stack, &moUndoStack::undoPerformed, m_context.get(), fails("listener"));
            break;
        case Listener::Message:
            stack.setMessageCallback(failingMessageCallback);
            break;
        case Listener::Changed:
            command->setChangedCB([](bool) { throw Fault("listener"); });
            break;
        }
        m_command = command;
        return command;
    }

    void mendListener()
    {
        m_context.reset();
        stack.setMessageCallback(nullptr);
        if (m_command) m_command->setChangedCB({});
        m_command = nullptr;
    }

    /// For commands that are not there any more when the listener is mended.
    void mendListenerOfADeletedCommand()
    {
        m_command = nullptr;
        mendListener();
    }

    ProbeCommand* m_command = nullptr;

private:
    std::unique_ptr<QObject> m_context;
};

TEST_P(ListenerExceptions, WhilePushedLeaveTheCommandOnTheStack)
{
    auto* command = breakListener((new ProbeCommand("a"))->onDestroyed(countDeletion));
    EXPECT_EQ(faultOf([&] { stack.add(command); }), "listener");
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(stack.currentCommand(), command);
    mendListener();
    expectTheStackToWork();
    EXPECT_EQ(deleted, 1);
}

TEST_P(ListenerExceptions, WhileMergedLeaveTheMergedCommandOnTheStack)
{
    auto* older = (new ProbeCommand("older"))->withId(82)->onMerge([](const QUndoCommand*) { return true; });
    stack.add(older);
    breakListener(older);
    EXPECT_EQ(faultOf([this] { stack.add((new ProbeCommand("newer"))->withId(82)->onDestroyed(countDeletion)); }),
              "listener");
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(stack.currentCommand(), older);
    mendListener();
    expectTheStackToWork();
}

TEST_P(ListenerExceptions, WhileUndoneAndRedoneLeaveTheStepWhereItWent)
{
    auto* command = new ProbeCommand("a");
    stack.add(command);
    breakListener(command);
    EXPECT_EQ(faultOf([this] { stack.undo(); }), "listener");
    EXPECT_EQ(describe(stack), "2 steps, at \"kept\", undo, redo");
    EXPECT_EQ(faultOf([this] { stack.redo(); }), "listener");
    EXPECT_EQ(describe(stack), "2 steps, at \"a\", undo, no redo");
    EXPECT_EQ(faultOf([this] { stack.reset(); }), GetParam() == Listener::Changed ? "none" : "listener");
    EXPECT_EQ(describe(stack), "2 steps, at start, no undo, redo");
    mendListener();
    stack.redo();
    stack.redo();
    expectTheStackToWork();
}

TEST_P(ListenerExceptions, AtTheEndOfACompositionLeaveTheCompositeOnTheStack)
{
    stack.beginMultiCommand("composite", "", true);
    breakListener(new ProbeCommand("child"));
    EXPECT_EQ(faultOf([this] { stack.endMultiCommand(); }), "listener");
    EXPECT_EQ(describe(stack), "2 steps, at \"composite\", undo, no redo");
    mendListener();
    expectTheStackToWork();
}

TEST_P(ListenerExceptions, AtTheEndOfAMacroLeaveTheMacroOnTheStack)
{
    stack.beginMacro("macro");
    breakListener(new ProbeCommand("unused"));
    stack.add(m_command);
    EXPECT_EQ(faultOf([this] { stack.endMacro(); }), GetParam() == Listener::Changed ? "none" : "listener");
    EXPECT_EQ(describe(stack), "2 steps, at \"macro\", undo, no redo");
    mendListener();
    expectTheStackToWork();
}

TEST_P(ListenerExceptions, OfAnUnrecordedCommandStillDeleteIt)
{
    moUndoStack::beginBlockUndo();
    auto* command = breakListener((new ProbeCommand("a"))->onDestroyed(countDeletion));
    EXPECT_EQ(faultOf([&] { stack.addOrExecute(command); }), "listener");
    moUndoStack::endBlockUndo();
    EXPECT_EQ(deleted, 1);
    mendListenerOfADeletedCommand();
    expectTheStackToWork();
}

std::string listenerName(const testing::TestParamInfo<Listener>& parameter)
{
    static const char* const s_names[] = {"Slot", "Message", "Changed"};
    return s_names[static_cast<int>(parameter.param)];
}

INSTANTIATE_TEST_SUITE_P(EachListener, ListenerExceptions,
                         testing::Values(Listener::Slot, Listener::Message, Listener::Changed), listenerName);

TEST_F(Exceptions, OutOfASlotOfClearedLeaveTheStackEmpty)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::cleared, &context, fails("cleared"));
    EXPECT_EQ(faultOf([this] { stack.clear(); }), "cleared");
    context.disconnect();
    QObject::disconnect(&stack, &moUndoStack::cleared, &context, nullptr);
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfAListenerOfAnEmptiedStackDoNotKeepItFromBeingCleared)
{
    QObject context;
    bool cleared = false;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, fails("undone"));
    QObject::connect(&stack, &moUndoStack::cleared, &context, [&cleared] { cleared = true; });
    EXPECT_EQ(faultOf([this] { stack.clear(); }), "undone");
    EXPECT_TRUE(cleared);
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    expectTheStackToWork();
}

TEST_F(Exceptions, OutOfASlotLeaveOutOnlyTheSlotsBehindIt)
{
    Trace trace(stack);
    QObject context;
    int told = 0;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, fails("slot"));
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&told] { ++told; });
    EXPECT_EQ(faultOf([&] { stack.add(trace.watch(new ProbeCommand("a"), "a")); }), "slot");
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    EXPECT_EQ(told, 0);
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"a\" added",
                                          testing::HasSubstr("moURManager::redo index=int:1"), "changed \"a\" true"));
}

TEST_F(Exceptions, OutOfEveryListenerAreOneForTheCallerAndALineForEachOther)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, fails("slot"));
    stack.setMessageCallback([](const char*, moMessage&, int) -> bool { throw Fault("message"); });
    auto* parent = new moMultiCommand(moUndoString("composite", ""));
    parent->setChangedCB([](bool) { throw Fault("composite"); });
    (new ProbeCommand("child", parent))->setChangedCB([](bool) { throw Fault("child"); });
    EXPECT_EQ(faultOf([&] { stack.add(parent); }), "slot");
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    stack.setMessageCallback(nullptr);
    const std::string prefix = "error: moUndoStack: another exception in the same operation: ";
    EXPECT_THAT(log.take(), ElementsAre(prefix + "message", prefix + "composite", prefix + "child"));
    EXPECT_EQ(describe(stack), "2 steps, at \"composite\", undo, no redo");
}

TEST_F(Exceptions, OutOfMakeMessageStillSendTheKeysThatWereSet)
{
    struct Mute : ProbeCommand
    {
        using ProbeCommand::ProbeCommand;
        void makeMessage(moMessage&) const override { throw Fault("message"); }
    };
    Trace trace(stack);
    EXPECT_EQ(faultOf([&] { stack.add(new Mute("a")); }), "message");
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:1 added=bool:true text=string:\"a\" "
                                                  "description=string:\"about a\""));
}

TEST_F(Exceptions, OfAPushThatFailedDoNotMakeTheNextRedoLookAdded)
{
    stack.undo();
    EXPECT_EQ(faultOf([this] { stack.add((new ProbeCommand("a"))->onRedo(fails("redo"))); }), "redo");
    Trace trace(stack);
    stack.redo();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"kept\"", testing::HasSubstr("added=bool:false")));
}

TEST_F(Exceptions, OfACallMadeByAListenerAreThatListenersToCatch)
{
    QObject context;
    std::string caught;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
        caught = faultOf([this] { second.add((new ProbeCommand("b"))->onRedo(fails("second stack"))); });
    });
    EXPECT_EQ(faultOf([this] { stack.add(new ProbeCommand("a")); }), "none");
    EXPECT_EQ(caught, "second stack");
    EXPECT_EQ(describe(stack), "2 steps, at \"a\", undo, no redo");
}

TEST_F(Exceptions, AfterTheFirstOneAreLogged)
{
    QObject context;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, fails("first"));
    QObject::connect(&stack, &moUndoStack::cleared, &context, fails("second"));
    EXPECT_EQ(faultOf([this] { stack.clear(); }), "first");
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation: second"));
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, fails("first"));
    QObject::connect(&stack, &moUndoStack::cleared, &context, [] { throw 2; });
    stack.add(new ProbeCommand("b"));
    EXPECT_EQ(faultOf([this] { stack.clear(); }), "first");
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation"));
}

TEST_F(Exceptions, OutOfTheLogItselfDoNotLeaveTheStackAtWork)
{
    const moLog::Listener before = moLog::setListener([](moLog::Kind, const std::string&) { throw Fault("log"); });
    QObject context;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, fails("first"));
    QObject::connect(&stack, &moUndoStack::cleared, &context, fails("second"));
    EXPECT_EQ(faultOf([this] { stack.clear(); }), "first");
    QObject::disconnect(&stack, nullptr, &context, nullptr);
    moLog::setListener(before);
    expectTheStackToWork();
}

TEST_F(Exceptions, InAJumpLeaveTheIndexWhereItWas)
{
    bool broken = false;
    stack.add((new ProbeCommand("a"))->onUndo([&broken] {
        if (broken) throw Fault("undo");
    }));
    stack.add((new ProbeCommand("b"))->loggingTo(steps));
    steps.clear();
    broken = true;
    EXPECT_EQ(faultOf([this] { stack.reset(); }), "undo");
    EXPECT_THAT(steps, ElementsAre("undo b"));
    EXPECT_EQ(describe(stack), "3 steps, at \"b\", undo, no redo");
    broken = false;
    expectTheStackToWork();
}

} // namespace
