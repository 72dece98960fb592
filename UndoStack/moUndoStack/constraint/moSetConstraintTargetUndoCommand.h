#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

/// Makes a scene object the target of a constraint.
///
/// \param constraint  null makes the command inert.
/// \param target      the scene object; null makes redo take the target away.
///
/// A target that it is already is made anew, with the weight 1.
/// Old value: none is kept; undo leaves the constraint without a target, also when it had another one before. A
/// constraint or scene object that was destroyed or is of another type makes the step a no-op. Never merges. Message: "id"
/// only.
class MO_UNDO_STACK_EXPORT moSetConstraintTargetUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    moSetConstraintTargetUndoCommand(osg::AbstractConstraintPtr constraint, const osg::AttachmentContainerPtr& target,
                                     QUndoCommand* parent);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(unsigned int targetId);

    unsigned int m_constraintId;
    unsigned int m_targetId;
};
