#include <transform/TransformTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/transform/moApplyTransformationVariantUndoCommand.h>
#include <moUndoStack/transform/moTransformValueUndoCommands.h>

#include <moOpenSGUberLight/OSGUberLight.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGGroup.h>

#include <limits>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Variant = osg::TransformVariant;

class ApplyVariant : public TransformTest
{
protected:
    void SetUp() override
    {
        TransformTest::SetUp();
        addVariant(node, "A");
        addVariant(node, "B");
        fill(-1, 1, 3, "XYZ", true, 0);
        fill(0, 100, 1, "ZYX", true, 2);
        fill(1, 200, 0, "YXZ", false, 0);
        moApplyTransformationVariantUndoCommand::setSyncFunction(
            [this](const osg::NodePtr& applied) { told.push_back("sync " + std::to_string(idOf(applied))); });
    }
    void TearDown() override
    {
        moApplyTransformationVariantUndoCommand::setSyncFunction({});
        TransformTest::TearDown();
    }

    void fill(int variantIndex, float value, int mode, const char* order, bool directed, int axis)
    {
        const auto v = [value](float i) { return osg::Vec3f(value + i, value / 2, i); };
        moNodeUtils::setTransformNodeValues(node, v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), mode, order, directed,
                                            v(8), axis, variantIndex);
    }

    void apply(int variantIndex, bool sync = true) { apply(node, variantIndex, sync); }
    void apply(const osg::NodePtr& to, int variantIndex, bool sync = true)
    {
        stack.add(new moApplyTransformationVariantUndoCommand(to, variantIndex, sync, nullptr,
                                                              [this] { told.push_back("callback"); }));
    }
    std::vector<std::string> take() { return std::exchange(told, {}); }
    std::string synced() const { return "sync " + std::to_string(idOf(node)); }

    /// The fields of one transform that a variant has, as text; the rotation quaternion and the matrix follow from
    /// them.
    static std::vector<std::string> values(const osg::Transform3DPtr& core)
    {
        std::vector<std::string> result;
        for (const char* field : {"translation", "eulerRotation", "eulerRotationOrder", "eulerRotationOrientation",
                                  "rotationDirection", "rotationDirectionMode", "rotatePivot", "rotatePivotTranslation",
                                  "scale", "scalePivot", "scalePivotTranslation", "rotationMode"}) {
            std::string value;
            core->getField(field)->getValueByStr(value);
            result.push_back(std::string(field) + ' ' + value);
        }
        return result;
    }
    osg::Transform3DPtr core(int variantIndex = -1) const { return moNodeUtils::getTransform3D(node, variantIndex); }
    osg::TransformVariantPtr variant(osg::UInt64 index) const { return moNodeUtils::getTransformVariant(node, index); }
};

} // namespace

TEST_F(ApplyVariant, IsNamedAfterTheNodeWithoutQuotes)
{
    apply(0);
    const auto& command = *static_cast<const moUndoCommandBase*>(stack.currentCommand());
    EXPECT_EQ(command.text(), "Apply variant to Box");
    EXPECT_EQ(command.getDescription(), "Apply variant");
}

TEST_F(ApplyVariant, OverwritesWhatEarlierChildrenOfItsCompositeHaveEdited)
{
    moTransformVariantUtils::setApplyFlags(variant(0), 0);
    const osg::Vec3f before = core()->getTranslation();
    auto* const composite = new moMultiCommand(moUndoString("composite", QString()));
    new moTranslationUndoCommand(node, osg::Vec3f(9, 9, 9), false, composite, {}, -1);
    new moApplyTransformationVariantUndoCommand(node, 0, false, composite, {});
    stack.add(composite);
    EXPECT_EQ(core()->getTranslation(), before) << "as it was when the command was made";
}

TEST_F(ApplyVariant, GivesTheNodeAllValuesOfTheVariantAndTakesThemBack)
{
    const std::string before = state(node);
    for (const int index : {0, 1}) {
        apply(index);
        EXPECT_EQ(values(core()), values(core(index)));
        EXPECT_EQ(core()->getMatrix(), core(index)->getMatrix());
        EXPECT_EQ(core()->getSupposedState(), index);
        const std::string after = state(node);
        for (int cycle = 0; cycle < 2; ++cycle) {
            stack.undo();
            EXPECT_EQ(state(node), before);
            stack.redo();
            EXPECT_EQ(state(node), after);
        }
        stack.undo();
    }
}

TEST_F(ApplyVariant, GoesBackToTheSupposedStateThatWasThere)
{
    moTransformVariantUtils::setSupposedState(core(), 17);
    apply(0);
    apply(1);
    EXPECT_EQ(core()->getSupposedState(), 1);
    stack.undo();
    EXPECT_EQ(core()->getSupposedState(), 0);
    stack.undo();
    EXPECT_EQ(core()->getSupposedState(), 17);
}

