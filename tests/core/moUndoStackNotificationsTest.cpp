#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <QtTest/QSignalSpy>

#include <boost/any.hpp>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A command with an id and with keys of its own.
class FamilyCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    explicit FamilyCommand(const QString& text, QUndoCommand* parent = nullptr)
        : moUndoCommand(moUndoString(text, "about " + text, ""), parent)
    {
    }
    void makeMessage(moMessage& message) const override
    {
        moUndoCommand::makeMessage(message);
        message.set("family", true, true);
    }
};

MO_UNDO_COMMAND_ID_IMPL(FamilyCommand)

std::string familyId()
{
    return std::to_string(FamilyCommand::commandId());
}

std::string message(const std::string& name, int index, bool added, const std::string& text)
{
    return "message moURManager::" + name + " index=int:" + std::to_string(index) +
           " added=bool:" + (added ? "true" : "false") + " text=string:\"" + text + "\" description=string:\"about " +
           text + "\" id=int:" + familyId() + " family=bool:true";
}

class Notifications : public UndoTest
{
protected:
    FamilyCommand* made(const QString& text) { return trace.watch(new FamilyCommand(text), text.toStdString()); }

    Trace trace{stack};
};

TEST_F(Notifications, OfAPushAreSignalMessageChangedCallback)
{
    stack.addOrExecute(made("a"));
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"a\" added", message("redo", 0, true, "a"), "changed \"a\" true"));
}

TEST_F(Notifications, GiveTheCommandsPositionAsIndexBothWhenUndoneAndWhenRedone)
{
    stack.add(made("a"));
    stack.add(made("b"));
    trace.take();
    stack.undo();
    stack.redo();
    EXPECT_THAT(trace.take(), ElementsAre("signal undo \"b\"", message("undo", 1, false, "b"), "changed \"b\" false",
                                          "signal redo \"b\"", message("redo", 1, false, "b"), "changed \"b\" true"));
}

TEST_F(Notifications, OfAMergeNameTheTopCommandAsAdded)
{
    stack.add(new ProbeCommand("below"));
    auto* top = (new ProbeCommand("top"))->withId(79)->onMerge([](const QUndoCommand*) { return true; });
    stack.add(trace.watch(top, "top"));
    trace.take();
    stack.add(trace.watch((new ProbeCommand("newer"))->withId(79), "newer"));
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"top\" added",
                                          "message moURManager::redo index=int:1 added=bool:true text=string:\"top\" "
                                          "description=string:\"about top\" id=int:79",
                                          "changed \"top\" true"));
}

TEST_F(Notifications, OfAJumpNameOnlyTheCommandAtTheNewBoundary)
{
    stack.add(made("a"));
    stack.mark();
    stack.add(made("b"));
    stack.add(made("c"));
    trace.take();
    stack.reset();
    EXPECT_THAT(trace.take(), ElementsAre("signal undo \"b\"", message("undo", 1, false, "b"), "changed \"b\" false"));

    stack.redo();
    stack.redo();
    stack.mark();
    for (int i = 0; i < 3; ++i)
        stack.undo();
    trace.take();
    stack.reset();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"c\"", message("redo", 2, false, "c"), "changed \"c\" true"));
}

TEST_F(Notifications, AreNotSentForAResetThatGoesNowhere)
{
    stack.add(made("a"));
    stack.mark();
    trace.take();
    stack.reset();
    EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Notifications, AreNotSentForUndoAndRedoAtTheEnds)
{
    stack.undo();
    stack.redo();
    EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Notifications, OfAPlainCommandCarryIndexAddedAndTextOnly)
{
    stack.add(new QUndoCommand("plain"));
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"plain\" added",
                            "message moURManager::redo index=int:0 added=bool:true text=string:\"plain\""));
}

/// No moUndoCommand, so that the stack does not ask it for keys.
struct Bare : moUndoCommandBase
{
    explicit Bare(QUndoCommand* parent) : moUndoCommandBase(moUndoString("bare", ""), parent) {}
    void makeMessage(moMessage& message) const override { message.set("own", true, true); }
    bool canMergeWith(const QUndoCommand*) const override { return false; }
};

TEST_F(Notifications, OfEachClassInTurnCarryTheKeysOfThatClass)
{
    const auto keysOfAPushOf = [this](QUndoCommand* command) {
        stack.add(command);
        return trace.takeMessages();
    };
    for (int i = 0; i < 4; i += 2) {
        const std::string head = "moURManager::redo index=int:";
        const std::string added = " added=bool:true text=string:";
        EXPECT_THAT(keysOfAPushOf(new Bare(nullptr)),
                    ElementsAre(head + std::to_string(i) + added + "\"bare\" description=string:\"bare\""));
        EXPECT_THAT(keysOfAPushOf(new QUndoCommand("plain")),
                    ElementsAre(head + std::to_string(i + 1) + added + "\"plain\""));
        EXPECT_THAT(keysOfAPushOf(new FamilyCommand("a")), ElementsAre(message("redo", i + 2, true, "a").substr(8)));
        stack.undo();
        trace.take();
    }
}

