#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoStackState.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A command of a class that is foreign to the library.
class ForeignCommand : public QUndoCommand
{
public:
    ForeignCommand(const std::string& text, std::vector<std::string>& ran)
        : QUndoCommand(QString::fromStdString(text)), m_ran(ran)
    {
    }

    void undo() override { run("undo ", undone); }
    void redo() override { run("redo ", redone); }

    std::function<void()> undone;
    std::function<void()> redone;

private:
    void run(const char* what, const std::function<void()>& function)
    {
        m_ran.push_back(what + text().toStdString());
        if (function) function();
    }

    std::vector<std::string>& m_ran;
};

/// Four steps are done. Some turn obsolete when they are undone or redone, others fail.
class Obsolete : public UndoTest
{
protected:
    ForeignCommand* push(const std::string& text)
    {
        auto* command = new ForeignCommand(text, ran);
        stack.add(command);
        return command;
    }

    static std::function<void()> turn(QUndoCommand* command)
    {
        return [command] { command->setObsolete(true); };
    }

    [[noreturn]] static void fail() { throw std::runtime_error("step"); }

    std::vector<std::string> take() { return std::exchange(ran, {}); }

    std::string texts() const
    {
        std::string all;
        for (int i = 0; i < stack.size(); ++i)
            all += (i == stack.index() ? "|" : "") + stack.command(i)->text().toStdString();
        return stack.index() == stack.size() ? all + "|" : all;
    }

    void expectTheStackToWork()
    {
        stack.add(new ProbeCommand("z"));
        EXPECT_EQ(stack.currentCommand()->text(), "z");
        stack.undo();
        stack.redo();
        EXPECT_EQ(stack.currentCommand()->text(), "z");
        EXPECT_EQ(stack.index(), stack.size());
    }

    std::vector<std::string> ran;
    ForeignCommand* const a = push("a");
    ForeignCommand* const b = push("b");
    ForeignCommand* const c = push("c");
    ForeignCommand* const d = push("d");
};

TEST_F(Obsolete, StepsAreForgottenInAJumpThatIsReportedOnce)
{
    c->undone = turn(c);
    a->redone = turn(a);
    take();
    Trace trace(stack);
    stack.reset();
    EXPECT_THAT(take(), ElementsAre("undo d", "undo c", "undo b", "undo a"));
    EXPECT_THAT(trace.take(),
                ElementsAre("signal undo \"a\"", HasSubstr("index=int:0 added=bool:false text=string:\"a\"")));
    EXPECT_EQ(texts(), "|abd");
    stack.setIndex(2);
    EXPECT_THAT(take(), ElementsAre("redo a", "redo b"));
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"b\"", HasSubstr("index=int:0 added=bool:false text=string:\"b\"")));
    EXPECT_EQ(texts(), "b|d");
    stack.setIndex(1);
    EXPECT_THAT(trace.take(), testing::IsEmpty());
}

TEST_F(Obsolete, StepsDoNotMoveTheGoalOfAJumpBack)
{
    d->undone = turn(d);
    stack.setIndex(2);
    EXPECT_EQ(texts(), "ab|c");
    stack.setIndex(-1);
    EXPECT_EQ(texts(), "|abc");
    stack.setIndex(7);
    EXPECT_EQ(texts(), "abc|");
}

TEST_F(Obsolete, StepsMayBeAllThatAJumpRuns)
{
    stack.setIndex(0);
    for (ForeignCommand* each : {a, b, c, d})
        each->redone = turn(each);
    Trace trace(stack);
    stack.setIndex(4);
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_THAT(trace.take(), testing::IsEmpty());
    expectTheStackToWork();
}

TEST_F(Obsolete, StepsInAJumpLetCallsFromInsideWait)
{
    d->undone = turn(d);
    c->undone = [this] {
        push("waits");
        EXPECT_EQ(stack.index(), 1) << "as if the jump were done, and the push after it";
    };
    stack.reset();
    EXPECT_EQ(texts(), "waits|");
}

TEST_F(Obsolete, StepsAreNoReasonToMoveWhileAMacroIsOpen)
{
    stack.beginMacro("macro");
    take();
    stack.setIndex(0);
    EXPECT_THAT(take(), testing::IsEmpty());
    stack.endMacro();
    EXPECT_EQ(stack.index(), 5);
}

TEST_F(Obsolete, StepThatFailsAfterItHasTurnedStays)
{
    d->undone = [this] {
        d->setObsolete(true);
        fail();
    };
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(texts(), "abcd|");
    expectTheStackToWork();
}

TEST_F(Obsolete, StepsOfTheOtherStackChangeNothing)
{
    d->undone = turn(d);
    second.add(new ProbeCommand("second"));
    second.reset();
    EXPECT_THROW(second.add((new ProbeCommand("fails"))->onRedo(fail)), std::runtime_error);
    EXPECT_EQ(second.size(), 1);
    EXPECT_EQ(texts(), "abcd|");
}