TEST_F(ApplyVariant, ThatIsAppliedAlreadyIsWrittenAndToldOfAllTheSame)
{
    apply(0);
    const std::vector<std::string> applied = values(core());
    apply(0);
    EXPECT_EQ(take().size(), 4U);
    stack.undo();
    EXPECT_EQ(values(core()), applied);
    EXPECT_EQ(core()->getSupposedState(), 0);
    EXPECT_THAT(take(), ElementsAre("callback", synced()));
    moNodeUtils::setTransformNodeTranslation(node, 7, 7, 7, false, -1);
    stack.redo();
    EXPECT_EQ(values(core()), applied) << "the supposed state does not say what the transform is";
}

TEST_F(ApplyVariant, WritesBothStatesAsTheyWereWhenItWasMade)
{
    const std::vector<std::string> before = values(core());
    apply(0);
    const std::vector<std::string> applied = values(core());
    moNodeUtils::setTransformNodeTranslation(node, 7, 7, 7, false, -1);
    stack.undo();
    EXPECT_EQ(values(core()), before);
    moNodeUtils::setTransformNodeScale(node, 9, 9, 9, 0);
    stack.redo();
    EXPECT_EQ(values(core()), applied);
}

TEST_F(ApplyVariant, TakesOnlyWhatTheApplyFlagsName)
{
    const struct
    {
        osg::UInt64 flag;
        std::vector<std::size_t> values; // of values()
    } flags[] = {{Variant::ApplyTranslation, {0}},
                 {Variant::ApplyRotation, {1}},
                 {Variant::ApplyEulerRotationOrder, {2}},
                 {Variant::ApplyRotationPivotOrientation, {3}},
                 {Variant::ApplyRotationDirection, {4, 5}},
                 {Variant::ApplyRotationPivot, {6}},
                 {Variant::ApplyRotationPivotTranslation, {7}},
                 {Variant::ApplyScale, {8}},
                 {Variant::ApplyScalePivot, {9}},
                 {Variant::ApplyScalePivotTranslation, {10}},
                 {Variant::ApplyRotationMode, {11}},
                 {0x400, {}},
                 {~osg::UInt64(Variant::ApplyAll), {}}};
    const std::vector<std::string> live = values(core());
    for (const auto& [flag, taken] : flags) {
        SCOPED_TRACE(flag);
        moTransformVariantUtils::setApplyFlags(variant(0), flag);
        std::vector<std::string> expected = live;
        for (const std::size_t i : taken)
            expected[i] = values(core(0))[i];
        apply(0);
        EXPECT_EQ(values(core()), expected);
        stack.undo();
        EXPECT_EQ(values(core()), live);
    }
}

TEST_F(ApplyVariant, WithoutTheFlagOfTheDirectionLeavesItOnRedoAndOnUndo)
{
    moTransformVariantUtils::setApplyFlags(variant(1), Variant::ApplyAll & ~osg::UInt64(0x800));
    const std::string direction = print(core()->getRotationDirection());
    apply(1);
    EXPECT_EQ(print(core()->getRotationDirection()), direction);
    stack.undo();
    EXPECT_EQ(print(core()->getRotationDirection()), direction);
    moTransformVariantUtils::setApplyFlags(variant(1), 0x800);
    apply(1);
    EXPECT_EQ(print(core()->getRotationDirection()), "0 0 0");
}

TEST_F(ApplyVariant, WithoutTheFlagOfTheDirectionLeavesAlsoOneThatIsNotInForce)
{
    moTransformVariantUtils::setApplyFlags(variant(0), Variant::ApplyAll & ~osg::UInt64(0x800));
    for (const float x : {0.f, std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity()}) {
        core()->setRotationDirection(osg::Vec3f(x, 0, 0));
        const std::string direction = print(core()->getRotationDirection());
        apply(0);
        EXPECT_EQ(print(core()->getRotationDirection()), direction);
        stack.undo();
        EXPECT_EQ(print(core()->getRotationDirection()), direction);
    }
}

TEST_F(ApplyVariant, LeavesShearAlone)
{
    moNodeUtils::setTransformNodeShear(node, 1, 2, 3);
    apply(0);
    EXPECT_EQ(print(core()->getShear()), "1 2 3");
}

TEST_F(ApplyVariant, WritesTheTransformInOneEdit)
{
    osg::ChangeList& list = *osg::Thread::getCurrentChangeList();
    list.setReadOnly(false);
    apply(0);
    list.setReadOnly(true);
    const unsigned int id = idOf(core());
    EXPECT_EQ(
        std::count_if(list.beginChanged(), list.endChanged(), [id](const auto& edit) { return edit.first == id; }), 2)
        << "one of the supposed state and one of the values";
    list.clearAll();
}

TEST_F(ApplyVariant, CallsBackAndThenTheMirrorAtEveryStep)
{
    apply(0);
    EXPECT_THAT(take(), ElementsAre("callback", synced()));
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("callback", synced()));
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("callback", synced()));
}

