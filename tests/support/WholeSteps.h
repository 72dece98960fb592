#pragma once

#include <support/EditTrace.h>

#include <moUndoStack/core/moUndoStack.h>

#include <gtest/gtest.h>

/// Runs every step of the command once undisturbed and once with a listener that throws at the first change. Expects
/// the same state both times, and the exception.
///
/// \param command  owned by the stack afterwards.
/// \param state    returns all values that the command edits.
template<class State>
void expectStepsStandThoughAListenerThrows(moUndoStack& stack, EditTrace& edits, QUndoCommand* command, State state)
{
    const auto start = state();
    command->redo();
    const auto done = state();
    EXPECT_FALSE(done == start) << "nothing to see";
    command->undo();
    const auto undone = state();
    EXPECT_FALSE(undone == done) << "nothing to see";

    const auto throwOnce = [&edits] { edits.onChange([] { throw 1; }); };
    const int size = stack.size();
    throwOnce();
    EXPECT_THROW(stack.add(command), int);
    EXPECT_EQ(state(), done);
    EXPECT_EQ(stack.size(), size + 1);
    throwOnce();
    EXPECT_THROW(stack.undo(), int);
    EXPECT_EQ(state(), undone);
    throwOnce();
    EXPECT_THROW(stack.redo(), int);
    EXPECT_EQ(state(), done);

    throwOnce();
    EXPECT_THROW(command->undo(), int) << "by hand";
    EXPECT_EQ(state(), undone);
    throwOnce();
    EXPECT_THROW(command->redo(), int) << "by hand";
    EXPECT_EQ(state(), done);
}
