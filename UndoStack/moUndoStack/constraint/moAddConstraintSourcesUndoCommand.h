#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include <vector>

/// Adds sources to a constraint, each with the weight 1.
///
/// \param constraint  null makes the command inert.
/// \param sources     the scene objects, added in this order; null entries are dropped.
/// \param parent      null means the composite being composed, if any.
///
/// Undo removes the sources by scene object, whatever weight they have by then; redo adds them with the weight 1 again.
/// An object that was a source already only gets the weight 1, and undo removes it all the same.
/// A destroyed constraint or scene object, or one of another type, is skipped. Never merges. Message: "id" only.
class MO_UNDO_STACK_EXPORT moAddConstraintSourcesUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    moAddConstraintSourcesUndoCommand(osg::AbstractConstraintPtr constraint,
                                      const std::vector<osg::AttachmentContainerPtr>& sources, QUndoCommand* parent);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(bool add);

    unsigned int m_constraintId;
    std::vector<unsigned int> m_sourceIds;
};
