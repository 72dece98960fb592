#pragma once

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/core/moUndoCommandId.h>

#include <vector>

/// A composite: one undo step made of child commands.
///
/// Usually made between moUndoStack::beginMultiCommand() and endMultiCommand(). Its children are done in order and
/// undone in reverse order. A step happens whole or not at all: if a child fails to write and throws, the children
/// before it are taken back, the after function is not called and the exception passes. Code that throws after a write
/// (a callback, a listener, the after function) does not undo the step (see moStep).
///
/// Merges with a newer composite of the same class and the same number of children if canMergeWith() of each child
/// accepts its counterpart. Then mergeWith() of each child is called. Intended: its result is ignored, because a half
/// merged composite could not be taken apart again. Children that refuse in mergeWith() but not in canMergeWith() (see
/// moUndoCommand) need a composite with merging disabled: otherwise the newer edits are lost on redo, or stay after
/// undo. See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers. The newer composite is deleted with all
/// that it has: its after function, the receiver of a moInvokeMultiCommand, the changed and other callbacks of its
/// children. From then on those of the older one are called, also for the newer edits.
///
/// Intended: it has no merge interval of its own, because only its children have a time. See
/// docs/oddities.md#composites-have-no-time-of-their-own.
///
/// Message: that of its first child, if it is a moUndoCommand. Intended: the other children are not described, because
/// receivers look for the keys of the family that was edited. See
/// docs/oddities.md#a-composite-describes-itself-as-its-first-child.
class MO_UNDO_STACK_EXPORT moMultiCommand : public moUndoCommandBase
{
    MO_UNDO_COMMAND_ID

public:
    /// Merges. The parent is the composite being composed, if any.
    explicit moMultiCommand(const moUndoString& text);

    /// Merges.
    /// \param parent  owns the composite; null means the composite being composed, if any.
    moMultiCommand(const moUndoString& text, QUndoCommand* parent);

    /// \param parent        intended: not used. The parent is always the composite being composed, if any, because
    ///                      moUndoStack::beginMultiCommand() nests that way. See
    ///                      docs/oddities.md#a-parent-that-is-not-used.
    /// \param mergeEnabled  whether newer composites may be merged into this one.
    moMultiCommand(const moUndoString& text, QUndoCommand* parent, bool mergeEnabled);

    /// Merges. The parent is the composite being composed, if any.
    /// \param after  called after the children were done and after they were undone; may be empty. Not called when a
    ///               child failed and the others were taken back, because then the step did not happen.
    moMultiCommand(const moUndoString& text, std::function<void()> after);

    ~moMultiCommand() override;

    /// Takes the children back, from the last to the first, and calls the after function.
    void undo() override;

    /// Does the children, from the first to the last, and calls the after function.
    void redo() override;

    /// Takes over the newer composite's text. Intended, part of the interface: the description stays. See
    /// docs/oddities.md#a-merged-composite-keeps-its-description.
    bool mergeWith(const QUndoCommand* other) override;

    /// Adds the first child's keys.
    void makeMessage(moMessage& message) const override;

    /// Whether each child accepts its counterpart. Intended: unlike in moUndoCommand, the switch of the older composite
    /// counts, because it is set when that is begun. See
    /// docs/oddities.md#the-newer-command-decides-or-the-older-composite.
    bool canMergeWith(const QUndoCommand* other) const override;

    /// Whether newer composites may be merged into this one.
    virtual void setMergeEnabled(bool enabled);

    /// What setMergeEnabled() or the constructor set; true by default.
    virtual bool isMergeEnabled() const;

    /// Whether the command is a direct child of this one.
    bool hasChild(const QUndoCommand* command) const;

private:
    friend class moUndoStack;
    friend class moUndoHistoryModel;

    void cancel();
    static bool isCancelled(const QUndoCommand* command);
    static std::vector<int> positionsOf(const QUndoCommand& command);
    static std::vector<const QUndoCommand*> childrenOf(const QUndoCommand& command);

    const QUndoCommand* firstChild() const;
    QUndoCommand* childAt(int index) const;

    std::function<void()> m_after;
    bool m_mergeEnabled = true;
    bool m_cancelled = false; ///< stays with its parent, which cannot release it, and does nothing
};
