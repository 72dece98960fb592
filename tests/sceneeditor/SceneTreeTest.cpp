#include "EditorTest.h"

#include <sceneeditor/SceneTreeModel.h>
#include <sceneeditor/TagDelegate.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QTreeView>

namespace {

class SceneTreeTest : public EditorTest
{
protected:
    QTreeView& view() { return *window->findChild<QTreeView*>("sceneTree"); }
    SceneTreeModel& model() { return *static_cast<SceneTreeModel*>(view().model()); }
    QModelIndex index(const char* name, int column = SceneTreeModel::NameColumn)
    {
        const QModelIndex found = model().indexOf(node(name));
        return found.sibling(found.row(), column);
    }
};

TEST_F(SceneTreeTest, TheModelKeepsTheRulesOfModels)
{
    const QAbstractItemModelTester tester(&model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    view().expandAll();
    script("select Table\nset tagName a\nclick addTag\ntrigger undo");
    session().load(STUDIO_MODEL);
    EXPECT_EQ(model().index(0, 0).data().toString(), "Studio");
}

TEST_F(SceneTreeTest, ANodeIsRenamedInPlace)
{
    view().edit(index("Table"));
    auto* const editor = view().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("Desk");
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_NE(node("Desk"), osg::NodePtr(osg::NullFC));
    EXPECT_EQ(stack.undoText(), "Rename");
    stack.undo();
    EXPECT_EQ(index("Table").data().toString(), "Table");
}

TEST_F(SceneTreeTest, RenamingToTheSameNameIsNoStep)
{
    model().setData(index("Table"), "Table");
    EXPECT_EQ(stack.size(), 0);
}

TEST_F(SceneTreeTest, TwoRenamingsAreTwoSteps)
{
    model().setData(index("Table"), "a");
    model().setData(index("a"), "b");
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(SceneTreeTest, ATagOfSeveralNodesIsOneComposite)
{
    const QByteArray before = digest();
    script("select Table Plate\nset tagName approved\nclick addTag");
    EXPECT_EQ(index("Plate", SceneTreeModel::TagsColumn).data(SceneTreeModel::UserTagsRole).toStringList(),
              QStringList{"approved"});
    ASSERT_EQ(stack.size(), 1);
    EXPECT_EQ(stack.command(0)->childCount(), 2);
    script("select Table Plate \"Leg 1\"\nclick addTag");
    ASSERT_EQ(stack.size(), 2) << "one more node has the tag";
    EXPECT_EQ(stack.command(1)->id(), moAddTagUndoCommand::commandId()) << "of one node it is the command itself";
    script("click addTag");
    EXPECT_EQ(stack.size(), 2) << "all have the tag";
    script("click removeTag");
    EXPECT_EQ(stack.command(2)->childCount(), 3);
    undoAll();
    EXPECT_EQ(digest(), before);
}

TEST_F(SceneTreeTest, TheCrossOfAChipRemovesTheTag)
{
    script("select Table Plate\nset tagName approved\nclick addTag\nselect Table");
    auto* const chips = static_cast<TagDelegate*>(view().itemDelegateForColumn(SceneTreeModel::TagsColumn));
    const QModelIndex tags = index("Plate", SceneTreeModel::TagsColumn);
    view().scrollTo(tags);
    QStyleOptionViewItem option;
    option.initFrom(&view());
    option.rect = view().visualRect(tags);
    option.fontMetrics = view().fontMetrics();
    const QRect cross = chips->crossOf(option, tags, "approved");
    ASSERT_FALSE(cross.isEmpty());
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, cross.center());
    EXPECT_TRUE(userTagsOf(node("Plate")).isEmpty());
    EXPECT_EQ(userTagsOf(node("Table")), QStringList{"approved"}) << "it is not the one that was clicked";
    EXPECT_TRUE(chips->crossOf(option, tags, "imported").isEmpty()) << "tags of the application stay";
}

TEST_F(SceneTreeTest, ATagOfTheServerIsInTheHistoryAlone)
{
    const QByteArray before = digest();
    script("set tagName published\nclick addServerTag\nclick removeServerTag");
    ASSERT_EQ(stack.size(), 2);
    EXPECT_EQ(stack.command(0)->id(), moAddEmptyTagUndoCommand::commandId());
    EXPECT_EQ(stack.command(1)->id(), moSubEmptyTagUndoCommand::commandId());
    EXPECT_EQ(digest(), before);
}

TEST_F(SceneTreeTest, TheCheckMarkShowsAndHidesANode)
{
    window->viewport().repaint();
    const QImage shown = window->viewport().image();
    model().setData(index("Table"), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_FALSE(node("Table")->getActive());
    window->viewport().repaint();
    EXPECT_NE(window->viewport().image(), shown);
    EXPECT_EQ(stack.undoText(), "Hide 'Table'");
    stack.undo();
    EXPECT_TRUE(node("Table")->getActive());
}

TEST_F(SceneTreeTest, TheOneThatWasSelectedLastIsTheCurrentOne)
{
    session().select({node("Plate"), node("Floor")});
    view().selectionModel()->select(index("Table"), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    EXPECT_EQ(session().selection(), (std::vector<osg::NodePtr>{node("Plate"), node("Floor"), node("Table")}));
    view().selectionModel()->select(index("Floor"), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    EXPECT_EQ(session().selection(), (std::vector<osg::NodePtr>{node("Plate"), node("Table")}));
}

TEST_F(SceneTreeTest, TreeAndViewportShareTheSelection)
{
    view().selectionModel()->setCurrentIndex(index("Plate"),
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_TRUE(session().current() == node("Plate"));
    EXPECT_TRUE(window->viewport().hasHandles());
    session().select({node("Floor")});
    EXPECT_EQ(view().selectionModel()->selectedRows(), QModelIndexList{index("Floor")});
}

} // namespace
