#include <support/ContextTranslator.h>
#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoView>

#include <stdexcept>

namespace {

using testing::ElementsAre;

class History : public UndoTest
{
protected:
    static std::vector<QUndoView*> views()
    {
        std::vector<QUndoView*> found;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* view = qobject_cast<QUndoView*>(widget)) found.push_back(view);
        }
        return found;
    }

    /// The view of the default stack.
    QUndoView* shown()
    {
        stack.showHistory();
        for (QUndoView* view : views()) {
            if (view->isVisible()) return view;
        }
        return nullptr;
    }

    void TearDown() override
    {
        for (QUndoView* view : views())
            delete view;
        UndoTest::TearDown();
    }

    static void click(QUndoView& view, int row) { view.setCurrentIndex(view.model()->index(row, 0)); }
};

TEST_F(History, IsAWindowOfItsOwnWithItsTitleAndSize)
{
    const QUndoView* view = shown();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->parentWidget(), nullptr);
    EXPECT_EQ(view->windowTitle(), "Undo/Redo History");
    EXPECT_EQ(view->size(), QSize(300, 100));
}

TEST_F(History, TranslatesItsTitleInTheContextOfTheStack)
{
    const ContextTranslator translator;
    EXPECT_EQ(shown()->windowTitle(), "moUndoStack: Undo/Redo History");
}

TEST_F(History, IsMadeOncePerStack)
{
    stack.showHistory();
    stack.showHistory();
    EXPECT_EQ(views().size(), 1U);
    second.showHistory();
    EXPECT_EQ(views().size(), 2U);
}

TEST_F(History, ThatWasClosedComesBackWithTheSameView)
{
    QUndoView* view = shown();
    view->close();
    EXPECT_EQ(shown(), view);
    EXPECT_TRUE(view->isVisible());
}

TEST_F(History, KeepsTheSizeAndThePlaceThatTheUserGaveItWhenItIsShownAgain)
{
    QUndoView* view = shown();
    view->resize(640, 480);
    view->move(30, 40);
    EXPECT_EQ(shown()->size(), QSize(640, 480)) << "while it is shown";
    EXPECT_EQ(view->pos(), QPoint(30, 40));
    view->close();
    EXPECT_EQ(shown()->size(), QSize(640, 480)) << "after it was closed";
    EXPECT_EQ(view->pos(), QPoint(30, 40));
}

TEST_F(History, ThatSomebodyDeletedIsMadeAnew)
{
    delete shown();
    EXPECT_NE(shown(), nullptr);
}

TEST_F(History, ListsTheStepsAndTheStart)
{
    stack.add(new ProbeCommand("a"));
    stack.add(new ProbeCommand("b"));
    const QAbstractItemModel* model = shown()->model();
    ASSERT_EQ(model->rowCount(), 3);
    EXPECT_EQ(model->data(model->index(1, 0)).toString(), "a");
    EXPECT_EQ(model->data(model->index(2, 0)).toString(), "b");
}

TEST_F(History, HasTheLookOfTheModel)
{
    stack.add(new ProbeCommand("a"));
    stack.setClean();
    stack.add(new ProbeCommand("b"));
    stack.undo();
    const QAbstractItemModel* model = shown()->model();
    EXPECT_EQ(model->index(1, 0).data(Qt::ToolTipRole).toString(), "about a");
    EXPECT_TRUE(model->index(1, 0).data(Qt::FontRole).isValid()) << "clean";
    EXPECT_TRUE(model->index(2, 0).data(Qt::ForegroundRole).isValid()) << "undone";
}

TEST_F(History, DoesNotKeepTheApplicationAlive)
{
    EXPECT_FALSE(shown()->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(History, NeedsNoLookAtEachRow)
{
    EXPECT_TRUE(shown()->uniformItemSizes());
}

TEST_F(History, JumpsOverSeveralStepsReportedAsOne)
{
    for (const char* name : {"a", "b", "c"})
        stack.add(new ProbeCommand(name));
    QUndoView* view = shown();
    Trace trace(stack);
    click(*view, 1);
    EXPECT_EQ(describe(stack), "3 steps, at \"a\", undo, redo");
    click(*view, 3);
    EXPECT_EQ(describe(stack), "3 steps, at \"c\", undo, no redo");
    EXPECT_THAT(trace.take(),
                ElementsAre("signal undo \"b\"", testing::HasSubstr("moURManager::undo index=int:1"),
                            "signal redo \"c\"", testing::HasSubstr("moURManager::redo index=int:2 added=bool:false")));
}

TEST_F(History, LetsASlotCallTheStackWhenAStepWasChosenInIt)
{
    for (const char* name : {"a", "b", "c"})
        stack.add(new ProbeCommand(name));
    QUndoView* view = shown();
    QObject context;
    bool first = true;
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, [&] {
        if (std::exchange(first, false)) stack.undo();
    });
    click(*view, 2);
    EXPECT_EQ(describe(stack), "3 steps, at \"a\", undo, redo");
}

TEST_F(History, LetsACommandThatRunsInAJumpCallTheStack)
{
    std::vector<std::string> steps;
    stack.add((new ProbeCommand("a"))->loggingTo(steps));
    stack.add(
        (new ProbeCommand("b"))->loggingTo(steps)->onUndo([&] { stack.add(new ProbeCommand("added in a jump")); }));
    stack.add((new ProbeCommand("c"))->loggingTo(steps));
    QUndoView* view = shown();
    steps.clear();
    click(*view, 0);
    EXPECT_THAT(steps, ElementsAre("undo c", "undo b", "undo a"));
    EXPECT_EQ(describe(stack), "1 step, at \"added in a jump\", undo, no redo");
    EXPECT_EQ(view->currentIndex().row(), 1);
}

TEST_F(History, LetsACommandThatRunsInAJumpClearTheStack)
{
    int state = 0;
    stack.add((new ProbeCommand("a"))->onUndo([&] {
        stack.clear();
        state = 1;
    }));
    click(*shown(), 0);
    EXPECT_EQ(state, 1);
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(History, WhoseModelHasAListenerThatThrowsLeavesThePushedCommandOnTheStack)
{
    const QUndoView* view = shown();
    QObject context;
    QObject::connect(view->model(), &QAbstractItemModel::rowsInserted, &context,
                     [] { throw std::runtime_error("view"); });
    int deleted = 0;
    EXPECT_THROW(stack.add((new ProbeCommand("a"))->onDestroyed([&deleted] { ++deleted; })), std::runtime_error);
    QObject::disconnect(view->model(), nullptr, &context, nullptr);
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(describe(stack), "1 step, at \"a\", undo, no redo");
    stack.clear();
    EXPECT_EQ(deleted, 1);
}

TEST_F(History, FollowsStepsWhileItIsShown)
{
    QUndoView* view = shown();
    stack.add(new ProbeCommand("a"));
    EXPECT_EQ(view->currentIndex().row(), 1);
    stack.undo();
    EXPECT_EQ(view->currentIndex().row(), 0);
    stack.clear();
    EXPECT_EQ(view->model()->rowCount(), 1);
}

} // namespace
