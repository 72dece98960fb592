#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/material/moContainerTouch.h>

#include <memory>

/// Base of the commands that wrap one field command and know the two containers that the edit is about: a component (a
/// colour component, or the settings of all of them) and its owner (what that belongs to).
///
/// Who runs the field command is settled at construction. One without a parent is owned, run and deleted by its wrapper;
/// its changed callback is not called then, the wrapper's is. One that has a parent already, which it gets when it is
/// made while a composition is open, stays with that parent, which runs and deletes it: the wrapper then does not run
/// it, too. Its notify function stays the caller's in both cases and may be set before or after wrapping.
///
/// Merges with a newer command of the same class and the same two containers, made within its merge interval, when the
/// wrapped commands merge; the merging of values is theirs. Message: "id" (int), "container" (unsigned int), what the
/// field command writes.
class MO_UNDO_STACK_EXPORT moWrappedFieldUndoCommand : public moUndoCommand, protected moContainerTouch
{
public:
    ~moWrappedFieldUndoCommand() override;

    /// Merges the field command if the wrapper runs it.
    bool mergeWith(const QUndoCommand* other) override;
    /// Sets "id" and "container".
    void makeMessage(moMessage& message) const override;
    /// Asks for the same two containers and then the field commands.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// Who runs the field command.
    enum class RunBy
    {
        Wrapper,   ///< it has no parent
        ItsParent, ///< it has one
        Nobody     ///< it is null
    };

    /// \param command      the field command, owned from here on unless it has a parent; may be null.
    /// \param ownerId      container id, 0 for none.
    /// \param componentId  container id, 0 for none.
    /// \param parent       null means the composite being composed, if any.
    moWrappedFieldUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, unsigned int ownerId,
                              unsigned int componentId, QUndoCommand* parent);

    /// Settled at construction.
    RunBy runBy() const { return m_runBy; }
    /// The field command with RunBy::Wrapper, else null.
    moFieldBaseUndoCommand<>* ownCommand() const { return m_ownCommand.get(); }
    /// Container id of what the component belongs to; 0 for none.
    unsigned int ownerId() const { return m_ownerId; }
    /// Container id of the component; 0 for none.
    unsigned int componentId() const { return m_componentId; }

private:
    static RunBy whoRuns(const moFieldBaseUndoCommand<>* command);

    RunBy m_runBy;
    std::unique_ptr<moFieldBaseUndoCommand<>> m_ownCommand;
    unsigned int m_ownerId;
    unsigned int m_componentId;
    unsigned int m_fieldContainerId;
};
