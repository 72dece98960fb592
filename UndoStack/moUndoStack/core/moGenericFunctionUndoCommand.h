#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <functional>

/// A command made of two functions, for edits that need no bookkeeping of values.
///
/// The functions are the step. If one throws, the step did not happen; what it wrote before stays, because the command
/// cannot know of it. An empty function throws std::bad_function_call when its step comes.
///
/// Its id is -1, so the stack never merges two of them. Intended: inside composites they can merge. A composite asks
/// its children only canMergeWith(), which any two commands of the id -1 made within the merge interval answer with
/// true, and ignores what mergeWith() answers. The merged step then calls the older command's functions only; the newer
/// one's were called once and are deleted. Where that loses an edit, compose with merging disabled, or call
/// setMergeEnabled(false) on this command. See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
///
/// Message: "id" (int, -1).
class MO_UNDO_STACK_EXPORT moGenericFunctionUndoCommand : public moUndoCommand
{
public:
    /// \param undoFunction  called by undo(). Intended, part of the interface: it comes before the redo function. See
    ///                      docs/oddities.md#undo-comes-first.
    /// \param redoFunction  called by redo(), also the first time.
    /// \param parent        null means the composite being composed, if any.
    moGenericFunctionUndoCommand(const moUndoString& text, std::function<void()> undoFunction,
                                 std::function<void()> redoFunction, QUndoCommand* parent);
    ~moGenericFunctionUndoCommand() override;

    /// Calls the undo function.
    void undo() override;

    /// Calls the redo function.
    void redo() override;

private:
    std::function<void()> m_undo;
    std::function<void()> m_redo;
};
