#include <transform/TransformTest.h>

#include <moUndoStack/transform/moEulerRotationOrderUndoCommand.h>
#include <moUndoStack/transform/moRotationAsQuaternionUndoCommand.h>
#include <moUndoStack/transform/moTransformValueUndoCommands.h>

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUberLight/OSGUberLight.h>

#include <OpenSG/OSGGroup.h>

#include <limits>
#include <sstream>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EulerRotationOrder : public TransformTest
{
protected:
    void TearDown() override
    {
        moEulerRotationOrderUndoCommand::setSyncFunction({});
        TransformTest::TearDown();
    }

    auto tell()
    {
        return [this](unsigned int id, const std::string& order, int variantIndex) {
            told.push_back("callback " + std::to_string(id) + ", " + order + ", " + std::to_string(variantIndex));
        };
    }
    void synchronise()
    {
        moEulerRotationOrderUndoCommand::setSyncFunction([this](const osg::NodePtr& edited, const std::string& order) {
            told.push_back("sync " + std::to_string(idOf(edited)) + ", " + order);
        });
    }
    std::string order(int variantIndex = -1) const
    {
        return moNodeUtils::getTransformNodeEulerRotationOrder(node, variantIndex);
    }
};

class RotationAsQuaternion : public TransformTest
{
protected:
    static osg::Quaternion quaternion(float x, float y, float z, float w)
    {
        osg::Quaternion q;
        q.setValueAsQuat(x, y, z, w);
        return q;
    }
    /// By default half a turn about z.
    moUndoCommand* command(const osg::NodePtr& edited, const osg::Quaternion& q = quaternion(0, 0, 1, 0))
    {
        return new moRotationAsQuaternionUndoCommand(moUndoString("Align", "Align to view", "Views"), edited, q,
                                                     nullptr);
    }
    std::string rotation() const
    {
        const osg::Quaternion q = moNodeUtils::getTransform3D(node, -1)->getRotation();
        std::ostringstream text;
        text << q[0] << ' ' << q[1] << ' ' << q[2] << ' ' << q[3];
        return text.str();
    }
};

} // namespace

TEST_F(EulerRotationOrder, IsCalledTranslateButIsNeverTakenForATranslation)
{
    stack.add(new moTranslationUndoCommand(node, osg::Vec3f(1, 2, 3), false, nullptr, nullptr, -1));
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    EXPECT_EQ(stack.size(), 2);
    EXPECT_EQ(stack.currentCommand()->text(), "Translate 'Box'");
    EXPECT_EQ(static_cast<const moUndoCommandBase*>(stack.currentCommand())->getDescription(), "Translate");
}

TEST_F(EulerRotationOrder, ExchangesTheOrderAtEveryStep)
{
    moNodeUtils::setTransformNodeRotation(node, 10, 20, 30, -1);
    const std::string before = state(node);
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    EXPECT_EQ(order(), "ZYX");
    EXPECT_NE(state(node), before);
    stack.undo();
    EXPECT_EQ(state(node), before);
    stack.redo();
    EXPECT_EQ(order(), "ZYX");
}

TEST_F(EulerRotationOrder, CallsBackAndIsMirroredWithTheOrderThatWasWritten)
{
    synchronise();
    const std::string id = std::to_string(idOf(node));
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, tell(), -1));
    stack.undo();
    EXPECT_THAT(told, ElementsAre("callback " + id + ", ZYX, -1", "sync " + id + ", ZYX",
                                  "callback " + id + ", XYZ, -1", "sync " + id + ", XYZ"));
}

TEST_F(EulerRotationOrder, ItsMirrorMayReplaceItself)
{
    moEulerRotationOrderUndoCommand::setSyncFunction(
        [this, kept = std::string(1000, 'x')](const osg::NodePtr&, const std::string&) {
            moEulerRotationOrderUndoCommand::setSyncFunction({});
            told.push_back(kept);
        });
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    stack.undo();
    EXPECT_THAT(told, ElementsAre(std::string(1000, 'x')));
}

