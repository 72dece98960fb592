// The window of docs/howto/embed.md in use: menus, modified mark, field and history after everything that can happen to a stack.

#include <support/UndoTest.h>

#include <howto/EditorWindow.h>

#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <stdexcept>

namespace {

class EditorInUse : public UndoTest
{
protected:
    EditorInUse() { osg::setName(node.get(), "Box"); }

    void SetUp() override
    {
        UndoTest::SetUp();
        window = std::make_unique<EditorWindow>(stack, node.get());
        window->show();
    }

    void TearDown() override
    {
        window.reset();
        UndoTest::TearDown();
    }

    static std::string entry(const QAction& action)
    {
        return action.text().toStdString() + (action.isEnabled() ? "" : " (off)");
    }

    /// All that the window shows; `=` stands before the clean state, `>` before the present one.
    std::string look() const
    {
        QApplication::processEvents();
        std::string text = entry(*window->undo) + ", " + entry(*window->redo) + ", " +
                           (window->isWindowModified() ? "modified" : "saved") + ", at " +
                           std::to_string(static_cast<int>(window->height->value())) + ":";
        const QAbstractItemModel& model = *window->history->model();
        for (int i = 0; i < model.rowCount(); ++i) {
            const QModelIndex row = model.index(i, 0);
            text += row == window->history->currentIndex() ? " >" : " ";
            text += row.data(moUndoHistoryModel::CleanRole).toBool() ? "=" : "";
            text += row.data().toString().toStdString();
            if (model.rowCount(row) > 0) text += "/" + std::to_string(model.rowCount(row));
        }
        return text;
    }

    void setHeight(double value) const { window->height->setValue(value); }

    /// Apart from the step before, so that the two do not merge.
    void setHeightLater(double value)
    {
        clock.advance(60);
        setHeight(value);
    }

    void add(float height)
    {
        stack.addOrExecute(new moTranslationUndoCommand(node.get(), osg::Vec3f(0, height, 0), false, nullptr, {}, -1));
    }

    void click(int row) const
    {
        QTreeView& view = *window->history;
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
    }

    osg::NodeRefPtr node{osg::makeNodeFor(osg::Transform3D::create())};
    std::unique_ptr<EditorWindow> window;
};

const std::string T = "Translate 'Box'";

TEST_F(EditorInUse, ShowsPushMergeUndoAndRedo)
{
    EXPECT_EQ(look(), "Undo (off), Redo (off), saved, at 0: >=<empty>");
    setHeight(1);
    setHeight(2);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 2: =<empty> >" + T);
    window->undo->trigger();
    EXPECT_EQ(look(), "Undo (off), Redo " + T + ", saved, at 0: >=<empty> " + T);
    window->redo->trigger();
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 2: =<empty> >" + T);
}

TEST_F(EditorInUse, KeepsTheSavedStateWithinReach)
{
    setHeight(1);
    window->save->trigger();
    setHeight(2);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 2: <empty> =" + T + " >" + T);
    window->undo->trigger();
    EXPECT_EQ(look(), "Undo " + T + ", Redo " + T + ", saved, at 1: <empty> >=" + T + " " + T);
    window->undo->trigger();
    setHeight(3);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 3: <empty> >" + T) << "the saved state is lost";
}

TEST_F(EditorInUse, ShowsAMacroAtItsEnd)
{
    {
        const moMacroScope macro(stack, "Script");
        setHeight(1);
        EXPECT_EQ(look(), "Undo (off), Redo (off), modified, at 1: >=<empty>");
    }
    EXPECT_EQ(look(), "Undo Script, Redo (off), modified, at 1: =<empty> >Script/1");
}

TEST_F(EditorInUse, MakesOneStepOfACompositionThatIsLeftEarly)
{
    window->reset->trigger();
    EXPECT_EQ(look(), "Undo (off), Redo (off), saved, at 0: >=<empty>") << "nothing to reset";
    stack.addOrExecute(new moScaleUndoCommand(node.get(), osg::Vec3f(2, 2, 2), nullptr, {}, -1));
    window->reset->trigger(); // returns before the translation
    EXPECT_EQ(look(), "Undo Reset, Redo (off), modified, at 0: =<empty> Scale 'Box' >Reset/1");
    setHeight(5);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 5: =<empty> Scale 'Box' Reset/1 >" + T)
        << "a later edit is a step of its own";
}

TEST_F(EditorInUse, ShowsNothingOfACompositionThatAnExceptionLeaves)
{
    const auto fail = [this] {
        const moCompositionScope composition(stack, "Import");
        add(7);
        throw std::runtime_error("import");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_EQ(look(), "Undo (off), Redo (off), saved, at 0: >=<empty>");
    setHeight(1);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 1: =<empty> >" + T);
}

TEST_F(EditorInUse, JumpsToTheRowThatIsClicked)
{
    for (const int value : {1, 2, 3})
        setHeightLater(value);
    look();
    click(1);
    EXPECT_EQ(look(), "Undo " + T + ", Redo " + T + ", modified, at 1: =<empty> >" + T + " " + T + " " + T);
    click(0);
    EXPECT_EQ(look(), "Undo (off), Redo " + T + ", saved, at 0: >=<empty> " + T + " " + T + " " + T);
}

TEST_F(EditorInUse, ShowsAClearedStackAsSaved)
{
    setHeight(1);
    stack.clear();
    EXPECT_EQ(look(), "Undo (off), Redo (off), saved, at 1: >=<empty>");
}

TEST_F(EditorInUse, KeepsAtMostTheLimit)
{
    stack.setUndoLimit(2);
    for (const int value : {1, 2, 3})
        setHeightLater(value);
    EXPECT_EQ(look(), "Undo " + T + ", Redo (off), modified, at 3: <empty> " + T + " >" + T);
    window->undo->trigger();
    window->undo->trigger();
    EXPECT_EQ(look(), "Undo (off), Redo " + T + ", modified, at 1: ><empty> " + T + " " + T);
}

TEST_F(EditorInUse, ShowsButDoesNotRecordWhatIsDoneWhileRecordingIsBlocked)
{
    const moBlockedRecordingScope blocked;
    add(4);
    EXPECT_EQ(look(), "Undo (off), Redo (off), saved, at 4: >=<empty>");
}

} // namespace
