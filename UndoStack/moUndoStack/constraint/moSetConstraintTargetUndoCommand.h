#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

/// Makes a scene object the target of a constraint.
///
/// If the scene object is the target already, a new constraint object with the weight 1 is made for it. If the
/// constraint or, at redo, the scene object was destroyed or is of another type, the step is a no-op.
///
/// Intended: no old value is kept. Undo leaves the constraint without a target, also if it had another one before: to
/// replace a target, compose this command with a moDeleteConstraintReferenceUndoCommand for the old one. See
/// docs/oddities.md#the-target-before.
///
/// Never merges. Message: "id" only.
class MO_UNDO_STACK_EXPORT moSetConstraintTargetUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param constraint  null makes the command inert.
    /// \param target      the scene object; null makes redo clear the target.
    /// \param parent      null means the composite being composed, if any.
    moSetConstraintTargetUndoCommand(osg::AbstractConstraintPtr constraint, const osg::AttachmentContainerPtr& target,
                                     QUndoCommand* parent);

    /// Clears the target.
    void undo() override;
    /// Sets the target.
    void redo() override;
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(unsigned int targetId);

    unsigned int m_constraintId;
    unsigned int m_targetId;
};
