#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/material/moContainerTouch.h>

#include <memory>

/// Base of the commands that wrap one field command and know the two containers that the edit is about.
///
/// The wrapped command is owned and deleted with its wrapper; its changed callback is not called then, the wrapper's is.
/// One that has a parent already, which it gets when it is made while a composition is open, stays with that parent,
/// which runs and deletes it: the wrapper then does not run it, too. Its notify function stays the caller's in both
/// cases and may be set before or after wrapping.
///
/// Merges with a newer command of the same class and the same two containers, made within its merge interval, when the
/// wrapped commands merge; the merging of values is theirs.
class MO_UNDO_STACK_EXPORT moWrappedFieldUndoCommand : public moUndoCommand, protected moContainerTouch
{
public:
    ~moWrappedFieldUndoCommand() override;

    bool mergeWith(const QUndoCommand* other) override;
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    moWrappedFieldUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, unsigned int firstId,
                              unsigned int secondId, QUndoCommand* parent);

    /// The wrapped command; null when there is none or it stays with its parent.
    moFieldBaseUndoCommand<>* wrapped() const { return m_wrapped.get(); }
    unsigned int firstId() const { return m_firstId; }
    unsigned int secondId() const { return m_secondId; }

    /// Sets "container", the wrapped command's container, and the two ids under the given keys unless they are 0.
    void setContainerKeys(moMessage& message, const char* firstKey, const char* secondKey) const;

private:
    std::unique_ptr<moFieldBaseUndoCommand<>> m_wrapped;
    unsigned int m_firstId;
    unsigned int m_secondId;
    unsigned int m_wrappedContainerId;
};