TEST_F(ApplyVariant, WithoutSyncIsNotMirroredButCallsBack)
{
    apply(0, false);
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("callback", "callback"));
}

TEST_F(ApplyVariant, ItsMirrorMayReplaceItself)
{
    moApplyTransformationVariantUndoCommand::setSyncFunction(
        [this, kept = std::string(1000, 'x')](const osg::NodePtr&) {
            moApplyTransformationVariantUndoCommand::setSyncFunction({});
            told.push_back(kept);
        });
    apply(0);
    stack.undo();
    EXPECT_THAT(told, ElementsAre("callback", std::string(1000, 'x'), "callback"));
}

TEST_F(ApplyVariant, ItsMirrorKeepsItsStateFromOneCallToTheNext)
{
    moApplyTransformationVariantUndoCommand::setSyncFunction(
        [this, count = 0](const osg::NodePtr&) mutable { told.push_back(std::to_string(++count)); });
    apply(0);
    stack.undo();
    EXPECT_THAT(told, ElementsAre("callback", "1", "callback", "2"));
}

TEST_F(ApplyVariant, WhoseCallbackLetsTheNodeGoIsNotMirrored)
{
    stack.add(new moApplyTransformationVariantUndoCommand(node, 0, true, nullptr, [this] { destroy(node); }));
    stack.undo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ApplyVariant, NeedsNeitherCallbackNorMirror)
{
    moApplyTransformationVariantUndoCommand::setSyncFunction({});
    const std::string before = state(node);
    stack.add(new moApplyTransformationVariantUndoCommand(node, 0, true, nullptr, nullptr));
    stack.undo();
    EXPECT_EQ(state(node), before);
}

TEST_F(ApplyVariant, WithNothingToApplyDoesAndTellsNothing)
{
    moNodeUtils::insertTransformVariant(node, 2, Variant::create()); // no core of its own
    const std::string before = state(node);
    for (const int index : {-2, -1, 2, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(index);
        apply(index);
        EXPECT_EQ(state(node), before);
        stack.undo();
        EXPECT_EQ(state(node), before);
    }
    for (const osg::NodePtr& other : {osg::NodePtr(), make(osg::NullFC, "Bare"), make(osg::Group::create(), "Group"),
                                      make(osg::Transform3D::create(), "No list")}) {
        apply(other, 0);
        stack.undo();
    }
    const osg::NodePtr group = make(osg::Group::create(), "Listed group");
    moNodeUtils::createTransformVariantsAttachment(group);
    moNodeUtils::insertTransformVariant(group, 0, moTransformVariantUtils::recordTransformVariant(core(), "C"));
    apply(group, 0);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ApplyVariant, DoesAndTellsNothingOnceTheNodeWasDestroyed)
{
    apply(0);
    take();
    destroy(node);
    stack.undo();
    stack.redo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ApplyVariant, SurvivesTheVariantThatItApplied)
{
    const std::vector<std::string> before = values(core());
    apply(0);
    const std::vector<std::string> applied = values(core());
    moNodeUtils::removeTransformVariantsAttachment(node);
    stack.undo();
    EXPECT_EQ(values(core()), before);
    stack.redo();
    EXPECT_EQ(values(core()), applied);
}

TEST_F(ApplyVariant, AppliesToALight)
{
    const osg::NodePtr lamp = make(osg::UberLight::create(), "Lamp");
    addVariant(lamp, "A");
    moNodeUtils::setTransformNodeTranslation(lamp, 4, 5, 6, false, 0);
    const std::string before = state(lamp);
    apply(lamp, 0);
    EXPECT_EQ(print(moNodeUtils::getTransformNodeTranslation(lamp, false, -1)), "4 5 6");
    stack.undo();
    EXPECT_EQ(state(lamp), before);
}

TEST_F(ApplyVariant, NeverMergesAndHasABareMessage)
{
    Trace trace(stack);
    apply(0);
    apply(0);
    EXPECT_EQ(stack.size(), 2);
    EXPECT_EQ(trace.takeMessages().front(),
              "moURManager::redo index=int:0 added=bool:true text=string:\"Apply variant to Box\" "
              "description=string:\"Apply variant\" id=int:" +
                  std::to_string(moApplyTransformationVariantUndoCommand::commandId()));
}

TEST_F(ApplyVariant, StandsAndIsMirroredWhenItsCallbackThrows)
{
    EXPECT_THROW(stack.add(new moApplyTransformationVariantUndoCommand(
                     node, 0, true, nullptr, [] { throw std::runtime_error("from the callback"); })),
                 std::runtime_error);
    EXPECT_EQ(told.size(), 1U) << "mirrored";
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(core()->getSupposedState(), 0);
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(core()->getSupposedState(), -1);
    EXPECT_EQ(stack.size(), 1);
}
