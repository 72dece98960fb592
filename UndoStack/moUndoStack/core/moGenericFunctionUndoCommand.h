#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <functional>

/// A command made of two functions, for edits that need no bookkeeping of values.
///
/// On the stack it is never merged: it has the id -1. An empty function throws std::bad_function_call when its step
/// comes. Inside a composite that merges it must not stand beside a newer one made within its merge interval: the
/// composite asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it
/// with merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
/// A function that throws has failed to write: the step did not happen. What it wrote before, nobody can put back.
/// Message: "id" (-1).
class MO_UNDO_STACK_EXPORT moGenericFunctionUndoCommand : public moUndoCommand
{
public:
    /// \param undoFunction  called by undo(). Note the order: undo comes first.
    /// \param redoFunction  called by redo(), also the first time.
    /// \param parent        null means the composite being composed, if any.
    moGenericFunctionUndoCommand(const moUndoString& text, std::function<void()> undoFunction,
                                 std::function<void()> redoFunction, QUndoCommand* parent);
    ~moGenericFunctionUndoCommand() override;

    void undo() override;
    void redo() override;

private:
    std::function<void()> m_undo;
    std::function<void()> m_redo;
};
