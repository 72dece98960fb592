#include "EditorTest.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <QtCore/QFile>

namespace {

class EditorWindowTest : public EditorTest
{
protected:
    QString write(const char* name, const QByteArray& contents) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly)) return {};
        file.write(contents);
        return file.fileName();
    }
    const char* edit = "select Table\ndrag x 60 10";
};

TEST_F(EditorWindowTest, TheEditMenuShowsWhatCanBeUndoneAndRedone)
{
    const auto states = [this] {
        return std::vector<std::string>{action("undo").text().toStdString(), action("redo").text().toStdString()};
    };
    EXPECT_FALSE(action("undo").isEnabled());
    EXPECT_FALSE(action("redo").isEnabled());
    script(edit);
    EXPECT_EQ(states(), (std::vector<std::string>{"Undo Translate 'Table'", "Redo"}));
    EXPECT_TRUE(action("undo").isEnabled());
    action("undo").trigger();
    EXPECT_EQ(states(), (std::vector<std::string>{"Undo", "Redo Translate 'Table'"}));
    EXPECT_FALSE(action("undo").isEnabled());
    EXPECT_TRUE(action("redo").isEnabled());
    EXPECT_EQ(action("undo").shortcuts(), QKeySequence::keyBindings(QKeySequence::Undo));
    action("clear").trigger();
    EXPECT_FALSE(action("redo").isEnabled());
}

TEST_F(EditorWindowTest, NoTwoActionsHaveTheSameShortcut)
{
    QList<QKeySequence> known;
    for (const QAction* const each : window->findChildren<QAction*>()) {
        for (const QKeySequence& keys : each->shortcuts()) {
            EXPECT_FALSE(known.contains(keys)) << keys.toString().toStdString();
            known.append(keys);
        }
    }
    EXPECT_GT(known.size(), 10);
}

TEST_F(EditorWindowTest, TheTitleMarksASceneThatWasModified)
{
    EXPECT_EQ(window->windowTitle(), "scene.gltf[*] – Scene Editor");
    EXPECT_FALSE(window->isWindowModified());
    script(edit);
    EXPECT_TRUE(window->isWindowModified());
    action("undo").trigger();
    EXPECT_FALSE(window->isWindowModified());
    action("redo").trigger();
    window->target = folder.filePath("saved.gltf");
    action("save").trigger();
    EXPECT_EQ(window->windowTitle(), "saved.gltf[*] – Scene Editor");
    EXPECT_FALSE(window->isWindowModified());
    action("undo").trigger();
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(EditorWindowTest, ClosingASceneThatWasModifiedAsks)
{
    EXPECT_TRUE(window->close());
    EXPECT_EQ(window->questions, 0);
    window->show();
    script(edit);

    window->answer = EditorWindow::Answer::Cancel;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());

    window->answer = EditorWindow::Answer::Save;
    EXPECT_FALSE(window->close()) << "the user names no file";
    window->target = folder.filePath("saved.gltf");
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(QFile::exists(window->target));
    EXPECT_EQ(window->questions, 3);

    window->show();
    script(edit);
    window->answer = EditorWindow::Answer::Discard;
    EXPECT_TRUE(window->close());
}

TEST_F(EditorWindowTest, OpeningAsksToSaveAndStartsANewHistory)
{
    script(edit);
    window->model = write("other.gltf",
                          R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
                              "nodes": [{"name": "a", "children": [1]}, {"name": "b"}]})");
    action("open").trigger();
    EXPECT_EQ(window->questions, 1);
    EXPECT_EQ(stack.size(), 1) << "the question was answered by Cancel";
    window->answer = EditorWindow::Answer::Discard;
    action("open").trigger();
    EXPECT_EQ(window->windowTitle(), "other.gltf[*] – Scene Editor");
    EXPECT_EQ(stack.size(), 0);
    EXPECT_NE(node("b"), osg::NodePtr(osg::NullFC));
    EXPECT_TRUE(session().selection().empty());
}

TEST_F(EditorWindowTest, ABadFileIsSaidInOneSentenceAndTheOldSceneStays)
{
    script(edit);
    window->answer = EditorWindow::Answer::Discard;
    window->model = write("bad.gltf", "this is no model");
    const QByteArray before = digest();
    action("open").trigger();
    ASSERT_EQ(window->complaints.size(), 1);
    EXPECT_TRUE(window->complaints[0].startsWith("cannot load '" + window->model))
        << window->complaints[0].toStdString();
    EXPECT_EQ(digest(), before);
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(window->windowTitle(), "scene.gltf[*] – Scene Editor");
}

TEST_F(EditorWindowTest, ASceneThatCannotBeSavedStaysModified)
{
    script(edit);
    window->target = folder.filePath("no/such/folder/saved.gltf");
    action("save").trigger();
    EXPECT_EQ(window->complaints.size(), 1);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(window->windowTitle(), "scene.gltf[*] – Scene Editor");
}

TEST_F(EditorWindowTest, RecordingIsSwitchedOffAndBlocked)
{
    EXPECT_TRUE(action("record").isChecked());
    EXPECT_TRUE(moUndoStack::undoEnabled());
    action("block").trigger();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_TRUE(moUndoStack::undoBlocked());
    action("block").trigger();
    action("record").trigger();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    EXPECT_FALSE(moUndoStack::undoBlocked());
    script(edit);
    EXPECT_EQ(stack.size(), 0);
    action("record").trigger();
    script(edit);
    EXPECT_EQ(stack.size(), 1);
}

TEST_F(EditorWindowTest, TheMarkIsGoneBackTo)
{
    script(edit);
    action("mark").trigger();
    script("drag y 0 -20\ndrag y 0 -30");
    action("reset").trigger();
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(EditorWindowTest, TheStatusBarReportsTheTimeOfAFrame)
{
    window->viewport().repaint();
    EXPECT_TRUE(window->findChild<QLabel*>("frameTime")->text().contains("triangles in"));
}

} // namespace
