#include <moUndoStack/constraint/moSetConstraintTargetUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moUndoUtils/moUndoString.h>

MO_UNDO_COMMAND_ID_IMPL(moSetConstraintTargetUndoCommand)

moSetConstraintTargetUndoCommand::moSetConstraintTargetUndoCommand(osg::AbstractConstraintPtr constraint,
                                                                   const osg::AttachmentContainerPtr& target,
                                                                   QUndoCommand* parent)
    : moUndoCommand(moUndoString("Set Constraint Target", QString()), parent),
      m_constraintId(containerId(constraint)),
      m_targetId(containerId(target))
{
}

void moSetConstraintTargetUndoCommand::undo()
{
    // Intended: the command keeps no old value. See docs/oddities.md#the-target-before.
    apply(0);
}

void moSetConstraintTargetUndoCommand::redo()
{
    apply(m_targetId);
}

void moSetConstraintTargetUndoCommand::apply(unsigned int targetId)
{
    moStep::run([this, targetId] {
        const auto constraint = findContainer<osg::AbstractConstraintPtr>(m_constraintId);
        if (constraint == osg::NullFC) return;
        const auto target = findContainer<osg::AttachmentContainerPtr>(targetId);
        if (targetId != 0 && target == osg::NullFC) return;

        // If createTarget() fails, the target stays as it was.
        const ContainerEdit edit(constraint, osg::AbstractConstraintBase::TargetFieldMask);
        moStep::writeThroughSibling([&] {
            if (target != osg::NullFC)
                constraint->createTarget(target);
            else
                constraint->setTarget(osg::NullFC);
        });
    });
}
