#include <light/LightTest.h>
#include <support/WholeSteps.h>

#include <moUndoStack/light/moLightPropertyUndoCommands.h>

#include <moOpenSGUtils/moLights.h>

#include <OpenSG/OSGGroup.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

#include <limits>
#include <set>

namespace {

using Light = osg::UberLight;

/// One property command: how two of them are made, and what to expect of it.
struct Row
{
    std::string command;
    int id;
    std::function<moUndoCommand*(const osg::NodePtr&)> first;
    std::function<moUndoCommand*(const osg::NodePtr&)> second; // same text as the first
    std::string text;
    std::string afterFirst, afterSecond; // part of the description of the light that was made by start()
    std::vector<osg::BitVector> masks;   // of the edits of one step
};

template<class Command, class T>
Row row(const char* name, T first, T second, const char* text, const char* afterFirst, const char* afterSecond,
        std::vector<osg::BitVector> masks)
{
    const auto maker = [](T value) {
        return [value](const osg::NodePtr& light) { return new Command(light, value, nullptr); };
    };
    return {name, Command::commandId(), maker(first), maker(second), text, afterFirst, afterSecond, std::move(masks)};
}

std::vector<Row> allRows()
{
    using osg::Vec3f;
    // clang-format off
    return {
        row<moLightDiffuseUndoCommand>      ("Diffuse",     Vec3f(1, 0, 0), Vec3f(0, 1, 0), "Diffuse Light Color",   "diffuse 1 0 0", "diffuse 0 1 0", {Light::DiffuseFieldMask}),
        row<moLightGlossyUndoCommand>       ("Glossy",      Vec3f(1, 0, 0), Vec3f(0, 1, 0), "Specular Light Color",  "glossy 1 0 0",  "glossy 0 1 0",  {Light::GlossyFieldMask}),
        row<moLightIntensityUndoCommand>    ("Intensity",   12.5f,          99.f,           "Light Intensity",       "value 12.5",    "value 99",      {Light::IntensityFieldMask}),
        row<moLightPenumbraAngleUndoCommand>("Penumbra",    7.f,            8.f,            "Light Penumbra Angle",  "penumbra 7",    "penumbra 8",    {Light::PenumbraAngleFieldMask}),
        row<moLightConeAngleUndoCommand>    ("Cone",        60.f,           61.f,           "Light Cone Angle",      "cone 60",       "cone 61",       {Light::ConeAngleFieldMask}),
        row<moLightAttenuationUndoCommand>  ("Attenuation", Light::LinearAttenuation, Light::NoAttenuation, "Set Light Attenuation", "attenuation 1", "attenuation 0",
                                             {Light::AttenuationFieldMask | Light::IntensityFieldMask, Light::IntensityFieldMask}),
        row<moLightEnableUndoCommand>       ("Enable",      false,          true,           "Set Light on/off",      "off Point",     "on Point",      {Light::OnFieldMask}),
        row<moLightVisibleUndoCommand>      ("Visible",     false,          false,          "Hide Light",            "hidden",        "hidden",        {Light::LightVisualizationVisibleFieldMask}),
    };
    // clang-format on
}

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.command;
}

class LightProperty : public LightTest, public testing::WithParamInterface<Row>
{
protected:
    void SetUp() override
    {
        LightTest::SetUp();
        light = start("light");
    }

    /// A light whose every property differs from what the rows set.
    osg::NodePtr start(const std::string& name) { return start(makeLight(name)); }
    static osg::NodePtr start(const osg::NodePtr& node)
    {
        const osg::UberLightPtr core = coreOf(node);
        core->setDiffuse(osg::Color3f(.5f, .5f, .5f));
        core->setGlossy(osg::Color3f(.25f, .25f, .25f));
        core->setIntensity(3.3f);
        core->UberLightBase::setAttenuation(Light::QuadraticAttenuation);
        return node;
    }

    const Row& the = GetParam();
    osg::NodePtr light;
};

TEST_P(LightProperty, RedoSetsTheValueAndUndoGivesTheWholeLightBack)
{
    const std::string before = describeLight(light);
    stack.addOrExecute(the.first(light));
    const std::string after = describeLight(light);
    EXPECT_THAT(after, testing::HasSubstr(the.afterFirst));
    EXPECT_NE(after, before);
    for (int round = 0; round < 3; ++round) {
        stack.undo();
        EXPECT_EQ(describeLight(light), before);
        stack.redo();
        EXPECT_EQ(describeLight(light), after);
    }
}

TEST_P(LightProperty, TheOldValueIsReadAtTheFirstRedoNotAtConstruction)
{
    moUndoCommand* late = the.first(light);
    std::unique_ptr<moUndoCommand> between(the.second(light));
    between->redo();
    const std::string before = describeLight(light);
    stack.addOrExecute(late);
    stack.undo();
    EXPECT_EQ(describeLight(light), before);
}

