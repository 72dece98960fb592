#include <light/LightTest.h>

#include <moUndoStack/light/moLightUndoCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <functional>

namespace {

using Switch = moLightsFunctionUndoCommand<bool>;

class FlaggedCommand : public moLightUndoCommand<float>
{
public:
    explicit FlaggedCommand(unsigned int flags)
        : moLightUndoCommand<float>(moUndoString("Flagged", QString()), osg::NullFC, flags, 1.f, nullptr)
    {
    }
    unsigned int flags() const { return m_lightFlags; }

protected:
    float get(osg::NodePtr) override { return 0.f; }
    void set(osg::NodePtr, float) override {}
};

class LightFunctions : public LightTest
{
protected:
    void SetUp() override
    {
        LightTest::SetUp();
        light = makeLight();
    }

    Switch* makeSwitch(const char* text, bool value)
    {
        return new Switch(
            moUndoString(text, QString()), light, value, [this](const osg::NodePtr&) { return state; },
            [this](const osg::NodePtr& node, bool on) {
                EXPECT_EQ(node, light);
                state = on;
            },
            nullptr);
    }

    osg::NodePtr light;
    bool state = false;
};

TEST_F(LightFunctions, FlagsAreKeptForDerivedClasses)
{
    EXPECT_EQ(FlaggedCommand(0).flags(), 0u);
    EXPECT_EQ(FlaggedCommand(0x80000001u).flags(), 0x80000001u);
}

TEST_F(LightFunctions, AClassWithoutAnIdOfItsOwnHasNone)
{
    EXPECT_EQ(FlaggedCommand(0).id(), -1);
}

TEST_F(LightFunctions, RedoWritesTheValueThroughTheSetterAndUndoWhatTheGetterSaid)
{
    stack.addOrExecute(makeSwitch("Switch", true));
    EXPECT_TRUE(state);
    stack.undo();
    EXPECT_FALSE(state);
    stack.redo();
    EXPECT_TRUE(state);
}

TEST_F(LightFunctions, CommandsOfOneTextMerge)
{
    stack.addOrExecute(makeSwitch("Switch", true));
    stack.addOrExecute(makeSwitch("Switch", false));
    EXPECT_EQ(describe(stack), "1 step, at \"Switch\", undo, no redo");
}

TEST_F(LightFunctions, CommandsOfDifferentTextsStayTwoSteps)
{
    stack.addOrExecute(makeSwitch("On", true));
    stack.addOrExecute(makeSwitch("Off", false));
    EXPECT_EQ(describe(stack), "2 steps, at \"Off\", undo, no redo");
}

TEST_F(LightFunctions, TextsAreComparedAsTheyAreAtTheMerge)
{
    Switch* first = makeSwitch("On", true);
    stack.addOrExecute(first);
    first->setText(QStringLiteral("Off"));
    stack.addOrExecute(makeSwitch("Off", false));
    EXPECT_EQ(describe(stack), "1 step, at \"Off\", undo, no redo");
}

TEST_F(LightFunctions, FunctionsAreCopied)
{
    Switch::Getter getter = [this](const osg::NodePtr&) { return state; };
    Switch::Setter setter = [this](const osg::NodePtr&, bool on) { state = on; };
    auto* command = new Switch(moUndoString("Switch", QString()), light, true, getter, setter, nullptr);
    getter = nullptr;
    setter = nullptr;
    stack.addOrExecute(command);
    EXPECT_TRUE(state);
}

TEST_F(LightFunctions, AnEmptyGetterOrSetterThrowsOutOfTheStepAndLeavesTheStackUsable)
{
    const Switch::Getter getter = [this](const osg::NodePtr&) { return state; };
    const Switch::Setter setter = [this](const osg::NodePtr&, bool on) { state = on; };
    EXPECT_THROW(stack.addOrExecute(new Switch(moUndoString("No getter", QString()), light, true, {}, setter, nullptr)),
                 std::bad_function_call);
    EXPECT_THROW(stack.addOrExecute(new Switch(moUndoString("No setter", QString()), light, true, getter, {}, nullptr)),
                 std::bad_function_call);
    EXPECT_FALSE(state);
    stack.addOrExecute(makeSwitch("Switch", true));
    EXPECT_EQ(describe(stack), "1 step, at \"Switch\", undo, no redo");
}

TEST_F(LightFunctions, FunctionsAreNotCalledForALightThatWasDestroyed)
{
    stack.addOrExecute(makeSwitch("Switch", true));
    destroy(light);
    state = false;
    stack.undo();
    stack.redo();
    EXPECT_FALSE(state);
}

} // namespace
