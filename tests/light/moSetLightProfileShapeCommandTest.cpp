#include <light/LightTest.h>
#include <support/WholeSteps.h>

#include <moUndoStack/light/moSetLightProfileShapeCommand.h>

#include <moOpenSGUtils/moLights.h>

#include <OpenSG/OSGGroup.h>

namespace {

using Light = osg::UberLight;

class SetLightProfileShape : public LightTest
{
protected:
    /// An area light of lumen, 2 by 3, with a light value of 40.
    void SetUp() override
    {
        LightTest::SetUp();
        light = makeLight();
        moLights::changeLightType(light, "Area");
        coreOf(light)->setScale(osg::Vec3f(2.f, 3.f, 1.f));
        moLights::setLightValue(light, 40.f);
    }

    osg::NodePtr light;
};

TEST_F(SetLightProfileShape, RedoMakesAProfileLightWithTheValueThatTheProfileStatesAndUndoTheOldLight)
{
    moLights::setLightProfile(light, "lamp.ies", 0.25f);
    const std::string before = describeLight(light);
    EXPECT_THAT(before, testing::HasSubstr("on Area scale 2 3 1"));
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    const std::string after = describeLight(light);
    EXPECT_THAT(after, testing::HasSubstr("on Profile scale 1 1 1"));
    EXPECT_THAT(after, testing::HasSubstr("value 0.25 unit 0"));
    for (int round = 0; round < 3; ++round) {
        stack.undo();
        EXPECT_EQ(describeLight(light), before);
        stack.redo();
        EXPECT_EQ(describeLight(light), after);
    }
}

TEST_F(SetLightProfileShape, AProfileThatStatesNothingOrNegativeKeepsTheValueSavedAtConstruction)
{
    for (const float stated : {0.f, -5.f}) {
        moLights::setLightProfile(light, "lamp.ies", stated);
        stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
        EXPECT_EQ(moLights::getLightValue(light), 40.f);
        stack.undo();
        EXPECT_EQ(moLights::getLightValue(light), 40.f);
    }
}

TEST_F(SetLightProfileShape, TypeScaleAndValueAreThoseOfConstruction)
{
    const std::string before = describeLight(light);
    auto* command = new moSetLightProfileShapeCommand(light, nullptr);
    moLights::changeLightType(light, "Sphere");
    coreOf(light)->setScale(osg::Vec3f(9.f, 9.f, 9.f));
    moLights::setLightValue(light, 1.f);
    stack.addOrExecute(command);
    EXPECT_EQ(moLights::getLightValue(light), 40.f);
    stack.undo();
    EXPECT_EQ(describeLight(light), before);
}

TEST_F(SetLightProfileShape, TheStatedValueIsReadAtEachRedo)
{
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    stack.undo();
    moLights::setLightProfile(light, "lamp.ies", 250.f);
    stack.redo();
    EXPECT_EQ(moLights::getLightValue(light), 250.f);
}

TEST_F(SetLightProfileShape, TheUnitIsNotRememberedUndoLeavesTheDefaultOfTheOldType)
{
    moLights::setLightUnit(light, Light::Watt);
    moLights::setLightValue(light, 40.f);
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    stack.undo();
    EXPECT_EQ(moLights::getLightUnit(light), Light::Lumen);
    EXPECT_EQ(moLights::getLightValue(light), 40.f);
}

TEST_F(SetLightProfileShape, AProfileLightInAnotherUnitGetsTheDefaultOne)
{
    moLights::setLightProfileShape(light);
    moLights::setLightUnit(light, Light::Watt);
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    EXPECT_EQ(moLights::getLightUnit(light), Light::Candela);
}

TEST_F(SetLightProfileShape, RedoEditsTheShapeThenTheUnitThenTheValue)
{
    auto* command = new moSetLightProfileShapeCommand(light, nullptr);
    EditLog edits;
    stack.addOrExecute(command);
    const osg::UInt32 core = idOf(coreOf(light));
    EXPECT_THAT(edits.take(),
                testing::ElementsAre(EditLog::Edit(core, Light::LightTypeFieldMask | Light::LightUnitFieldMask |
                                                             Light::IntensityFieldMask | Light::ScaleFieldMask),
                                     EditLog::Edit(core, Light::LightUnitFieldMask | Light::IntensityFieldMask),
                                     EditLog::Edit(core, Light::IntensityFieldMask)));
}

TEST_F(SetLightProfileShape, ALightDestroyedByAListenerIsNotEditedAnyMore)
{
    using Command = moSetLightProfileShapeCommand;
    for (const bool undo : {false, true}) {
        light = makeTracedLight();
        Command command(light, nullptr);
        if (undo) command.redo();
        EditTrace edits;
        edits.onChange([this] { destroy(light); });
        undo ? command.undo() : command.redo();
        EXPECT_THAT(edits.take(),
                    testing::ElementsAre("TracedUberLight scale|lightType|intensity|lightUnit 1", goodbye));
    }
}

TEST_F(SetLightProfileShape, UndoEditsTheScaleAloneForTheScale)
{
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    EditLog edits;
    stack.undo();
    const osg::UInt32 core = idOf(coreOf(light));
    EXPECT_THAT(edits.take(),
                testing::ElementsAre(EditLog::Edit(core, Light::LightTypeFieldMask | Light::LightUnitFieldMask |
                                                             Light::IntensityFieldMask | Light::ScaleFieldMask),
                                     EditLog::Edit(core, Light::ScaleFieldMask),
                                     EditLog::Edit(core, Light::IntensityFieldMask)));
}

TEST_F(SetLightProfileShape, TextIsUntranslatedAndTheMessageHasNothingButTheCommonKeys)
{
    Trace trace(stack);
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    EXPECT_THAT(
        trace.takeMessages(),
        testing::ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Set Light Profile Shape\" "
                             "description=string:\"Set Light Profile Shape\" id=int:" +
                             std::to_string(moSetLightProfileShapeCommand::commandId())));
}

