#include "FieldTest.h"

#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>

#include <QtWidgets/QCheckBox>

#include <memory>
#include <stdexcept>

namespace {

using Lines = std::vector<std::string>;

} // namespace

// Other names for bool, as Qt gets to know them or not.
using Switch = bool;
using LateSwitch = bool;

/// Notes which of its methods are called.
class Receiver : public QObject
{
    Q_OBJECT

public:
    Lines take() { return std::exchange(m_calls, {}); }

    Q_INVOKABLE int answer(bool value)
    {
        note("answer", value);
        return 42;
    }

Q_SIGNALS:
    void toggled(bool value);

public Q_SLOTS:
    void setOn(bool value) { note("setOn", value); }
    void setConst(const bool& value) { note("setConst", value); }
    void nothing() { m_calls.push_back("nothing"); }
    void both(bool, bool) { m_calls.push_back("both"); }
    void number(int) { m_calls.push_back("number"); }
    void words(const QString&) { m_calls.push_back("words"); }
    void own(Receiver*) { m_calls.push_back("own"); }
    void setAndClear(bool& value)
    {
        note("setAndClear", value);
        value = false;
    }
    void setSwitch(Switch value) { note("setSwitch", value); }
    void setLateSwitch(LateSwitch value) { note("setLateSwitch", value); }
    void setSwitchReference(Switch& value) { note("setSwitchReference", value); }
    void fail(bool value)
    {
        note("fail", value);
        throw std::runtime_error("receiver");
    }

private:
    void note(const char* method, bool value) { m_calls.push_back(std::string(method) + (value ? " true" : " false")); }

    Lines m_calls;
};

namespace {

class InvokeBoolFieldTest : public FieldTest
{
protected:
    moInvokeBoolFieldUndoCommand* command(bool value, const char* method)
    {
        return new moInvokeBoolFieldUndoCommand(text, container, "singleBool", value, &receiver, method);
    }

    Receiver receiver;
};

} // namespace

TEST_F(InvokeBoolFieldTest, AMethodWithABoolGetsTheValueThatThisRedoWrites)
{
    stack.add(command(true, "setOn(bool)"));
    EXPECT_TRUE(container->getSingleBool());
    EXPECT_EQ(receiver.take(), Lines({"setOn true"}));
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, UndoLeavesFieldAndReceiverAloneAsIntendedAndTheNextRedoReportsTheEarlierValue)
{
    stack.add(command(true, "setOn(bool)"));
    receiver.take();
    takeEdits();
    stack.undo();
    EXPECT_TRUE(container->getSingleBool());
    EXPECT_EQ(receiver.take(), Lines());
    EXPECT_EQ(takeEdits(), Lines());
    stack.redo();
    EXPECT_FALSE(container->getSingleBool());
    EXPECT_EQ(receiver.take(), Lines({"setOn false"}));
    stack.undo();
    stack.redo();
    EXPECT_TRUE(container->getSingleBool());
    EXPECT_EQ(receiver.take(), Lines({"setOn true"}));
}

TEST_F(InvokeBoolFieldTest, TheFieldAndTheNotifyFunctionComeBeforeTheReceiver)
{
    Lines lines;
    QObject::connect(&receiver, &Receiver::toggled, &receiver, [&](bool value) {
        lines.push_back(std::string("toggled ") + (value ? "true" : "false") +
                        (container->getSingleBool() ? ", set" : ""));
    });
    auto* const made = command(true, "toggled(bool)");
    made->setNotifyFunction([&lines] { lines.push_back("notify"); });
    stack.add(made);
    EXPECT_EQ(lines, Lines({"notify", "toggled true, set"}));
}

TEST_F(InvokeBoolFieldTest, SignaturesAreNormalisedBeforeTheLookup)
{
    for (const char* method : {" setOn ( bool ) ", "setOn( const bool & )", "setConst(const bool&)", "answer(bool)"})
        stack.add(command(true, method));
    EXPECT_EQ(receiver.take(), Lines({"setOn true", "setOn true", "setConst true", "answer true"}));
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, AMethodWithoutParametersIsCalledWithoutArguments)
{
    stack.add(command(true, "nothing()"));
    EXPECT_EQ(receiver.take(), Lines({"nothing"}));
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, AReferenceToABoolGetsTheValueAndWhatTheMethodWritesThereIsDropped)
{
    stack.add(command(true, "setAndClear(bool&)"));
    EXPECT_EQ(receiver.take(), Lines({"setAndClear true"}));
    stack.undo();
    EXPECT_TRUE(container->getSingleBool());
    stack.redo();
    EXPECT_EQ(receiver.take(), Lines({"setAndClear false"}));
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, ANameThatWasRegisteredForBoolIsABool)
{
    qRegisterMetaType<bool>("Switch");
    for (const char* method : {"setSwitch(Switch)", "setSwitchReference(Switch&)"})
        stack.add(command(true, method));
    EXPECT_EQ(receiver.take(), Lines({"setSwitch true", "setSwitchReference true"}));
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, WhatAParameterIsIsDecidedWhenTheCommandIsMade)
{
    stack.add(command(true, "setLateSwitch(LateSwitch)"));
    qRegisterMetaType<bool>("LateSwitch");
    stack.undo();
    log.take();
    stack.redo();
    EXPECT_EQ(log.take(), Lines({"error: Could not invoke: Receiver::setLateSwitch(LateSwitch)"}));
    EXPECT_EQ(receiver.take(), Lines());
    stack.add(command(true, "setLateSwitch(LateSwitch)"));
    EXPECT_EQ(receiver.take(), Lines({"setLateSwitch true"}));
}

