#pragma once

#include <moUndoStack/core/moUndoCommandBase.h>

#include <memory>

class moUndoStack;

/// A drag of the mouse: many commands that become one step, or none.
///
/// Until it is dropped, the stack knows nothing of it: each command is run at once and merged into the first by hand. So
/// cancelling leaves no step behind, and what could be redone before can still be redone.
///
/// While a drag is active, nothing else may edit what it moves, nor undo or redo: the window keeps all other input away.
class Drag
{
public:
    explicit Drag(moUndoStack& stack) : m_stack(stack) {}
    /// Cancels it.
    ~Drag() { cancel(); }
    Drag(const Drag&) = delete;
    Drag& operator=(const Drag&) = delete;

    /// Whether something has been moved yet.
    bool isActive() const { return m_command != nullptr; }

    /// Runs the command and merges it into the first one. That has merging disabled, so that the step stays apart from
    /// those before it; the others must merge without a limit of time.
    void move(std::unique_ptr<moUndoCommandBase> command);

    /// Hands the step over to the stack, which records it if recording is on.
    void drop();

    /// Takes everything back.
    void cancel();

private:
    moUndoStack& m_stack;
    std::unique_ptr<moUndoCommandBase> m_command;
};
