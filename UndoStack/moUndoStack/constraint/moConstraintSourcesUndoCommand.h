#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <type_traits>
#include <vector>

/// Base of the commands that add sources of one kind to a constraint, each with the weight 1.
///
/// Undo removes the sources by scene object, whatever weight they have by then; redo adds them with the weight 1 again.
/// An object that was a source already only gets the weight 1, and undo removes it all the same. The edit is announced
/// as one of the sources field. A destroyed constraint or scene object, or one of another type, is skipped. Never
/// merges. Message: "id" only. For the library's own rows: a command of yours derives from moUndoCommand.
template<class ConstraintPtr>
class moConstraintSourcesUndoCommand : public moUndoCommand
{
    static_assert(std::is_same_v<ConstraintPtr, osg::AbstractConstraintPtr> ||
                      std::is_same_v<ConstraintPtr, osg::AimConstraintPtr>,
                  "moConstraintSourcesUndoCommand is for the library's own commands: derive from moUndoCommand");

public:
    /// Removes the sources.
    void undo() override;
    /// Adds the sources.
    void redo() override;
    /// Never.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

protected:
    /// Text, and what adds and removes a source, of one command.
    struct Row;

    /// \param row  outlives the command.
    moConstraintSourcesUndoCommand(const Row& row, const ConstraintPtr& constraint,
                                   const std::vector<osg::AttachmentContainerPtr>& sources, QUndoCommand* parent);

private:
    void apply(bool add);

    const Row& m_row;
    unsigned int m_constraintId;
    std::vector<unsigned int> m_sourceIds;
};

extern template class MO_UNDO_STACK_EXPORT moConstraintSourcesUndoCommand<osg::AbstractConstraintPtr>;
extern template class MO_UNDO_STACK_EXPORT moConstraintSourcesUndoCommand<osg::AimConstraintPtr>;
