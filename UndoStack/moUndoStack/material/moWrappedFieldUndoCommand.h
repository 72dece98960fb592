#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/material/moContainerTouch.h>

#include <memory>

/// Base of the commands that wrap one field command and know the two containers that the edit is about: a component (a
/// colour component, or the settings of all of them) and its owner.
///
/// It is decided at construction what runs the field command:
///  - A field command without a parent is owned, run and deleted by its wrapper. Its changed callback is not called;
///    the wrapper's is.
///  - A field command with a parent, e.g. one made while composing, is run and deleted by that parent, and the wrapper
///    does not run it. Intended: a command has one owner, and a child cannot be taken from its parent. See
///    docs/oddities.md#a-wrapped-command-may-belong-to-somebody-else.
///
/// The field command's notify function is called in both cases and may be set before or after wrapping.
///
/// Merges with a newer command of the same class and the same two containers, made within its merge interval, if the
/// field commands merge, which merge the values. Message: "id" (int), "container" (unsigned int), the container that
/// the field command edits.
class MO_UNDO_STACK_EXPORT moWrappedFieldUndoCommand : public moUndoCommand, protected moContainerTouch
{
public:
    ~moWrappedFieldUndoCommand() override;

    /// Merges the field command if the wrapper runs it.
    bool mergeWith(const QUndoCommand* other) override;
    /// Sets "id" and "container".
    void makeMessage(moMessage& message) const override;
    /// Asks for the same two containers, too, and then the field commands.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// What runs the field command.
    enum class RunBy
    {
        Wrapper,   ///< it has no parent
        ItsParent, ///< it has one
        Nobody     ///< it is null
    };

    /// \param command      the field command, owned by this command unless it has a parent; may be null.
    /// \param ownerId      container id, 0 for none.
    /// \param componentId  container id, 0 for none.
    /// \param parent       null means the composite being composed, if any.
    moWrappedFieldUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command, unsigned int ownerId,
                              unsigned int componentId, QUndoCommand* parent);

    /// What runs the field command; decided at construction.
    RunBy runBy() const { return m_runBy; }
    /// The field command if the wrapper runs it, else null.
    moFieldBaseUndoCommand<>* ownCommand() const { return m_ownCommand.get(); }
    /// Container id of the component's owner; 0 for none.
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