TEST_F(EulerRotationOrder, ItsMirrorKeepsItsStateFromOneCallToTheNext)
{
    moEulerRotationOrderUndoCommand::setSyncFunction(
        [this, count = 0](const auto&...) mutable { told.push_back(std::to_string(++count)); });
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    stack.undo();
    EXPECT_THAT(told, ElementsAre("1", "2"));
}

TEST_F(EulerRotationOrder, EveryConstructorPassesOnAllThatItIsGiven)
{
    addVariant(node, "A");
    const auto expectPassedOn = [this](auto... merge) {
        QUndoCommand parent;
        const auto* made = new moEulerRotationOrderUndoCommand(node, "YXZ", merge..., &parent, tell(), 0);
        EXPECT_EQ(made->parent(), &parent);
        parent.redo();
        EXPECT_THAT(std::exchange(told, {}), ElementsAre("callback " + std::to_string(idOf(node)) + ", YXZ, 0"));
        EXPECT_EQ(order(-1) + order(0), "XYZYXZ");
        parent.undo();
        told.clear();
    };
    expectPassedOn();
    expectPassedOn(true);
    expectPassedOn(0.25);
}

TEST_F(EulerRotationOrder, OfAVariantCallsBackButIsNotMirrored)
{
    synchronise();
    addVariant(node, "A");
    addVariant(node, "B");
    fill(node, 0, 0);
    fill(node, 1, 1);
    const std::string before = state(node);
    ASSERT_EQ(order(-1) + ' ' + order(0) + ' ' + order(1), "XYZ ZYX YXZ");
    const auto callback = [this](const std::string& written) {
        return "callback " + std::to_string(idOf(node)) + ", " + written + ", 1";
    };
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZXY", nullptr, tell(), 1));
    EXPECT_EQ(order(-1) + ' ' + order(0) + ' ' + order(1), "XYZ ZYX ZXY");
    stack.undo();
    EXPECT_EQ(state(node), before);
    stack.redo();
    EXPECT_EQ(order(-1) + ' ' + order(0) + ' ' + order(1), "XYZ ZYX ZXY");
    EXPECT_THAT(told, ElementsAre(callback("ZXY"), callback("YXZ"), callback("ZXY")));
}

TEST_F(EulerRotationOrder, HasTheDefaultMergeIntervalUnlessItsConstructorIsGivenOne)
{
    constexpr double tick = 1.0 / (1 << 20);
    const auto expectMergesUntil = [this](double interval, auto... merge) {
        SCOPED_TRACE(testing::Message() << sizeof...(merge) << " merge arguments, interval " << interval);
        const auto add = [&] {
            stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", merge..., nullptr, nullptr, -1));
        };
        stack.clear();
        add();
        clock.advance(interval - tick);
        add();
        EXPECT_EQ(stack.size(), 1);
        clock.advance(interval + tick);
        add();
        EXPECT_EQ(stack.size(), 2);
    };
    expectMergesUntil(moUndoCommand::defaultMergeResponseDelta);
    expectMergesUntil(moUndoCommand::defaultMergeResponseDelta, true);
    for (const double interval : {0.25, 0.75, 1.0, 90.0})
        expectMergesUntil(interval, interval);

    stack.clear();
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    auto* const apart = new moEulerRotationOrderUndoCommand(node, "ZYX", false, nullptr, nullptr, -1);
    apart->setMergeResponseDelta(-1);
    stack.add(apart);
    EXPECT_EQ(stack.size(), 2) << "told not to merge, whatever the interval";
}

TEST_F(EulerRotationOrder, ThatWritesWhatIsThereAlreadyIsToldOfAllTheSame)
{
    synchronise();
    const std::string id = std::to_string(idOf(node));
    const std::vector<std::string> expected = {"callback " + id + ", XYZ, -1", "sync " + id + ", XYZ"};
    stack.add(new moEulerRotationOrderUndoCommand(node, "XYZ", nullptr, tell(), -1));
    EXPECT_EQ(std::exchange(told, {}), expected);
    stack.undo();
    EXPECT_EQ(told, expected);
}

