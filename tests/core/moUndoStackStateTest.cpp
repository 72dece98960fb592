#include <support/ContextTranslator.h>
#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/core/moUndoStackState.h>

#include <QAction>
#include <QtCore/QCoreApplication>
#include <QtGui/QKeySequence>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StackState : public UndoTest
{
protected:
    StackState() { hearAll(); }

    void hearAll()
    {
        hear("index", &moUndoStackState::indexChanged);
        hear("canUndo", &moUndoStackState::canUndoChanged);
        hear("canRedo", &moUndoStackState::canRedoChanged);
        hear("clean", &moUndoStackState::cleanChanged);
        hear("undoText", &moUndoStackState::undoTextChanged);
        hear("redoText", &moUndoStackState::redoTextChanged);
    }

    template<class Value>
    void hear(const std::string& name, void (moUndoStackState::*signal)(Value))
    {
        QObject::connect(state.get(), signal, &context, [this, name](const auto& value) {
            heard.push_back(name + " " + QVariant(value).toString().toStdString());
        });
    }

    std::vector<std::string> take() { return std::exchange(heard, {}); }

    QObject context;
    std::vector<std::string> heard;
    std::unique_ptr<moUndoStackState> state = std::make_unique<moUndoStackState>(stack);
};

using StackActions = StackState;

TEST_F(StackState, TellsWhatAPushAnUndoAndARedoChanged)
{
    stack.add(new ProbeCommand("a"));
    EXPECT_THAT(take(), ElementsAre("index 1", "canUndo true", "undoText a", "clean false"));
    stack.add(new ProbeCommand("b"));
    EXPECT_THAT(take(), ElementsAre("index 2", "undoText b"));
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("index 1", "undoText a", "canRedo true", "redoText b"));
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("index 2", "undoText b", "canRedo false", "redoText "));
}

TEST_F(StackState, TellsOfAMergeOnlyTheNewText)
{
    const auto drag = [this](const char* text) {
        auto* command = new ProbeCommand(text);
        stack.add(command->withId(7)->onMerge([command](const QUndoCommand* newer) {
            command->setText(newer->text());
            return true;
        }));
    };
    drag("from here");
    take();
    drag("to there");
    EXPECT_THAT(take(), ElementsAre("undoText to there"));
}

TEST_F(StackState, SaysThatNothingCanBeUndoneWhileAMacroIsOpen)
{
    stack.add(new ProbeCommand("a"));
    take();
    stack.beginMacro("macro");
    EXPECT_THAT(take(), ElementsAre("canUndo false", "undoText "));
    stack.add(new ProbeCommand("b"));
    EXPECT_THAT(take(), IsEmpty());
    stack.endMacro();
    EXPECT_THAT(take(), ElementsAre("index 2", "canUndo true", "undoText macro"));
}

TEST_F(StackState, HearsOfACompositionOnlyAtItsEnd)
{
    {
        const moCompositionScope composition(stack, "composite");
        new ProbeCommand("a", moUndoStack::getCurrentCommandParent());
        EXPECT_THAT(take(), IsEmpty());
    }
    EXPECT_THAT(take(), ElementsAre("index 1", "canUndo true", "undoText composite", "clean false"));
}

TEST_F(StackState, TellsOfJumpsAndOfClear)
{
    for (const char* text : {"a", "b", "c"})
        stack.add(new ProbeCommand(text));
    take();
    stack.reset();
    EXPECT_THAT(take(),
                ElementsAre("index 0", "canUndo false", "undoText ", "canRedo true", "redoText a", "clean true"));
    stack.setIndex(2);
    EXPECT_THAT(take(), ElementsAre("index 2", "canUndo true", "undoText b", "redoText c", "clean false"));
    stack.clear();
    EXPECT_THAT(take(),
                ElementsAre("index 0", "canUndo false", "undoText ", "canRedo false", "redoText ", "clean true"));
}

TEST_F(StackState, TellsOfTheCleanState)
{
    stack.add(new ProbeCommand("a"));
    take();
    stack.setClean();
    EXPECT_THAT(take(), ElementsAre("clean true"));
    stack.resetClean();
    EXPECT_THAT(take(), ElementsAre("clean false"));
}

TEST_F(StackState, TellsOfTheOldestStepThatTheLimitDeleted)
{
    stack.setUndoLimit(1);
    stack.add(new ProbeCommand("a"));
    take();
    stack.add(new ProbeCommand("b"));
    EXPECT_THAT(take(), ElementsAre("undoText b"));
}

TEST_F(StackState, IsToldAfterTheListenersOfTheStack)
{
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [this] { heard.emplace_back("redoPerformed"); });
    stack.add(new ProbeCommand("a"));
    EXPECT_EQ(take().front(), "redoPerformed");
}

TEST_F(StackState, AgreesWithTheQueriesAlsoWhenASlotCallsTheStack)
{
    int calls = 0;
    const auto check = [&] {
        EXPECT_EQ(heard.back(), "canUndo " + std::string(stack.canUndo() ? "true" : "false"));
        if (++calls == 1) stack.undo();
    };
    QObject::connect(state.get(), &moUndoStackState::canUndoChanged, &context, check);
    stack.add(new ProbeCommand("a"));
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(stack.canUndo());
    EXPECT_EQ(stack.redoText(), "a");
    EXPECT_THAT(take(),
                ElementsAre("index 1", "canUndo true", "canRedo true", "redoText a", "index 0", "canUndo false"));
}

TEST_F(StackState, LetsTheStepStandAndTellsTheRestWhenASlotThrows)
{
    QObject::connect(state.get(), &moUndoStackState::indexChanged, &context, [](int index) {
        if (index == 1) throw std::runtime_error("slot");
    });
    EXPECT_THROW(stack.add(new ProbeCommand("a")), std::runtime_error);
    EXPECT_EQ(stack.size(), 1);
    EXPECT_THAT(take(), testing::Contains("clean false"));
}

