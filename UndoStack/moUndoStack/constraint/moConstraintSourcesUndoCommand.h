#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <type_traits>
#include <vector>

/// Base of the commands that add sources of one kind to a constraint, each with the weight 1.
///
/// The edit is announced as one of the field `sources`. If the constraint was destroyed or is of another type, the step
/// is a no-op; scene objects that were destroyed are skipped. Never merges. Message: "id" only.
///
/// Intended: undo removes the sources by scene object, whatever their weight is by then, and redo adds them with the
/// weight 1 again. A scene object that was a source before gets the weight 1, and undo removes it, too. The command
/// knows its sources by scene object, not by constraint object. See docs/oddities.md#weights-and-earlier-sources.
///
/// For the library's own rows: a command of yours derives from moUndoCommand.
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
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

protected:
    /// The text of one command and the functions that add and remove a source.
    struct Row;

    /// \param row     must outlive the command.
    /// \param parent  null means the composite being composed, if any.
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
