#include "EditorTest.h"

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtTest/QTest>

namespace {

using testing::ElementsAre;

class ViewportTest : public EditorTest
{
protected:
    Viewport& viewport() { return window->viewport(); }

    /// Moves the mouse with a button held down.
    void dragTo(const QPoint& to, Qt::MouseButton button)
    {
        QMouseEvent event(QEvent::MouseMove, to, viewport().mapToGlobal(to), Qt::NoButton, button, Qt::NoModifier);
        QApplication::sendEvent(&viewport(), &event);
    }

    QStringList selected()
    {
        QStringList names;
        for (const osg::NodePtr& each : session().selection())
            names.append(nameOf(each));
        return names;
    }
    osg::Vec3f translation(const char* name) { return moNodeUtils::getTransformNodeTranslation(node(name), false, -1); }
    /// Where a node's own mesh is seen; the studio is seen from one side.
    QPoint pointOn(const char* name)
    {
        session().select({});
        const QImage without = image();
        session().select({node(name)});
        const QImage with = image();
        session().select({});
        image();
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                if (with.pixel(x, y) != without.pixel(x, y)) return {x, y};
        return {};
    }
    QImage image()
    {
        viewport().repaint();
        return viewport().image();
    }
    void move(const QPoint& to) { QTest::mouseMove(&viewport(), to); }
};

TEST_F(ViewportTest, AClickSelectsTheNodeWhoseMeshIsThere)
{
    QTest::mouseClick(&viewport(), Qt::LeftButton, {}, pointOn("Table Top"));
    EXPECT_EQ(selected(), QStringList{"Table Top"});
    EXPECT_EQ(stack.size(), 0) << "to select is no step";
    QTest::mouseClick(&viewport(), Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(selected(), QStringList());
}

TEST_F(ViewportTest, CtrlAddsToTheSelectionAndTakesOut)
{
    const QPoint table = pointOn("Table Top"), floor = pointOn("Floor");
    QTest::mouseClick(&viewport(), Qt::LeftButton, {}, table);
    QTest::mouseClick(&viewport(), Qt::LeftButton, Qt::ControlModifier, floor);
    EXPECT_EQ(selected(), (QStringList{"Table Top", "Floor"}));
    QTest::mouseClick(&viewport(), Qt::LeftButton, Qt::ControlModifier, table);
    EXPECT_EQ(selected(), QStringList{"Floor"});
}

TEST_F(ViewportTest, ADragIsOneStepThatUndoTakesBackToTheBit)
{
    const QByteArray before = digest();
    script("select Table\ndrag x 60 10");
    const QByteArray after = digest();
    EXPECT_NE(after, before);
    EXPECT_EQ(describe(stack), R"(1 step, at "Translate 'Table'", undo, no redo)");
    stack.undo();
    EXPECT_EQ(digest(), before);
    stack.redo();
    EXPECT_EQ(digest(), after);
}

TEST_F(ViewportTest, TwoDragsOfOneNodeAreTwoSteps)
{
    script("select Table\ndrag x 60 10\ndrag x -30 0");
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(ViewportTest, ADragOfSeveralNodesIsOneCompositeOfOneCommandForEach)
{
    const QByteArray before = digest();
    script("select \"Leg 1\" \"Leg 2\" Plate\ndrag y 0 -50\ndrag y 0 -20");
    ASSERT_EQ(stack.size(), 2);
    EXPECT_EQ(stack.command(0)->childCount(), 3);
    EXPECT_EQ(stack.undoText(), "Move 3 Nodes");
    undoAll();
    EXPECT_EQ(digest(), before);
}

TEST_F(ViewportTest, ANodeBelowAnotherSelectedOneFollowsIt)
{
    const osg::Vec3f leg = translation("Leg 1");
    script("select Table \"Leg 1\"\ndrag x 50 0");
    EXPECT_EQ(stack.undoText(), "Translate 'Table'");
    EXPECT_TRUE(translation("Leg 1") == leg);
}

TEST_F(ViewportTest, EscapeDuringADragTakesItBackAsIfItHadNeverBeen)
{
    script("select Table\ndrag x 60 10\ndrag y 0 -30\ntrigger undo");
    const QByteArray before = digest();
    const std::string history = describe(stack);
    ASSERT_TRUE(stack.canRedo());
    for (const char* tool : {"trigger toolMove", "trigger toolRotate", "trigger toolScale"}) {
        script(tool);
        script("select Table\ndrag z 40 20 cancel\nselect Table \"Desk Lamp\"\ndrag z 40 20 cancel");
        EXPECT_EQ(digest(), before) << tool;
        EXPECT_EQ(describe(stack), history) << tool;
    }
}

TEST_F(ViewportTest, ADragThatWasCancelledDoesNotGoOn)
{
    script("select Table");
    const QByteArray before = digest();
    const QPoint from = viewport().graspOf(Handles::X);
    QTest::mousePress(&viewport(), Qt::LeftButton, {}, from);
    dragTo(from + QPoint(20, 0), Qt::LeftButton);
    EXPECT_NE(digest(), before);
    QTest::keyClick(&viewport(), Qt::Key_Escape);
    dragTo(from + QPoint(20, 0), Qt::LeftButton);
    QTest::mouseRelease(&viewport(), Qt::LeftButton, {}, from);
    EXPECT_EQ(digest(), before);
    EXPECT_EQ(stack.size(), 0);
}

TEST_F(ViewportTest, KeysAndButtonsElsewhereDoNothingDuringADrag)
{
    script("select Table\ndrag x 60 10");
    const QPoint from = viewport().graspOf(Handles::X);
    QTest::mousePress(&viewport(), Qt::LeftButton, {}, from);
    dragTo(from + QPoint(20, 0), Qt::LeftButton);
    QTest::keyClick(&viewport(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    QTest::mouseClick(window->findChild<QWidget*>("addTag"), Qt::LeftButton);
    EXPECT_EQ(stack.index(), 1);
    QTest::mouseRelease(&viewport(), Qt::LeftButton, {}, from + QPoint(20, 0));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(ViewportTest, ADragIsNotRecordedWhileRecordingIsOffOrBlocked)
{
    for (const char* item : {"trigger record", "trigger record\ntrigger block"}) {
        script(item);
        const QByteArray before = digest();
        script("select Table\ndrag x 60 10");
        EXPECT_NE(digest(), before);
        EXPECT_EQ(stack.size(), 0);
    }
}

TEST_F(ViewportTest, EachToolEditsWhatItIsNamedAfter)
{
    script("select Table\ntrigger toolRotate\ndrag y 30 30\ntrigger toolScale\ndrag centre 30 -30\ndrag x 10 5");
    ASSERT_EQ(stack.size(), 3);
    EXPECT_EQ(stack.command(0)->text(), "Rotate 'Table'");
    EXPECT_EQ(stack.command(1)->text(), "Scale 'Table'");
    const osg::Vec3f scale = moNodeUtils::getTransformNodeScale(node("Table"), -1);
    EXPECT_NEAR(scale[1], 1.6f, 1e-4f);
    EXPECT_NE(scale[0], scale[1]);
}

TEST_F(ViewportTest, TheCameraHasItsOwnUndo)
{
    const View first = session().camera().view();
    script("orbit 40 10\npan 20 20\nzoom 2");
    EXPECT_EQ(stack.size(), 0);
    EXPECT_EQ(describe(second), R"(3 steps, at "Zoom", undo, no redo)");
    script("trigger undoView\ntrigger undoView\ntrigger undoView");
    EXPECT_TRUE(session().camera().view() == first);
    script("trigger redoView\nselect Plate\ntrigger fit");
    EXPECT_EQ(second.size(), 2) << "a new view cuts off what could be redone";
    EXPECT_LT(session().camera().view().distance, first.distance);
}

TEST_F(ViewportTest, AnOrbitIsTakenBackByEscape)
{
    const View first = session().camera().view();
    QTest::mousePress(&viewport(), Qt::MiddleButton, {}, {100, 100});
    dragTo(QPoint(150, 120), Qt::MiddleButton);
    EXPECT_TRUE(session().camera().view() != first);
    QTest::keyClick(&viewport(), Qt::Key_Escape);
    EXPECT_TRUE(session().camera().view() == first);
    EXPECT_EQ(second.size(), 0);
}

TEST_F(ViewportTest, TheImageFollowsUndo)
{
    const QImage before = image();
    script("select Table\ndrag x 60 10\nselect");
    const QImage after = image();
    EXPECT_NE(after, before);
    stack.undo();
    EXPECT_EQ(image(), before);
}

} // namespace
