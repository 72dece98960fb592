#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include <memory>
#include <vector>

/// Takes scene objects out of every role that they play in a constraint: source, up-vector source, target.
///
/// \param constraint  null makes the command inert.
/// \param references  the scene objects; null, repeated and unconcerned ones are ignored.
///
/// A target among them takes away whichever target the constraint has at redo.
/// Old value: the constraint's own constraint objects, with their weights, are found at construction and held for the
/// life of the command; undo puts these very objects back, at the end of the lists and in the order of their ids. A
/// constraint that was destroyed makes undo and redo no-ops; a role that none of the objects plays is not edited. Never
/// merges. Message: "id" only.
class MO_UNDO_STACK_EXPORT moDeleteConstraintReferenceUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    moDeleteConstraintReferenceUndoCommand(osg::AbstractConstraintPtr constraint,
                                           const std::vector<osg::AttachmentContainerPtr>& references,
                                           QUndoCommand* parent);
    ~moDeleteConstraintReferenceUndoCommand() override;

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    struct Roles;

    void init(const osg::AbstractConstraintPtr& constraint, const std::vector<osg::AttachmentContainerPtr>& references);
    void step(bool remove);
    void apply(bool remove);

    unsigned int m_constraintId;
    std::unique_ptr<Roles> m_roles;
};