TEST_F(Notifications, OfACommandThatIsNoMoUndoCommandCarryNoKeysOfItsOwn)
{
    stack.add(new Bare(nullptr));
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"bare\" "
                                                  "description=string:\"bare\""));
    auto* composite = new moMultiCommand(moUndoString("composite", ""));
    new Bare(composite);
    new FamilyCommand("second", composite);
    stack.add(composite);
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:1 added=bool:true text=string:\"composite\" "
                            "description=string:\"composite\""));
}

TEST_F(Notifications, OfACompositeCarryItsOwnTextsAndTheKeysOfItsFirstChild)
{
    stack.beginMultiCommand("both", "about both", true);
    trace.watch(new FamilyCommand("first"), "first");
    trace.watch(new ProbeCommand("other"), "other");
    stack.endMultiCommand();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"both\" added", message("redo", 0, true, "both"),
                                          "changed \"first\" true", "changed \"other\" true"));
}

TEST_F(Notifications, OfACompositeWhoseFirstChildIsACompositeCarryNoFurtherKeys)
{
    stack.beginMultiCommand("outer", "about outer", true);
    stack.beginMultiCommand("inner", "", true);
    new FamilyCommand("leaf");
    stack.endMultiCommand();
    stack.endMultiCommand();
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"outer\" "
                                                  "description=string:\"about outer\""));
}

TEST_F(Notifications, SpellTextsInUtf8WithEveryCharacter)
{
    // With and without characters beyond Latin 1.
    const QString texts[] = {QString::fromUtf8("Größe “Ω” 🎬") + QChar(0) + "end", QString::fromUtf8("Größe"), "\x7f"};
    for (const QString& text : texts) {
        stack.add(new FamilyCommand(text));
        EXPECT_THAT(trace.takeMessages(),
                    ElementsAre(message("redo", stack.size() - 1, true, text.toStdString()).substr(8)));
    }
}

TEST_F(Notifications, TakeTheTextOfTheHistoryNotThatOfTheMenus)
{
    stack.add(new QUndoCommand("history\nmenu"));
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"history\""));
}

TEST_F(Notifications, OfClearingADoneStackAreAnUndoOfNothingAndThenCleared)
{
    stack.add(made("a"));
    trace.take();
    stack.clear();
    EXPECT_THAT(trace.take(), ElementsAre("signal undo null", "signal cleared"));
}

TEST_F(Notifications, OfClearingAnUndoneStackAreARedoOfNothingAndThenCleared)
{
    stack.add(made("a"));
    stack.undo();
    trace.take();
    stack.clear();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo null", "signal cleared"));
}

TEST_F(Notifications, OfClearingAnEmptyStackAreClearedOnly)
{
    stack.clear();
    EXPECT_THAT(trace.take(), ElementsAre("signal cleared"));
}

TEST_F(Notifications, AfterClearStartAtIndexZeroAgain)
{
    stack.add(made("a"));
    stack.add(made("b"));
    stack.clear();
    trace.take();
    stack.add(made("c"));
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"c\" added", message("redo", 0, true, "c"), "changed \"c\" true"));
}

TEST_F(Notifications, OfTheTwoStacksDoNotMix)
{
    Trace other(second);
    second.add(new ProbeCommand("b"));
    EXPECT_THAT(trace.take(), IsEmpty());
    EXPECT_EQ(other.take().size(), 2U);
}

TEST_F(Notifications, WithoutAMessageCallbackBuildNoMessageAndStillReachTheOthers)
{
    struct Silent : FamilyCommand
    {
        using FamilyCommand::FamilyCommand;
        void makeMessage(moMessage&) const override { ADD_FAILURE() << "a message was built for nobody"; }
    };
    stack.setMessageCallback(nullptr);
    stack.add(trace.watch(new Silent("a"), "a"));
    stack.undo();
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"a\" added", "changed \"a\" true", //
                                          "signal undo \"a\"", "changed \"a\" false"));
}

TEST_F(Notifications, SendNoMessageOnceMakingItTookTheCallbackAway)
{
    struct Last : FamilyCommand
    {
        using FamilyCommand::FamilyCommand;
        void makeMessage(moMessage&) const override { moUndoStack::get().setMessageCallback(nullptr); }
    };
    stack.add(trace.watch(new Last("a"), "a"));
    EXPECT_THAT(trace.take(), ElementsAre("signal redo \"a\" added", "changed \"a\" true"));
}

TEST_F(Notifications, SeeTheEditMadeAndTheIndexMoved)
{
    int value = 0;
    std::vector<std::string> seen;
    QObject context;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&](const QUndoCommand*, bool) {
        seen.push_back(std::to_string(value) + ", " + describe(stack));
    });
    stack.add((new ProbeCommand("a"))->onRedo([&value] { value = 7; }));
    EXPECT_THAT(seen, ElementsAre("7, 1 step, at \"a\", undo, no redo"));
}