TEST_F(EulerRotationOrder, WhoseCallbackLetsTheNodeGoIsNotMirrored)
{
    synchronise();
    stack.add(new moEulerRotationOrderUndoCommand(
        node, "ZYX", nullptr, [this](unsigned int, const std::string&, int) { destroy(node); }, -1));
    stack.undo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(EulerRotationOrder, NeedsNeitherCallbackNorMirror)
{
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    stack.undo();
    EXPECT_EQ(order(), "XYZ");
}

TEST_F(EulerRotationOrder, PassesEveryTextThroughAndBringsTheOldOneBack)
{
    for (const std::string& text :
         {std::string(), std::string("sideways"), std::string(1000000, 'Z'), std::string("Z\0X", 3)}) {
        const std::string before = state(node);
        stack.add(new moEulerRotationOrderUndoCommand(node, text, nullptr, nullptr, -1));
        EXPECT_EQ(order(), text);
        stack.undo();
        EXPECT_EQ(state(node), before);
    }
}

TEST_F(EulerRotationOrder, MergesByNodeAndVariantAndAsItsConstructorSays)
{
    addVariant(node, "A");
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    stack.add(new moEulerRotationOrderUndoCommand(node, "YXZ", nullptr, nullptr, -1));
    EXPECT_EQ(stack.size(), 1);
    stack.add(new moEulerRotationOrderUndoCommand(node, "XZY", nullptr, nullptr, 0));
    EXPECT_EQ(stack.size(), 2);
    stack.add(new moEulerRotationOrderUndoCommand(node, "XZY", false, nullptr, nullptr, 0));
    EXPECT_EQ(stack.size(), 3);
    clock.advance(100);
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZXY", -1.0, nullptr, nullptr, 0));
    EXPECT_EQ(stack.size(), 3);
    stack.undo();
    stack.undo();
    stack.undo();
    EXPECT_EQ(order(-1), "XYZ");
    EXPECT_EQ(order(0), "XYZ");
}

TEST_F(EulerRotationOrder, TellsTheNodeAndThatItIsATransformCommand)
{
    Trace trace(stack);
    stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, nullptr, -1));
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Translate 'Box'\" "
                            "description=string:\"Translate\" id=int:" +
                            std::to_string(moEulerRotationOrderUndoCommand::commandId()) +
                            " node=uint:" + std::to_string(idOf(node)) + " transformCommand=bool:true"));
}

TEST_F(EulerRotationOrder, WithoutNodeOrTransformDoesNothingAndOnlyANodeIsToldOf)
{
    synchronise();
    stack.add(new moEulerRotationOrderUndoCommand(osg::NullFC, "ZYX", nullptr, tell(), -1));
    stack.undo();
    EXPECT_THAT(told, IsEmpty());
    const osg::NodePtr group = make(osg::Group::create(), "Group");
    const std::string id = std::to_string(idOf(group));
    stack.add(new moEulerRotationOrderUndoCommand(group, "ZYX", nullptr, tell(), -1));
    EXPECT_THAT(std::exchange(told, {}), ElementsAre("callback " + id + ", ZYX, -1", "sync " + id + ", ZYX"));
    EXPECT_EQ(moNodeUtils::getTransformNodeEulerRotationOrder(group, -1), "XYZ");
    destroy(group);
    stack.undo();
    stack.redo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(EulerRotationOrder, StandsWhenItsCallbackThrows)
{
    const auto fail = [](unsigned int, const std::string&, int) { throw std::runtime_error("from the callback"); };
    EXPECT_THROW(stack.add(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, fail, -1)), std::runtime_error);
    EXPECT_EQ(order(), "ZYX");
    EXPECT_EQ(stack.size(), 1);
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(order(), "XYZ");
}

TEST_F(RotationAsQuaternion, ExchangesTheRotationAndTheAnglesFollow)
{
    const std::string before = state(node);
    stack.add(command(node));
    EXPECT_EQ(rotation(), "0 0 1 0");
    EXPECT_EQ(print(moNodeUtils::getTransformNodeRotation(node, -1)), "0 0 180");
    stack.undo();
    EXPECT_EQ(state(node), before);
    stack.redo();
    EXPECT_EQ(rotation(), "0 0 1 0");
    stack.undo();
    EXPECT_EQ(state(node), before);
}