/// The same with commands of the library's classes; and steps that fail in the same jump.
class ObsoleteOfOurs : public UndoTest
{
protected:
    ProbeCommand* push(const std::string& text)
    {
        auto* command = new ProbeCommand(text);
        stack.add(command);
        return command;
    }

    void pushThree()
    {
        auto* fails = push("a");
        push("b");
        auto* turns = push("c");
        fails->onUndo([this] {
            if (m_broken) throw std::runtime_error("step");
        });
        turns->onUndo([turns] { turns->setObsolete(true); });
    }

    void mend() { m_broken = false; }

private:
    bool m_broken = true;
};

TEST_F(ObsoleteOfOurs, StepsClearTheHistoryWhenAJumpBackFailsBehindThem)
{
    push("before");
    stack.mark();
    pushThree();
    push("later");
    stack.setClean();
    stack.undo();
    const moUndoStackState state(stack);
    const moUndoHistoryModel model(stack);
    Trace trace(stack);
    EXPECT_THROW(stack.setIndex(0), std::runtime_error);
    EXPECT_THAT(trace.take(), ElementsAre("signal undo null", "signal cleared"));
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    EXPECT_FALSE(stack.isClean()) << "the scene is in a state that nobody saved";
    EXPECT_EQ(stack.cleanIndex(), -1);
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(ProbeCommand::liveCount(), 0);
    push("d");
    push("e");
    EXPECT_FALSE(stack.isClean());
    stack.reset();
    EXPECT_EQ(stack.index(), 0) << "the mark is that of an empty stack";
    stack.redo();
    EXPECT_EQ(describe(stack), "2 steps, at \"d\", undo, redo");
}

TEST_F(ObsoleteOfOurs, StepsAnswerQueriesFromADestructorWithAnEmptyStack)
{
    pushThree();
    int asked = 0;
    stack.add((new ProbeCommand("asks"))->onDestroyed([&] {
        ++asked;
        EXPECT_EQ(stack.command(0), nullptr);
        EXPECT_EQ(stack.size(), 0);
    }));
    EXPECT_THROW(stack.reset(), std::runtime_error);
    EXPECT_EQ(asked, 1);
}

TEST_F(ObsoleteOfOurs, StepsLeaveACompositionAlone)
{
    pushThree();
    stack.beginMultiCommand("composite", "", false);
    EXPECT_THROW(stack.reset(), std::runtime_error);
    EXPECT_TRUE(moUndoStack::isComposing());
    new ProbeCommand("child", moUndoStack::getCurrentCommandParent());
    stack.endMultiCommand();
    EXPECT_EQ(describe(stack), "1 step, at \"composite\", undo, no redo");
}

TEST_F(ObsoleteOfOurs, StepsDoNotHideTheExceptionOfTheStepBehindThatOfAListener)
{
    pushThree();
    QObject context;
    QObject::connect(&stack, &moUndoStack::cleared, &context, [] { throw std::logic_error("listener"); });
    EXPECT_THROW(stack.reset(), std::runtime_error);
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation: listener"));
}

TEST_F(ObsoleteOfOurs, StepsKeepTheHistoryWhenAJumpForwardFailsBehindThem)
{
    auto* turns = push("a");
    push("b");
    auto* fails = push("c");
    stack.setIndex(0);
    turns->onRedo([turns] { turns->setObsolete(true); });
    fails->onRedo([] { throw std::runtime_error("step"); });
    EXPECT_THROW(stack.setIndex(3), std::runtime_error);
    EXPECT_EQ(describe(stack), "2 steps, at start, no undo, redo");
    fails->onRedo({});
    stack.setIndex(2);
    EXPECT_EQ(describe(stack), "2 steps, at \"c\", undo, no redo");
}

TEST_F(ObsoleteOfOurs, StepsKeepTheHistoryWhenAJumpFailsBeforeThem)
{
    auto* turns = push("a");
    auto* fails = push("b");
    push("c");
    turns->onUndo([turns] { turns->setObsolete(true); });
    fails->onUndo([] { throw std::runtime_error("step"); });
    EXPECT_THROW(stack.reset(), std::runtime_error);
    EXPECT_EQ(describe(stack), "3 steps, at \"c\", undo, no redo");
}

TEST_F(ObsoleteOfOurs, StepsKeepTheHistoryWhenAllOfTheJumpIsDone)
{
    pushThree();
    mend();
    stack.reset();
    EXPECT_EQ(describe(stack), "2 steps, at start, no undo, redo");
    EXPECT_TRUE(stack.isClean());
}

TEST_F(ObsoleteOfOurs, StepGoesWithTheNewerOneThatWasMergedIntoIt)
{
    push("a");
    auto* older = push("older");
    older->withId(7)->onMerge([older](const QUndoCommand*) {
        older->setObsolete(true);
        return true;
    });
    stack.setUndoLimit(2);
    stack.add((new ProbeCommand("newer"))->withId(7));
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
}

} // namespace
