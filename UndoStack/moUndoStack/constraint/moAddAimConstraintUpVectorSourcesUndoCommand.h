#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <vector>

/// Adds up-vector sources to an aim constraint, each with the weight 1.
///
/// \param constraint  null makes the command inert.
/// \param sources     the scene objects, added in this order; null entries are dropped.
/// \param parent      null means the composite being composed, if any.
///
/// Undo removes the up-vector sources by scene object, whatever weight they have by then; redo adds them with the
/// weight 1 again. An object that was one already only gets the weight 1, and undo removes it all the same. The edit is
/// announced as one of the sources field. A destroyed constraint or scene object, or one of another type, is skipped.
/// Never merges. Message: "id" only.
class MO_UNDO_STACK_EXPORT moAddAimConstraintUpVectorSourcesUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    moAddAimConstraintUpVectorSourcesUndoCommand(osg::AimConstraintPtr constraint,
                                                 const std::vector<osg::AttachmentContainerPtr>& sources,
                                                 QUndoCommand* parent);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(bool add);

    unsigned int m_constraintId;
    std::vector<unsigned int> m_sourceIds;
};
