#pragma once

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/core/moUndoCommandId.h>

/// A composite: one undo step made of child commands.
///
/// Usually made between moUndoStack::beginMultiCommand() and endMultiCommand(). Its children are done in order and
/// undone in reverse order. A step either happens whole or not at all: if a child or the after function throws, the
/// children that were through already are taken back before the exception goes on.
///
/// Merges with a newer composite of the same class and the same number of children if each child can be merged with its
/// counterpart. Each pair is then merged; what a child answers to that is not looked at, which is intended: a composite
/// of commands that refuse to be merged but do not say so in canMergeWith() should be made with merging disabled.
/// Messages: describes itself as its first child.
class MO_UNDO_STACK_EXPORT moMultiCommand : public moUndoCommandBase
{
    MO_UNDO_COMMAND_ID

public:
    /// Parent: the composite being composed, if any.
    explicit moMultiCommand(const moUndoString& text);

    /// \param parent  null means the composite being composed, if any.
    moMultiCommand(const moUndoString& text, QUndoCommand* parent);

    /// \param parent        not used, and that is intended: the parent is always the composite being composed, if any.
    /// \param mergeEnabled  whether newer composites may be merged into this one.
    moMultiCommand(const moUndoString& text, QUndoCommand* parent, bool mergeEnabled);

    /// \param after  called after the children were done and after they were undone; may be empty. Not called when a
    ///               child threw and the others were taken back: nothing happened that it could be told of.
    moMultiCommand(const moUndoString& text, std::function<void()> after);

    ~moMultiCommand() override;

    void undo() override;
    void redo() override;

    /// Takes over the newer composite's text; the description stays.
    bool mergeWith(const QUndoCommand* other) override;

    void makeMessage(moMessage& message) const override;

    /// Here the older composite's own flag decides, unlike in moUndoCommand.
    bool canMergeWith(const QUndoCommand* other) const override;

    virtual void setMergeEnabled(bool enabled);
    virtual bool isMergeEnabled() const;

    /// Whether the command is a direct child of this one.
    bool hasChild(const QUndoCommand* command) const;

private:
    QUndoCommand* childAt(int index) const;

    std::function<void()> m_after;
    bool m_mergeEnabled = true;
};