TEST_P(LightProperty, OnlyTheNamedFieldsAreEditedAtEachStep)
{
    const auto expected = [this] {
        std::vector<EditLog::Edit> edits;
        for (const osg::BitVector mask : the.masks)
            edits.emplace_back(idOf(coreOf(light)), mask);
        return edits;
    }();
    EditLog edits;
    stack.addOrExecute(the.first(light));
    EXPECT_EQ(edits.take(), expected);
    stack.undo();
    EXPECT_EQ(edits.take(), expected);
    stack.redo();
    EXPECT_EQ(edits.take(), expected);
}

TEST_P(LightProperty, AValueThatIsThereAlreadyIsSetAndToldOfAllTheSame)
{
    std::unique_ptr<moUndoCommand> before(the.first(light));
    before->redo();
    const std::string held = describeLight(light);
    std::vector<EditLog::Edit> expected;
    for (const osg::BitVector mask : the.masks)
        expected.emplace_back(idOf(coreOf(light)), mask);
    EditLog edits;
    stack.addOrExecute(the.first(light));
    EXPECT_EQ(edits.take(), expected);
    stack.undo();
    EXPECT_EQ(edits.take(), expected);
    EXPECT_EQ(describeLight(light), held);
}

TEST_P(LightProperty, StandsThoughAListenerThrows)
{
    light = start(makeTracedLight());
    EditTrace edits;
    expectStepsStandThoughAListenerThrows(stack, edits, the.first(light), [this] { return describeLight(light); });
}

TEST_P(LightProperty, TextAndDescriptionAreTheSameWords)
{
    std::unique_ptr<moUndoCommand> command(the.first(light));
    EXPECT_EQ(command->text().toStdString(), the.text);
    EXPECT_EQ(command->getDescription().toStdString(), the.text);
    EXPECT_EQ(command->id(), the.id);
}

TEST_P(LightProperty, OnlyTheTextIsTranslated)
{
    class Shouting : public QTranslator
    {
    public:
        QString translate(const char* context, const char* text, const char*, int) const override
        {
            return qstrcmp(context, "LightUndoCommand") == 0 ? QString::fromUtf8(text).toUpper() : QString();
        }
        bool isEmpty() const override { return false; }
    };
    Shouting translator;
    QCoreApplication::installTranslator(&translator);
    std::unique_ptr<moUndoCommand> command(the.first(light));
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(command->text(), QString::fromStdString(the.text).toUpper());
    EXPECT_EQ(command->getDescription().toStdString(), the.text);
}

TEST_P(LightProperty, TheMessageSaysLightCommandTrueAndNamesNoNode)
{
    Trace trace(stack);
    stack.addOrExecute(the.first(light));
    stack.undo();
    const std::string tail = " text=string:\"" + the.text + "\" description=string:\"" + the.text +
                             "\" id=int:" + std::to_string(the.id) + " lightCommand=bool:true";
    EXPECT_THAT(trace.takeMessages(), testing::ElementsAre("moURManager::redo index=int:0 added=bool:true" + tail,
                                                           "moURManager::undo index=int:0 added=bool:false" + tail));
}

TEST_P(LightProperty, ARunOfEditsMergesAndUndoesToBeforeTheFirst)
{
    const std::string before = describeLight(light);
    stack.addOrExecute(the.first(light));
    clock.advance(.25);
    stack.addOrExecute(the.second(light));
    const std::string after = describeLight(light);
    EXPECT_THAT(after, testing::HasSubstr(the.afterSecond));
    EXPECT_EQ(describe(stack), "1 step, at \"" + the.text + "\", undo, no redo");
    stack.undo();
    EXPECT_EQ(describeLight(light), before);
    stack.redo();
    EXPECT_EQ(describeLight(light), after);
}

TEST_P(LightProperty, TheMergeIntervalSlidesWithEachMergedEdit)
{
    stack.addOrExecute(the.first(light));
    for (int edit = 0; edit < 4; ++edit) {
        clock.advance(.25);
        stack.addOrExecute(the.second(light));
    }
    EXPECT_EQ(stack.size(), 1);
    clock.advance(.5);
    stack.addOrExecute(the.second(light));
    EXPECT_EQ(stack.size(), 2);
}

TEST_P(LightProperty, EditsOfTwoLightsNeverMerge)
{
    stack.addOrExecute(the.first(light));
    stack.addOrExecute(the.first(start("other")));
    EXPECT_EQ(stack.size(), 2);
}

TEST_P(LightProperty, EditsOfTwoPropertiesNeverMerge)
{
    const auto all = allRows();
    for (const Row& other : all) {
        stack.addOrExecute(the.first(light));
        stack.addOrExecute(other.first(light));
        EXPECT_EQ(stack.size(), other.command == the.command ? 1 : 2) << other.command;
        stack.clear();
    }
}

