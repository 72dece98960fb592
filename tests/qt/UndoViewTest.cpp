// What QUndoView does, as far as the history window relies on it.

#include <qt/QtTest.h>

#include <QtCore/QItemSelectionModel>
#include <QtWidgets/QUndoView>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtUndoView : public QtUndoStack
{
protected:
    QtUndoView()
    {
        push("a");
        push("b");
        take();
    }

    void choose(int row) { view.setCurrentIndex(view.model()->index(row, 0)); }
    int chosenRow() const { return view.currentIndex().row(); }

    QUndoView view{&stack};
};

TEST_F(QtUndoView, HasARowForEachIndexAndFollowsTheStack)
{
    EXPECT_EQ(view.model()->rowCount(), 3) << "index 0, 1 and 2";
    EXPECT_EQ(chosenRow(), 2);
    stack.undo();
    EXPECT_EQ(chosenRow(), 1);
}

TEST_F(QtUndoView, MovesTheStackToTheIndexOfTheChosenRow)
{
    choose(0);
    EXPECT_THAT(take(), ElementsAre("undo b", "undo a", "index 0 of 2"));
}

/// The connection that moHistoryWindow replaces by its own.
TEST_F(QtUndoView, LeavesTheStackAloneOnceItsModelHearsOfNoChoice)
{
    QObject::disconnect(view.selectionModel(), &QItemSelectionModel::currentChanged, view.model(), nullptr);
    int row = -1;
    QObject::connect(view.selectionModel(), &QItemSelectionModel::currentChanged, &view,
                     [&row](const QModelIndex& chosen) { row = chosen.row(); });
    choose(0);
    EXPECT_EQ(row, 0);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(stack.index(), 2);
    stack.undo();
    EXPECT_EQ(chosenRow(), 1) << "it still follows";
}

TEST_F(QtUndoView, ResetsItsWholeModelAtEachStep)
{
    int resets = 0;
    QObject::connect(view.model(), &QAbstractItemModel::modelReset, &view, [&resets] { ++resets; });
    stack.undo();
    EXPECT_EQ(resets, 1) << "if this is 0, the history window need not ask for rows of one height any more";
}

TEST(QtUndoViewAtTheEndOfItsStack, IsEmptyAndCanBeDestroyed)
{
    auto stack = std::make_unique<QUndoStack>();
    stack->push(new QUndoCommand("a"));
    auto view = std::make_unique<QUndoView>(stack.get());
    stack.reset();
    EXPECT_EQ(view->stack(), nullptr);
    EXPECT_EQ(view->model()->rowCount(), 0);
    view.reset();
}

} // namespace