TEST_F(InvokeBoolFieldTest, OnceTheReceiverWasDestroyedOnlyTheFieldIsSet)
{
    for (const char* method : {"setOn(bool)", "nothing()", "number(int)"}) {
        auto shortLived = std::make_unique<Receiver>();
        auto* const made =
            new moInvokeBoolFieldUndoCommand(text, container, "singleBool", true, shortLived.get(), method);
        shortLived.reset();
        container->setSingleBool(false);
        stack.add(made);
        EXPECT_TRUE(container->getSingleBool());
        stack.undo();
        stack.redo();
        EXPECT_FALSE(container->getSingleBool());
        EXPECT_EQ(log.take(), Lines());
    }
}

TEST_F(InvokeBoolFieldTest, TheNotifyFunctionMayDestroyTheReceiver)
{
    auto shortLived = std::make_unique<Receiver>();
    auto* const made =
        new moInvokeBoolFieldUndoCommand(text, container, "singleBool", true, shortLived.get(), "setOn(bool)");
    made->setNotifyFunction([&shortLived] { shortLived.reset(); });
    stack.add(made);
    EXPECT_TRUE(container->getSingleBool());
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, AMethodThatThrowsDoesNotUndoTheStep)
{
    auto* const made = command(true, "fail(bool)");
    EXPECT_THROW(stack.add(made), std::runtime_error);
    EXPECT_EQ(stack.size(), 1);
    EXPECT_TRUE(container->getSingleBool());
    stack.undo();
    EXPECT_THROW(made->redo(), std::runtime_error) << "also by hand";
    EXPECT_FALSE(container->getSingleBool());
    EXPECT_EQ(receiver.take(), Lines({"fail true", "fail false"}));
}

TEST_F(InvokeBoolFieldTest, TheReceiverIsToldThoughTheListenerOrTheNotifyFunctionThrows)
{
    auto* const made = command(true, "setOn(bool)");
    made->setNotifyFunction([] { throw 1; });
    EXPECT_THROW(stack.add(made), int);
    EXPECT_EQ(receiver.take(), Lines({"setOn true"}));
    made->setNotifyFunction({});
    container->onChanged = [](osg::BitVector, osg::UInt32) { throw 1; };
    stack.undo();
    EXPECT_THROW(stack.redo(), int);
    EXPECT_EQ(receiver.take(), Lines({"setOn false"}));
    EXPECT_THROW(made->redo(), int) << "also by hand";
    EXPECT_EQ(receiver.take(), Lines({"setOn true"}));
    container->onChanged = nullptr;
}

TEST_F(InvokeBoolFieldTest, AMethodThatCannotBeCalledIsLoggedAtEachRedoAndTheFieldIsSet)
{
    for (const char* method : {"both(bool,bool)", "number(int)", "words(QString)", "own(Receiver*)"}) {
        SCOPED_TRACE(method);
        container->setSingleBool(false);
        const std::string line = std::string("error: Could not invoke: Receiver::") + method;
        auto* const made = command(true, method);
        EXPECT_EQ(log.take(), Lines());
        stack.add(made);
        EXPECT_TRUE(container->getSingleBool());
        EXPECT_EQ(log.take(), Lines({line}));
        stack.undo();
        EXPECT_EQ(log.take(), Lines());
        stack.redo();
        EXPECT_EQ(log.take(), Lines({line}));
        EXPECT_EQ(receiver.take(), Lines());
    }
}

