#include "DockTest.h"

#include <moOpenSGUtils/moNodeUtils.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

namespace {

class TransformDockTest : public DockTest
{
protected:
    osg::Vec3f translation(int variant = -1)
    {
        return moNodeUtils::getTransformNodeTranslation(node("Plate"), false, variant);
    }
};

TEST_F(TransformDockTest, EachComponentIsOneStepThatTheDockFollows)
{
    script("select Plate");
    expectOneStepEach({
        {"set translation-x 1.5", "translation-x", "moTranslationUndoCommand"},
        {"set rotation-y 30", "rotation-y", "moRotationUndoCommand"},
        {"set scale-z 2", "scale-z", "moScaleUndoCommand"},
        {"set shear-x 0.5", "shear-x", "moShearUndoCommand"},
        {"set rotation-order ZYX", "rotation-order", "moEulerRotationOrderUndoCommand"},
        {"set quaternion-x 0.5", "quaternion-x",
         "moMultiCommand(moRotationUndoCommand, moRotationAsQuaternionUndoCommand)"},
        {"set rotation-pivot-x 1", "rotation-pivot-x", "moRotationPivotUndoCommand"},
        {"set rotation-pivot-translation-y 2", "rotation-pivot-translation-y", "moRotationPivotTranslationUndoCommand"},
        {"set scale-pivot-z 3", "scale-pivot-z", "moScalePivotUndoCommand"},
        {"set scale-pivot-translation-x 4", "scale-pivot-translation-x", "moScalePivotTranslationUndoCommand"},
        {"set orientation-x 45", "orientation-x", "moRotationPivotOrientationUndoCommand"},
        {"set direction-y 1", "direction-y", "moRotationPivotDirectionUndoCommand"},
    });
}

TEST_F(TransformDockTest, ANewAxisOfADirectionIsTakenBackToo)
{
    script("select Plate\nset direction-axis Z\nset direction-normalised off");
    EXPECT_EQ(stack.size(), 0) << "there is no direction to change yet";
    const char* both = "moMultiCommand(moRotationPivotDirectionUndoCommand, moRotationPivotDirectionUndoCommand)";
    expectOneStepEach({
        {"set direction-y 3", "direction-y", "moRotationPivotDirectionUndoCommand"},
        {"set direction-axis X", "direction-axis", both},
        {"set direction-normalised on\nset direction-x 4", "direction-x", both},
        {"set direction-x 0.1", "direction-x", "moRotationPivotDirectionUndoCommand"},
    });
}

TEST_F(TransformDockTest, UndoOfAQuaternionBringsTheAnglesBackThatWereThere)
{
    script("select Plate\nset rotation-y 400");
    clock.advance(10.);
    expectOneStep({"set quaternion-x 0.5", "rotation-y",
                   "moMultiCommand(moRotationUndoCommand, moRotationAsQuaternionUndoCommand)"});
    stack.undo();
    EXPECT_EQ(seen("rotation-y"), "400.00");
}

TEST_F(TransformDockTest, APlaceInTheWorldIsNotThatBelowTheParent)
{
    script("select Table\nset translation-x 5\nselect Plate");
    const std::string below = seen("translation-x");
    script("click world-space");
    EXPECT_EQ(stack.size(), 1) << "to look is no step";
    EXPECT_NE(seen("translation-x"), below);
    clock.advance(10.);
    expectOneStep({"set translation-x 7", "translation-x", "moTranslationUndoCommand"});
    expectOneStep({"set rotation-pivot-x 1", "rotation-pivot-x", "moRotationPivotUndoCommand"});
    expectOneStep({"set scale-pivot-x 1", "scale-pivot-x", "moScalePivotUndoCommand"});
    EXPECT_NEAR(moNodeUtils::getTransformNodeTranslation(node("Plate"), true, -1)[0], 7.f, 1e-4f);
}

TEST_F(TransformDockTest, QuickChangesOfABoxAreOneStep)
{
    script("select Plate");
    auto& box = widget<QDoubleSpinBox>("translation-x");
    const QByteArray before = digest();
    for (int i = 0; i < 5; ++i)
        box.stepUp();
    EXPECT_EQ(stack.size(), 1);
    clock.advance(10.);
    box.stepUp();
    EXPECT_EQ(stack.size(), 2);
    undoAll();
    EXPECT_EQ(digest(), before);
}

TEST_F(TransformDockTest, TheWheelTurnsABoxOnlyOnceItHasTheFocus)
{
    script("raise transform-dock\nselect Plate");
    auto& box = widget<QDoubleSpinBox>("translation-x");
    const auto turn = [&box] {
        QWheelEvent event(QPointF(5, 5), box.mapToGlobal(QPoint(5, 5)), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box, &event);
    };
    turn();
    EXPECT_EQ(stack.size(), 0);
    box.setFocus();
    turn();
    EXPECT_EQ(stack.size(), 1);
}

TEST_F(TransformDockTest, NumbersThatTheUserLeavesAloneAreNotRounded)
{
    const float fine = 0.123456789f;
    session().apply(new moTranslationUndoCommand(node("Plate"), osg::Vec3f(0.f, fine, 0.f), false, nullptr, {}, -1));
    script("select Plate\nset translation-z 2");
    EXPECT_TRUE(translation() == osg::Vec3f(0.f, fine, 2.f));
}

TEST_F(TransformDockTest, AVariantIsEditedWithoutTheNode)
{
    script("select Plate\nclick variant-record\nset transform-of \"Pose 1\"");
    const osg::Vec3f before = translation();
    EXPECT_FALSE(widget("shear-x").isEnabled());
    EXPECT_FALSE(widget("quaternion-x").isEnabled());
    expectOneStepEach({
        {"set translation-x 9", "translation-x", "moTranslationUndoCommand"},
        {"set rotation-order YXZ", "rotation-order", "moEulerRotationOrderUndoCommand"},
        {"set direction-y 1", "direction-y", "moRotationPivotDirectionUndoCommand"},
    });
    EXPECT_EQ(translation(), before);
    EXPECT_EQ(translation(0)[0], 9.f);
    undoAll();
    EXPECT_EQ(seen("transform-of"), "the node") << "the variant is not there any more";
    EXPECT_TRUE(widget("shear-x").isEnabled());
}

TEST_F(TransformDockTest, WithoutATransformAllIsDisabled)
{
    const char* boxes[] = {"translation-x", "rotation-order", "quaternion-x", "direction-axis", "orientation-x"};
    for (const char* name : boxes)
        EXPECT_FALSE(widget(name).isEnabled()) << name << ", nothing is selected";
    session().select({anyNode("Light Links")});
    for (const char* name : boxes)
        EXPECT_FALSE(widget(name).isEnabled()) << name << ", the core is another";
    script("select Plate");
    for (const char* name : boxes)
        EXPECT_TRUE(widget(name).isEnabled()) << name;
}

} // namespace
