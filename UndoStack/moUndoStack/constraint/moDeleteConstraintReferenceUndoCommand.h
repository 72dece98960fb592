#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include <memory>
#include <vector>

/// Removes scene objects from every role that they have in a constraint: source, up-vector source, target.
///
/// If the target is among them, redo clears the target that the constraint has by then. A role that none of them has is
/// not edited. If the constraint was destroyed, the step is a no-op.
///
/// Old value: the constraint objects, with their weights, are found at construction. The command holds a reference on
/// each, and undo puts these same constraint objects back. Intended: it puts them at the end of their list, in the
/// order of their ids, because the command remembers no position. See
/// docs/oddities.md#the-order-of-removed-constraint-objects.
///
/// Never merges. Message: "id" only.
class MO_UNDO_STACK_EXPORT moDeleteConstraintReferenceUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param constraint  null makes the command inert.
    /// \param references  the scene objects; null ones, repeated ones and those that have no role are ignored.
    /// \param parent      null means the composite being composed, if any.
    moDeleteConstraintReferenceUndoCommand(osg::AbstractConstraintPtr constraint,
                                           const std::vector<osg::AttachmentContainerPtr>& references,
                                           QUndoCommand* parent);
    ~moDeleteConstraintReferenceUndoCommand() override;

    /// Puts the constraint objects back.
    void undo() override;
    /// Removes the constraint objects.
    void redo() override;
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    struct Roles;

    void init(const osg::AbstractConstraintPtr& constraint, const std::vector<osg::AttachmentContainerPtr>& references);
    void step(bool remove);
    void apply(bool remove);

    unsigned int m_constraintId;
    std::unique_ptr<Roles> m_roles;
};
