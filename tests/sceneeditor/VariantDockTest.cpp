#include "DockTest.h"

#include <moOpenSGUtils/moNodeUtils.h>

namespace {

class VariantDockTest : public DockTest
{
protected:
    void choose(std::initializer_list<int> rows)
    {
        auto& list = widget<QListWidget>("variant-list");
        list.clearSelection();
        for (const int row : rows)
            list.item(row)->setSelected(true);
    }
    void recordThree()
    {
        script("select Plate\nclick variant-record\nclick variant-record\nclick variant-record");
        clock.advance(10.);
    }
};

TEST_F(VariantDockTest, EachEditOfTheListIsOneStepThatTheDockFollows)
{
    const SceneState before = now();
    script("select Plate");
    const char* list = "variant-list";
    expectOneStep({"click variant-record", list, "moAddTransformVariantUndoCommand"});
    script("set translation-x 3");
    expectOneStep({"click variant-record", list, "moAddTransformVariantUndoCommand"});
    choose({0});
    expectOneStep({"set variant-name Home", list, "moTransformVariantNameUndoCommand"});
    expectOneStep({"click variant-insert", list, "moAddTransformVariantUndoCommand"});
    EXPECT_EQ(seen(list), "Pose 3\nHome\nPose 2\n");
    EXPECT_EQ(seen("variant-name"), "Home") << "the selection follows the variant";
    expectOneStep({"click variant-down", list, "moTransformVariantMoveCommand"});
    expectOneStep({"click variant-up", list, "moTransformVariantMoveCommand"});
    expectOneStep({"click variant-apply", list, "moApplyTransformationVariantUndoCommand"});
    EXPECT_EQ(seen(list), "Pose 3\nHome*\nPose 2\n");
    EXPECT_NE(seen("translation-x"), "3.000") << "the pose was recorded before the node was moved";
    expectOneStep({"click variant-remove", list, "moRemoveTransformSwitchVariantUndoCommand"});
    expectUndoTo(0, before);
}

TEST_F(VariantDockTest, EachOptionIsAFlagOfItsOwn)
{
    recordThree();
    choose({1});
    const char* names[] = {"apply-translation",
                           "apply-rotation",
                           "apply-order",
                           "apply-mode",
                           "apply-rotation-pivot",
                           "apply-rotation-pivot-translation",
                           "apply-orientation",
                           "apply-direction",
                           "apply-scale",
                           "apply-scale-pivot",
                           "apply-scale-pivot-translation"};
    for (const char* name : names) {
        EXPECT_EQ(seen(name), "on") << name;
        expectOneStep({qPrintable(QStringLiteral("click ") + name), name, "moTransformVariantOptionsUndoCommand"});
    }
    EXPECT_EQ(moNodeUtils::getTransformVariant(node("Plate"), 1)->getApplyFlags(), 0U);
}

TEST_F(VariantDockTest, SeveralVariantsAreMovedOrRemovedInOneStep)
{
    recordThree();
    const char* list = "variant-list";
    choose({1, 2});
    expectOneStep({"click variant-up", list, "moTransformVariantMoveCommand"});
    EXPECT_EQ(seen(list), "Pose 2\nPose 3\nPose 1\n");
    expectOneStep({"click variant-remove", list,
                   "moMultiCommand(moRemoveTransformSwitchVariantUndoCommand, "
                   "moRemoveTransformSwitchVariantUndoCommand)"});
    EXPECT_EQ(seen(list), "Pose 1\n");
}

TEST_F(VariantDockTest, ButtonsThatWouldDoNothingAreDisabled)
{
    const auto enabled = [this] {
        std::string names;
        for (const char* name : {"record", "insert", "remove", "up", "down", "apply", "name"})
            if (widget(("variant-" + std::string(name)).c_str()).isEnabled()) names += name + std::string(" ");
        return names;
    };
    EXPECT_EQ(enabled(), "");
    session().select({anyNode("Light Links")});
    EXPECT_EQ(enabled(), "");
    recordThree();
    EXPECT_EQ(enabled(), "record ");
    choose({0});
    EXPECT_EQ(enabled(), "record insert remove down apply name ");
    choose({2});
    EXPECT_EQ(enabled(), "record insert remove up apply name ");
    undoAll();
    EXPECT_EQ(enabled(), "record ");
}

TEST_F(VariantDockTest, VariantsAreEditedWhileNothingIsRecorded)
{
    script("trigger record");
    recordThree();
    choose({0, 1});
    script("click variant-remove");
    EXPECT_EQ(seen("variant-list"), "Pose 3\n");
    EXPECT_EQ(stack.size(), 0);
}

} // namespace
