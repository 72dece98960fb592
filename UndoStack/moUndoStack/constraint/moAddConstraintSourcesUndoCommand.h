#pragma once

#include <moUndoStack/constraint/moConstraintSourcesUndoCommand.h>

/// Adds sources to a constraint, each with the weight 1. See moConstraintSourcesUndoCommand.
class MO_UNDO_STACK_EXPORT moAddConstraintSourcesUndoCommand
    : public moConstraintSourcesUndoCommand<osg::AbstractConstraintPtr>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param constraint  null makes the command inert.
    /// \param sources     the scene objects, added in this order; null ones are ignored.
    /// \param parent      null means the composite being composed, if any.
    moAddConstraintSourcesUndoCommand(osg::AbstractConstraintPtr constraint,
                                      const std::vector<osg::AttachmentContainerPtr>& sources, QUndoCommand* parent);
};
