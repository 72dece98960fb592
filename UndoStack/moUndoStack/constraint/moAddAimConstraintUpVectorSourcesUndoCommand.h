#pragma once

#include <moUndoStack/constraint/moConstraintSourcesUndoCommand.h>

/// Adds up-vector sources to an aim constraint, each with the weight 1. See moConstraintSourcesUndoCommand.
///
/// Intended: the edit is announced as one of the field `sources`, so that one listener serves both kinds of source. See
/// docs/oddities.md#up-vector-sources-are-announced-as-sources.
class MO_UNDO_STACK_EXPORT moAddAimConstraintUpVectorSourcesUndoCommand
    : public moConstraintSourcesUndoCommand<osg::AimConstraintPtr>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param constraint  null makes the command inert.
    /// \param sources     the scene objects, added in this order; null ones are ignored.
    /// \param parent      null means the composite being composed, if any.
    moAddAimConstraintUpVectorSourcesUndoCommand(osg::AimConstraintPtr constraint,
                                                 const std::vector<osg::AttachmentContainerPtr>& sources,
                                                 QUndoCommand* parent);
};