TEST_F(Notifications, AreSpiedOnAsQtSignals)
{
    QSignalSpy redone(&stack, &moUndoStack::redoPerformed);
    QSignalSpy undone(&stack, &moUndoStack::undoPerformed);
    QSignalSpy cleared(&stack, &moUndoStack::cleared);
    stack.add(made("a"));
    stack.undo();
    stack.redo();
    stack.clear();
    EXPECT_EQ(redone.count(), 2);
    EXPECT_NE(redone.at(0).at(0).value<const QUndoCommand*>(), nullptr);
    EXPECT_EQ(redone.at(0).at(1).toBool(), true);
    EXPECT_EQ(redone.at(1).at(1).toBool(), false);
    EXPECT_EQ(undone.count(), 2);
    EXPECT_EQ(cleared.count(), 1);
}

TEST_F(Notifications, ReachEverySlotThatIsConnectedAtTheTime)
{
    // On the stack to which no trace listens.
    second.add(new ProbeCommand("a"));
    std::vector<std::string> heard;
    QObject context;
    const auto redone =
        QObject::connect(&second, &moUndoStack::redoPerformed, &context, [&] { heard.push_back("redo"); });
    const auto undone =
        QObject::connect(&second, &moUndoStack::undoPerformed, &context, [&] { heard.push_back("undo"); });
    const auto undoAndRedo = [&] {
        heard.clear();
        second.undo();
        second.redo();
        return heard;
    };
    EXPECT_THAT(undoAndRedo(), ElementsAre("undo", "redo"));
    QObject::disconnect(redone);
    EXPECT_THAT(undoAndRedo(), ElementsAre("undo"));
    QObject::disconnect(undone);
    EXPECT_THAT(undoAndRedo(), IsEmpty());

    auto* shortLived = new QObject;
    QObject::connect(&second, &moUndoStack::redoPerformed, shortLived, [&] { heard.push_back("short-lived"); });
    QObject::connect(&second, &moUndoStack::redoPerformed, &context, [&] { heard.push_back("redo"); });
    EXPECT_THAT(undoAndRedo(), ElementsAre("short-lived", "redo"));
    delete shortLived;
    EXPECT_THAT(undoAndRedo(), ElementsAre("redo"));
}

// --- message listener -----------------------------------------------------------------------------------------------

class Listener : public UndoTest
{
protected:
    template<class Value>
    static Value value(const moMessage& message, const std::string& key)
    {
        return boost::any_cast<Value>(*message.find(key));
    }

    void TearDown() override
    {
        stack.setMessageCallback(nullptr);
        stack.setMessageListener({});
        UndoTest::TearDown();
    }
};

TEST_F(Listener, HasAStateAndGetsTheMessageOfEachStep)
{
    std::vector<std::string> heard;
    stack.setMessageListener([&heard](const char* name, moMessage& message, int number) {
        heard.push_back(std::string(name) + " " + value<std::string>(message, "text") + " " + std::to_string(number));
    });
    stack.add(new FamilyCommand("a"));
    stack.undo();
    EXPECT_THAT(heard, ElementsAre("moURManager::redo a 0", "moURManager::undo a 0"));
    stack.setMessageListener({});
    stack.redo();
    EXPECT_EQ(heard.size(), 2U);
}

TEST_F(Listener, ComesAfterTheCallbackAndSeesWhatThatAddedToTheMessage)
{
    stack.setMessageCallback([](const char*, moMessage& message, int) {
        message.set("added by the callback", 1, true);
        return false;
    });
    int seen = 0;
    stack.setMessageListener(
        [&seen](const char*, moMessage& message, int) { seen += value<int>(message, "added by the callback"); });
    stack.add(new FamilyCommand("a"));
    EXPECT_EQ(seen, 1);
}

TEST_F(Listener, IsToldThoughTheCallbackThrows)
{
    stack.setMessageCallback([](const char*, moMessage&, int) -> bool { throw std::runtime_error("callback"); });
    int heard = 0;
    stack.setMessageListener([&heard](const char*, moMessage&, int) { ++heard; });
    EXPECT_THROW(stack.add(new FamilyCommand("a")), std::runtime_error);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(stack.size(), 1);
}

TEST_F(Listener, MayReplaceItselfWhileItRuns)
{
    std::vector<std::string> heard;
    stack.setMessageListener([this, &heard, name = std::string("first")](const char*, moMessage&, int) {
        stack.setMessageListener([&heard](const char*, moMessage&, int) { heard.emplace_back("second"); });
        heard.push_back(name);
    });
    stack.add(new FamilyCommand("a"));
    stack.undo();
    EXPECT_THAT(heard, ElementsAre("first", "second"));
}

TEST_F(Listener, IsThatOfItsOwnStackAndHearsOfWhatIsNotRecorded)
{
    std::vector<int> indices;
    second.setMessageListener([&](const char*, moMessage&, int) { indices.push_back(-2); });
    stack.setMessageListener(
        [&](const char*, moMessage& message, int) { indices.push_back(value<int>(message, "index")); });
    moUndoStack::beginBlockUndo();
    stack.addOrExecute(new FamilyCommand("a"));
    moUndoStack::endBlockUndo();
    EXPECT_THAT(indices, ElementsAre(-1));
    second.setMessageListener({});
}

} // namespace
