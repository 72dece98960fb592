#include "EditorTest.h"

#include <QtTest/QTest>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QTreeView>

namespace {

class HistoryTest : public EditorTest
{
protected:
    QTreeView& view(const char* dock = "historyDock")
    {
        return *window->findChild<QDockWidget*>(dock)->findChild<QTreeView*>();
    }
    QModelIndex row(int number) { return view().model()->index(number, 0); }
    QStringList rows(const char* dock = "historyDock")
    {
        QStringList texts;
        const QAbstractItemModel& model = *view(dock).model();
        for (int i = 1; i < model.rowCount(); ++i)
            texts.append(model.index(i, 0).data().toString());
        return texts;
    }
};

TEST_F(HistoryTest, EachStepIsARowWithTheChildrenOfCompositesBelow)
{
    script("select Table\ndrag x 60 10\nselect \"Leg 1\" Plate\nset tagName a\nclick addTag");
    EXPECT_EQ(rows(), (QStringList{"Translate 'Table'", "Add Tag 'a'"}));
    EXPECT_EQ(view().model()->rowCount(row(1)), 0);
    EXPECT_EQ(view().model()->rowCount(row(2)), 2);
    EXPECT_EQ(row(1).data(Qt::ToolTipRole).toString(), "Translate");
}

TEST_F(HistoryTest, AClickGoesToThatStep)
{
    script("select Table\ndrag x 60 10\ndrag y 0 -20\ndrag z 20 20");
    for (const int number : {1, 3, 0, 2}) {
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, view().visualRect(row(number)).center());
        EXPECT_EQ(stack.index(), number);
    }
}

TEST_F(HistoryTest, ThePresentStepIsTheCurrentRow)
{
    script("select Table\ndrag x 60 10\ndrag y 0 -20\ntrigger undo");
    EXPECT_EQ(view().currentIndex().row(), 1);
    script("trigger redo");
    EXPECT_EQ(view().currentIndex().row(), 2);
    script("trigger clear");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(HistoryTest, TheSavedStateIsMarkedAndUndoneStepsAreDimmed)
{
    script("select Table\ndrag x 60 10");
    window->target = folder.filePath("saved.gltf");
    script("trigger save\ndrag y 0 -20\ntrigger undo");
    const auto isBold = [this](int number) { return row(number).data(Qt::FontRole).value<QFont>().bold(); };
    EXPECT_FALSE(isBold(0));
    EXPECT_TRUE(isBold(1));
    EXPECT_FALSE(row(1).data(Qt::ForegroundRole).isValid());
    EXPECT_TRUE(row(2).data(Qt::ForegroundRole).isValid());
}

TEST_F(HistoryTest, TheCameraHasAHistoryOfItsOwn)
{
    script("orbit 20 20\npan 10 0");
    EXPECT_EQ(rows("viewHistoryDock"), (QStringList{"Orbit", "Pan"}));
    EXPECT_EQ(rows(), QStringList());
}

} // namespace
