// What QUndoView does, as far as the history window relies on it.

#include <qt/QtTest.h>

#include <QtCore/QItemSelectionModel>
#include <QtCore/QSignalBlocker>
#include <QtCore/QStringListModel>
#include <QtWidgets/QListView>
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

TEST_F(QtUndoView, LeavesTheStackAloneOnceItShowsAnotherModel)
{
    QStringListModel other({"x", "y", "z"});
    view.setModel(&other);
    choose(0);
    choose(2);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(stack.index(), 2);
    stack.undo();
    EXPECT_EQ(chosenRow(), 2) << "it no longer follows";
    EXPECT_EQ(view.stack(), &stack);
}

TEST_F(QtUndoView, ResetsItsWholeModelAtEachStep)
{
    int resets = 0;
    QObject::connect(view.model(), &QAbstractItemModel::modelReset, &view, [&resets] { ++resets; });
    stack.undo();
    EXPECT_EQ(resets, 1) << "if this is 0, the history window may show Qt's model again";
}

TEST(QtItemView, ShowsACurrentRowThatItIsToldOfLater)
{
    QStringList rows;
    for (int i = 0; i < 50; ++i)
        rows.push_back("row");
    QStringListModel model(rows);
    QListView view;
    view.setModel(&model);
    view.resize(100, 60);
    view.show();
    const QModelIndex last = model.index(49, 0);
    {
        const QSignalBlocker blocker(view.selectionModel());
        view.setCurrentIndex(last);
    }
    EXPECT_EQ(view.currentIndex(), last);
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{last});
    EXPECT_FALSE(view.viewport()->rect().intersects(view.visualRect(last)));
    Q_EMIT view.selectionModel()->currentChanged(last, QModelIndex());
    EXPECT_TRUE(view.viewport()->rect().intersects(view.visualRect(last)));
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