TEST_F(StackState, MayBeDestroyedByItsOwnSlot)
{
    QObject::connect(state.get(), &moUndoStackState::indexChanged, &context, [this] { state.reset(); });
    moUndoStackState other(stack);
    int heardByOther = 0;
    QObject::connect(&other, &moUndoStackState::canUndoChanged, &context, [&] { ++heardByOther; });
    stack.add(new ProbeCommand("a"));
    EXPECT_THAT(take(), ElementsAre("index 1"));
    EXPECT_EQ(heardByOther, 1);
}

TEST_F(StackState, IsThatOfItsOwnStack)
{
    second.add(new ProbeCommand("a"));
    EXPECT_THAT(take(), IsEmpty());
    state = std::make_unique<moUndoStackState>(second);
    hearAll();
    stack.add(new ProbeCommand("b"));
    EXPECT_THAT(take(), IsEmpty());
    second.add(new ProbeCommand("c"));
    EXPECT_THAT(take(), ElementsAre("index 2", "undoText c"));
}

TEST_F(StackState, MadeLaterTellsOnlyWhatChangesFromThenOn)
{
    for (const char* text : {"a", "b", "c"})
        stack.add(new ProbeCommand(text));
    stack.setIndex(1);
    take();
    state = std::make_unique<moUndoStackState>(stack);
    hearAll();
    stack.mark();
    EXPECT_THAT(take(), IsEmpty());
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("index 2", "undoText b", "redoText c"));
}

// --- actions --------------------------------------------------------------------------------------------------------

TEST_F(StackActions, ShowTheStepAndAreEnabledWhileTheStackCanDoIt)
{
    const QAction* undo = state->createUndoAction(&context);
    const QAction* redo = state->createRedoAction(&context);
    EXPECT_EQ(undo->parent(), &context);
    EXPECT_EQ(undo->text(), "Undo");
    EXPECT_EQ(redo->text(), "Redo");
    EXPECT_FALSE(undo->isEnabled() || redo->isEnabled());
    stack.add(new ProbeCommand("move"));
    EXPECT_EQ(undo->text(), "Undo move");
    EXPECT_TRUE(undo->isEnabled());
    stack.undo();
    EXPECT_EQ(redo->text(), "Redo move");
    EXPECT_EQ(undo->text(), "Undo");
    EXPECT_TRUE(redo->isEnabled());
    EXPECT_FALSE(undo->isEnabled());
}

TEST_F(StackActions, UndoAndRedoWhenTheyAreTriggered)
{
    QAction* undo = state->createUndoAction(&context);
    QAction* redo = state->createRedoAction(&context);
    stack.add(new ProbeCommand("a"));
    undo->trigger();
    EXPECT_EQ(stack.index(), 0);
    redo->trigger();
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(StackActions, HaveTheStandardShortcuts)
{
    EXPECT_EQ(state->createUndoAction(&context)->shortcuts(), QKeySequence::keyBindings(QKeySequence::Undo));
    EXPECT_EQ(state->createRedoAction(&context)->shortcuts(), QKeySequence::keyBindings(QKeySequence::Redo));
}

TEST_F(StackActions, PutAPrefixBeforeTheStep)
{
    const QAction* undo = state->createUndoAction(&context, "Re&vert:");
    EXPECT_EQ(undo->text(), "Re&vert:");
    stack.add(new ProbeCommand("move"));
    EXPECT_EQ(undo->text(), "Re&vert: move");
    const QAction* redo = state->createRedoAction(&context, "&Again:");
    EXPECT_EQ(redo->text(), "&Again:");
    stack.undo();
    EXPECT_EQ(redo->text(), "&Again: move");
}

TEST_F(StackActions, ShowTextsAsTheyAre)
{
    const QAction* undo = state->createUndoAction(&context);
    const QAction* redo = state->createRedoAction(&context);
    stack.add(new ProbeCommand("cut & paste %1"));
    EXPECT_EQ(undo->text(), "Undo cut && paste %1");
    stack.add(new ProbeCommand("long text\nfirst line\nsecond line"));
    EXPECT_EQ(undo->text(), "Undo first line second line");
    stack.add(new ProbeCommand("Set (a) (b) "));
    EXPECT_EQ(undo->text(), "Undo Set (a) (b)");
    stack.undo();
    EXPECT_EQ(redo->text(), "Redo Set (a) (b)");
}

TEST_F(StackActions, MadeLaterShowThePresentState)
{
    stack.add(new ProbeCommand("a"));
    stack.add(new ProbeCommand("b"));
    stack.undo();
    EXPECT_EQ(state->createUndoAction(&context)->text(), "Undo a");
    EXPECT_EQ(state->createRedoAction(&context)->text(), "Redo b");
    EXPECT_TRUE(state->createRedoAction(&context)->isEnabled());
    stack.redo();
    EXPECT_TRUE(state->createUndoAction(&context)->isEnabled());
    EXPECT_FALSE(state->createRedoAction(&context)->isEnabled());
}

TEST_F(StackActions, AreDisabledOnceTheStateIsDestroyed)
{
    stack.add(new ProbeCommand("a"));
    const QAction* undo = state->createUndoAction(&context);
    state.reset();
    EXPECT_FALSE(undo->isEnabled());
}

TEST_F(StackActions, AreTranslatedInTheContextOfTheirClass)
{
    const ContextTranslator translator;
    EXPECT_EQ(state->createUndoAction(&context)->text(), "moUndoStackState: Undo");
}

} // namespace