TEST_F(RotationAsQuaternion, GoesBackToTheRotationBitByBit)
{
    moNodeUtils::setTransformNodeRotation(node, 12.3f, -45.6f, 78.9f, -1);
    const osg::Transform3DPtr core = moNodeUtils::getTransform3D(node, -1);
    const osg::Matrix matrix = core->getMatrix();
    const osg::Quaternion before = core->getRotation();
    stack.add(command(node));
    stack.undo();
    for (osg::UInt32 i = 0; i < 4; ++i)
        EXPECT_EQ(core->getRotation()[i], before[i]);
    for (osg::UInt32 i = 0; i < 16; ++i)
        EXPECT_EQ(core->getMatrix().getValues()[i], matrix.getValues()[i]);
}

TEST_F(RotationAsQuaternion, EditsTheCoreInABracketOfTheRotation)
{
    osg::ChangeList& list = *osg::Thread::getCurrentChangeList();
    list.setReadOnly(false);
    stack.add(command(node));
    list.setReadOnly(true);
    const std::vector<std::pair<unsigned int, osg::BitVector>> edits(list.beginChanged(), list.endChanged());
    list.clearAll();
    EXPECT_THAT(
        edits,
        testing::Contains(testing::Pair(idOf(node->getCore()), osg::Transform3DBase::RotationFieldMask)).Times(1));
}

TEST_F(RotationAsQuaternion, HasTheCallersTextAndAMessageWithoutTheNode)
{
    Trace trace(stack);
    stack.add(command(node));
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Align\" "
                                                  "description=string:\"Align to view\" id=int:" +
                                                  std::to_string(moRotationAsQuaternionUndoCommand::commandId()) +
                                                  " transformCommand=bool:true"));
}

TEST_F(RotationAsQuaternion, MergesWithThatOfTheSameNode)
{
    const osg::NodePtr other = make(osg::Transform3D::create(), "Other");
    stack.add(command(node));
    stack.add(command(node, quaternion(1, 0, 0, 0)));
    EXPECT_EQ(stack.size(), 1);
    stack.add(command(other));
    EXPECT_EQ(stack.size(), 2);
    stack.undo();
    stack.undo();
    EXPECT_EQ(rotation(), "0 0 0 1");
}

TEST_F(RotationAsQuaternion, OfANodeWithoutATransformChangesNothing)
{
    for (const osg::NodeCorePtr& core :
         {osg::NodeCorePtr(), osg::NodeCorePtr(osg::Group::create()), osg::NodeCorePtr(osg::Transform::create())}) {
        const osg::NodePtr plain = make(core, "Plain");
        stack.add(command(plain));
        stack.undo();
        stack.redo();
        EXPECT_EQ(plain->getToWorld(), osg::Matrix());
    }
    stack.add(command(osg::NullFC));
    stack.undo();
    EXPECT_TRUE(stack.canRedo());
}

TEST_F(RotationAsQuaternion, OfALightTurnsIt)
{
    const osg::NodePtr lamp = make(osg::UberLight::create(), "Lamp");
    stack.add(command(lamp));
    EXPECT_EQ(lamp->getToWorld()[0][0], -1.f);
}

TEST_F(RotationAsQuaternion, ThatIsNoRotationLeavesTheNodeAsItIs)
{
    const float bad = std::numeric_limits<float>::quiet_NaN();
    for (const float angle : {0.f, 400.f}) {
        moNodeUtils::setTransformNodeRotation(node, angle, 0, 0, -1);
        const std::string before = state(node);
        for (const osg::Quaternion& q : {quaternion(0, 0, 0, 0), quaternion(bad, bad, bad, bad)}) {
            stack.add(command(node, q));
            EXPECT_EQ(state(node), before);
            stack.undo();
            EXPECT_EQ(state(node), before);
        }
    }
}

TEST_F(RotationAsQuaternion, DoesNothingOnceItsNodeWasDestroyed)
{
    stack.add(command(node));
    destroy(node);
    stack.undo();
    stack.redo();
    EXPECT_EQ(stack.size(), 1);
}