TEST_F(InvokeBoolFieldTest, AMethodThatIsNotFoundIsLoggedOnceAndTheFieldIsSet)
{
    const std::vector<std::pair<const char*, std::string>> methods = {
        {"setOnn( bool )", "setOnn(bool)"}, {"setOn(int)", "setOn(int)"}, {"setOn", "setOn"}, {"", ""}, {nullptr, ""}};
    for (const auto& [method, normalised] : methods) {
        SCOPED_TRACE(normalised);
        container->setSingleBool(false);
        auto* const made = command(true, method);
        EXPECT_EQ(log.take(), Lines({"error: Method not found: Receiver::" + normalised}));
        stack.add(made);
        EXPECT_TRUE(container->getSingleBool());
        stack.undo();
        stack.redo();
        EXPECT_FALSE(container->getSingleBool());
        EXPECT_EQ(log.take(), Lines());
        EXPECT_EQ(receiver.take(), Lines());
    }
}

TEST_F(InvokeBoolFieldTest, WithoutAReceiverOnlyTheFieldIsSet)
{
    for (const char* method : {"setOn(bool)", "misspelt(bool", "", static_cast<const char*>(nullptr)}) {
        container->setSingleBool(false);
        stack.add(new moInvokeBoolFieldUndoCommand(text, container, "singleBool", true, nullptr, method));
        EXPECT_TRUE(container->getSingleBool());
    }
    EXPECT_EQ(log.take(), Lines());
}

TEST_F(InvokeBoolFieldTest, TheReceiverIsToldEvenWhenTheFieldIsNotThere)
{
    stack.add(new moInvokeBoolFieldUndoCommand(container, "noSuchField", true, &receiver, "setOn(bool)"));
    stack.add(new moInvokeBoolFieldUndoCommand(container, 0, true, &receiver, "setOn(bool)"));
    stack.add(new moInvokeBoolFieldUndoCommand(osg::NullFC, "singleBool", true, &receiver, "setOn(bool)"));
    EXPECT_EQ(receiver.take(), Lines({"setOn true", "setOn true", "setOn true"}));
    stack.undo();
    stack.redo();
    EXPECT_EQ(receiver.take(), Lines({"setOn true"})) << "nothing was exchanged";
}

TEST_F(InvokeBoolFieldTest, TheReceiverIsToldWhenTheContainerWasDestroyed)
{
    stack.add(command(true, "setOn(bool)"));
    stack.undo();
    destroy(container);
    receiver.take();
    stack.redo();
    EXPECT_EQ(receiver.take(), Lines({"setOn false"}));
}

TEST_F(InvokeBoolFieldTest, AnIntegerFieldIsSetToZeroOrOne)
{
    container->setSingleInt16(7);
    stack.add(new moInvokeBoolFieldUndoCommand(text, container, "singleInt16", true, &receiver, "setOn(bool)"));
    EXPECT_EQ(container->getSingleInt16(), 1);
    EXPECT_EQ(receiver.take(), Lines({"setOn true"}));
}

TEST_F(InvokeBoolFieldTest, EveryConstructorCallsTheReceiver)
{
    const int id = static_cast<int>(osg::AllSingleFields::SingleBoolFieldId);
    const char* const method = "setOn(bool)";
    stack.add(new moInvokeBoolFieldUndoCommand(text, container, "singleBool", true, &receiver, method));
    stack.add(new moInvokeBoolFieldUndoCommand(container, "singleBool", false, &receiver, method));
    stack.add(new moInvokeBoolFieldUndoCommand(text, container, id, true, &receiver, method));
    stack.add(new moInvokeBoolFieldUndoCommand(container, id, false, &receiver, method));
    EXPECT_EQ(receiver.take(), Lines({"setOn true", "setOn false", "setOn true", "setOn false"}));
    EXPECT_EQ(takeEdits().size(), 4U);
}

TEST_F(InvokeBoolFieldTest, NothingMerges)
{
    stack.add(command(true, "setOn(bool)"));
    stack.add(command(true, "setOn(bool)"));
    EXPECT_EQ(stack.size(), 2);
    const auto older = std::unique_ptr<moInvokeBoolFieldUndoCommand>(command(true, "setOn(bool)"));
    const auto newer = std::unique_ptr<moInvokeBoolFieldUndoCommand>(command(true, "setOn(bool)"));
    EXPECT_FALSE(older->canMergeWith(newer.get()));
    EXPECT_FALSE(older->mergeWith(newer.get()));
    EXPECT_FALSE(older->mergeWith(nullptr));
    EXPECT_EQ(older->id(), moInvokeBoolFieldUndoCommand::commandId());
    EXPECT_NE(older->id(), moBoolFieldUndoCommand::commandId());
}

TEST_F(InvokeBoolFieldTest, ACheckBoxFollowsTheField)
{
    QCheckBox box;
    stack.add(new moInvokeBoolFieldUndoCommand(container, "singleBool", true, &box, "setChecked(bool)"));
    EXPECT_TRUE(box.isChecked());
    stack.undo();
    stack.redo();
    EXPECT_FALSE(box.isChecked());
}

#include "moInvokeBoolFieldUndoCommandTest.moc"