TEST_P(LightProperty, ANullLightMakesTheCommandInert)
{
    const std::string before = describeLight(light);
    EditLog edits;
    stack.addOrExecute(the.first(osg::NullFC));
    stack.undo();
    stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
    EXPECT_EQ(describeLight(light), before);
}

TEST_P(LightProperty, ALightThatWasDestroyedMakesEveryStepANoOp)
{
    const unsigned int id = idOf(light);
    stack.addOrExecute(the.first(light));
    destroy(light);
    ASSERT_FALSE(isAlive(id));
    EditLog edits;
    stack.undo();
    stack.redo();
    stack.undo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_P(LightProperty, ACommandHoldsNoReferenceOnItsLight)
{
    const osg::Int32 count = light.getRefCount();
    stack.addOrExecute(the.first(light));
    EXPECT_EQ(light.getRefCount(), count);
    EXPECT_EQ(coreOf(light).getRefCount(), 1);
}

TEST_P(LightProperty, ANodeThatIsNoLightIsLeftAlone)
{
    const osg::NodePtr group = makeNode<osg::Group>("group");
    const osg::NodePtr transform = makeNode<osg::Transform3D>("transform");
    const osg::NodePtr empty = place(sceneNode, "empty", osg::NullFC);
    EditLog edits;
    for (const osg::NodePtr& node : {group, transform, empty}) {
        stack.addOrExecute(the.first(node));
        stack.undo();
        stack.redo();
    }
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, LightProperty, testing::ValuesIn(allRows()),
                         [](const auto& instance) { return instance.param.command; });

class LightPropertyDetails : public LightTest
{
protected:
    void SetUp() override
    {
        LightTest::SetUp();
        light = makeLight();
    }
    osg::NodePtr light;
};

TEST_F(LightPropertyDetails, EveryCommandHasAnIdOfItsOwn)
{
    std::set<int> ids{moLightsFunctionUndoCommand<bool>::commandId()};
    for (const Row& each : allRows())
        ids.insert(each.id);
    EXPECT_EQ(ids.size(), 9u);
    EXPECT_GT(*ids.begin(), 0);
}

TEST_F(LightPropertyDetails, TheTextOfVisibleFollowsTheValueGivenAndStaysAtUndo)
{
    stack.addOrExecute(new moLightVisibleUndoCommand(light, true, nullptr));
    EXPECT_EQ(describe(stack), "1 step, at \"Show Light\", undo, no redo");
    stack.addOrExecute(new moLightVisibleUndoCommand(light, false, nullptr));
    EXPECT_EQ(describe(stack), "2 steps, at \"Hide Light\", undo, no redo");
    stack.undo();
    stack.redo();
    EXPECT_EQ(describe(stack), "2 steps, at \"Hide Light\", undo, no redo");
}

TEST_F(LightPropertyDetails, ShowAndHideInQuickSuccessionStayTwoSteps)
{
    stack.addOrExecute(new moLightVisibleUndoCommand(light, true, nullptr));
    stack.addOrExecute(new moLightVisibleUndoCommand(light, false, nullptr));
    EXPECT_EQ(describe(stack), "2 steps, at \"Hide Light\", undo, no redo");
    stack.addOrExecute(new moLightVisibleUndoCommand(light, false, nullptr));
    EXPECT_EQ(describe(stack), "2 steps, at \"Hide Light\", undo, no redo");
}

TEST_F(LightPropertyDetails, OnAndOffInQuickSuccessionBecomeOneStep)
{
    stack.addOrExecute(new moLightEnableUndoCommand(light, false, nullptr));
    stack.addOrExecute(new moLightEnableUndoCommand(light, true, nullptr));
    EXPECT_EQ(describe(stack), "1 step, at \"Set Light on/off\", undo, no redo");
}

TEST_F(LightPropertyDetails, ChangingTheAttenuationKeepsTheLightValueExactly)
{
    // A number that a multiplication and a division do not restore exactly.
    const float value = 0.1f;
    coreOf(light)->setAttenuationDistance(3.f);
    moLights::setLightValue(light, value);
    stack.addOrExecute(new moLightAttenuationUndoCommand(light, Light::QuadraticAttenuation, nullptr));
    EXPECT_EQ(moLights::getAttenuation(light), Light::QuadraticAttenuation);
    EXPECT_EQ(moLights::getLightValue(light), value);
    stack.undo();
    EXPECT_EQ(moLights::getAttenuation(light), Light::NoAttenuation);
    EXPECT_EQ(moLights::getLightValue(light), value);
    stack.redo();
    EXPECT_EQ(moLights::getLightValue(light), value);
}

TEST_F(LightPropertyDetails, UndoOfAnAttenuationKeepsALightValueThatWasSetAfterIt)
{
    stack.addOrExecute(new moLightAttenuationUndoCommand(light, Light::LinearAttenuation, nullptr));
    moLights::setLightValue(light, 77.f);
    stack.undo();
    EXPECT_EQ(moLights::getLightValue(light), 77.f);
}

TEST_F(LightPropertyDetails, ALightDestroyedByAListenerOfTheModeIsNotWrittenAnyMore)
{
    light = makeTracedLight();
    EditTrace edits;
    edits.onChange([this] { destroy(light); });
    stack.addOrExecute(new moLightAttenuationUndoCommand(light, Light::LinearAttenuation, nullptr));
    EXPECT_THAT(edits.take(), testing::ElementsAre("TracedUberLight intensity|attenuation 1", goodbye));
}

TEST_F(LightPropertyDetails, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new moLightDiffuseUndoCommand(light, {}, &parent);
    new moLightGlossyUndoCommand(light, {}, &parent);
    new moLightIntensityUndoCommand(light, 1.f, &parent);
    new moLightPenumbraAngleUndoCommand(light, 1.f, &parent);
    new moLightConeAngleUndoCommand(light, 1.f, &parent);
    new moLightAttenuationUndoCommand(light, Light::NoAttenuation, &parent);
    new moLightEnableUndoCommand(light, true, &parent);
    new moLightVisibleUndoCommand(light, true, &parent);
    EXPECT_EQ(parent.childCount(), 8);
}

TEST_F(LightPropertyDetails, NoCommandSetsAFlag)
{
    struct Diffuse : moLightDiffuseUndoCommand
    {
        using moLightDiffuseUndoCommand::m_lightFlags;
        using moLightDiffuseUndoCommand::moLightDiffuseUndoCommand;
    };
    struct Enable : moLightEnableUndoCommand
    {
        using moLightEnableUndoCommand::m_lightFlags;
        using moLightEnableUndoCommand::moLightEnableUndoCommand;
    };
    EXPECT_EQ(Diffuse(light, {}, nullptr).m_lightFlags, 0u);
    EXPECT_EQ(Enable(light, true, nullptr).m_lightFlags, 0u);
}

TEST_F(LightPropertyDetails, AnAngleOutOfRangeIsSetAsTheLimitAndUndoGivesTheOldOne)
{
    const std::string before = describeLight(light);
    stack.addOrExecute(new moLightConeAngleUndoCommand(light, 400.f, nullptr));
    EXPECT_EQ(moLights::getConeAngle(light), 180.f);
    stack.addOrExecute(new moLightPenumbraAngleUndoCommand(light, -1.f, nullptr));
    EXPECT_EQ(moLights::getPenumbraAngle(light), 0.f);
    stack.addOrExecute(new moLightIntensityUndoCommand(light, std::numeric_limits<float>::quiet_NaN(), nullptr));
    EXPECT_EQ(moLights::getLightValue(light), 1.f);
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(describeLight(light), before);
}

TEST_F(LightPropertyDetails, WhatAFieldHoldsBeyondTheLimitsIsReadWithinThemAndUndoGivesThatBack)
{
    const auto values = [this] {
        return std::vector<float>{moLights::getLightValue(light), moLights::getConeAngle(light),
                                  moLights::getPenumbraAngle(light)};
    };
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const std::pair<float, std::vector<float>> stored[] = {
        {-1.f, {0, 0, 0}}, {nan, {0, 0, 0}}, {200.f, {200, 180, 180}}};
    for (const auto& [raw, read] : stored) {
        coreOf(light)->setIntensity(raw);
        coreOf(light)->setConeAngle(raw);
        coreOf(light)->setPenumbraAngle(raw);
        EXPECT_EQ(values(), read);
        stack.addOrExecute(new moLightAttenuationUndoCommand(light, Light::QuadraticAttenuation, nullptr));
        EXPECT_EQ(values(), read);
        stack.addOrExecute(new moLightIntensityUndoCommand(light, 5.f, nullptr));
        stack.addOrExecute(new moLightConeAngleUndoCommand(light, 5.f, nullptr));
        stack.addOrExecute(new moLightPenumbraAngleUndoCommand(light, 5.f, nullptr));
        while (stack.canUndo())
            stack.undo();
        EXPECT_EQ(values(), read);
    }
}

TEST_F(LightPropertyDetails, ACommandForANodeDestroyedBeforeItsFirstRedoDoesNothing)
{
    auto* command = new moLightIntensityUndoCommand(light, 5.f, nullptr);
    destroy(light);
    stack.addOrExecute(command);
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_FALSE(stack.canUndo());
}

} // namespace
