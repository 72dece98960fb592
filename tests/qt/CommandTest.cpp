// What QUndoCommand does with its children, as far as the library's commands and composites rely on it.

#include <qt/QtTest.h>

#include <memory>

namespace {

using testing::ElementsAre;

TEST(QtUndoCommand, HasTheIdMinusOneAndRefusesToMerge)
{
    QUndoCommand command;
    const QUndoCommand other;
    EXPECT_EQ(command.id(), -1);
    EXPECT_FALSE(command.mergeWith(&other));
}

TEST(QtUndoCommand, TakesAChildFromTheChildsConstructorAndDeletesItWithItself)
{
    Lines log;
    auto parent = std::make_unique<QUndoCommand>();
    const auto* const first = new LoggingCommand(log, "first", parent.get());
    new LoggingCommand(log, "second", parent.get());
    ASSERT_EQ(parent->childCount(), 2);
    EXPECT_EQ(parent->child(0), first);
    parent.reset();
    EXPECT_THAT(log, ElementsAre("delete first", "delete second"));
}

TEST(QtUndoCommand, RunsItsChildrenInOrderAndTakesThemBackInReverse)
{
    Lines log;
    QUndoCommand parent;
    new LoggingCommand(log, "first", &parent);
    new LoggingCommand(log, "second", &parent);
    parent.redo();
    parent.undo();
    EXPECT_THAT(log, ElementsAre("redo first", "redo second", "undo second", "undo first"));
}

TEST(QtUndoCommand, StopsAtAChildThatThrowsAndTakesNothingBack)
{
    Lines log;
    QUndoCommand parent;
    new LoggingCommand(log, "first", &parent);
    (new LoggingCommand(log, "second", &parent))->onRedo = [] { throw std::runtime_error("of the child"); };
    new LoggingCommand(log, "third", &parent);
    EXPECT_THROW(parent.redo(), std::runtime_error);
    EXPECT_THAT(log, ElementsAre("redo first", "redo second")) << "moMultiCommand takes the first one back itself";
}

/// So a child must never be deleted by anybody but its parent.
TEST(QtUndoCommand, IsNotToldWhenAChildIsDeleted)
{
    Lines log;
    static QUndoCommand* const s_parent = new QUndoCommand; // never deleted: it would delete the child once more
    const std::unique_ptr<LoggingCommand> child(new LoggingCommand(log, "child", s_parent));
    EXPECT_EQ(s_parent->childCount(), 1);
}

} // namespace