TEST_F(SetLightProfileShape, NothingMergesHoweverFast)
{
    auto* first = new moSetLightProfileShapeCommand(light, nullptr);
    auto* again = new moSetLightProfileShapeCommand(light, nullptr);
    again->setMergeResponseDelta(-1.);
    EXPECT_FALSE(first->canMergeWith(again));
    EXPECT_FALSE(first->mergeWith(again));
    stack.addOrExecute(first);
    stack.addOrExecute(again);
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(SetLightProfileShape, NullAndDestroyedLightsMakeEveryStepHarmless)
{
    stack.addOrExecute(new moSetLightProfileShapeCommand(osg::NullFC, nullptr));
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    destroy(light);
    EditLog edits;
    while (stack.canUndo())
        stack.undo();
    while (stack.canRedo())
        stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(SetLightProfileShape, ANodeThatIsNoLightKeepsItsOwnTransform)
{
    const osg::NodePtr group = makeNode<osg::Group>("group");
    const osg::NodePtr transform = makeNode<osg::Transform3D>("transform");
    const osg::NodePtr empty = place(sceneNode, "empty", osg::NullFC);
    const auto core = osg::Transform3DPtr::dcast(transform->getCore());
    core->setScale(osg::Vec3f(4.f, 5.f, 6.f));
    EditLog edits;
    for (const osg::NodePtr& node : {group, transform, empty}) {
        stack.addOrExecute(new moSetLightProfileShapeCommand(node, nullptr));
        stack.undo();
        stack.redo();
    }
    EXPECT_THAT(edits.take(), testing::IsEmpty());
    EXPECT_EQ(core->getScale(), osg::Vec3f(4.f, 5.f, 6.f));
}

TEST_F(SetLightProfileShape, ANodeThatIsNoLongerALightIsLeftAlone)
{
    stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    light->setCore(osg::Group::create());
    EditLog edits;
    stack.undo();
    stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(SetLightProfileShape, TheCommandHoldsNoReference)
{
    auto* command = new moSetLightProfileShapeCommand(light, nullptr);
    EXPECT_EQ(light.getRefCount(), 1);
    stack.addOrExecute(command);
    EXPECT_EQ(light.getRefCount(), 1);
    EXPECT_EQ(coreOf(light).getRefCount(), 1);
}

TEST_F(SetLightProfileShape, StandsThoughAListenerThrows)
{
    light = makeTracedLight();
    moLights::changeLightType(light, "Area");
    EditTrace edits;
    expectStepsStandThoughAListenerThrows(stack, edits, new moSetLightProfileShapeCommand(light, nullptr),
                                          [this] { return describeLight(light); });
}

} // namespace
