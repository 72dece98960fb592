#include <Scenarios.h>

#include <moUndoStack/constraint/moSetConstraintTargetUndoCommand.h>

#include <moOpenSGConstraint/OSGTransformConstraint.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

namespace {

using namespace bench;

template<class Ptr>
Ptr found(unsigned int id)
{
    return Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

class Constraint
{
protected:
    osg::AbstractConstraintPtr constraint() const { return m_constraint.get(); }
    osg::NodePtr target() const { return m_target.get(); }

private:
    const osg::RefPtr<osg::TransformConstraintPtr> m_constraint{osg::TransformConstraint::create()};
    const osg::NodeRefPtr m_target{osg::Node::create()};
};

/// Redo gives the constraint its target, undo takes it away.
class BareTarget : public QUndoCommand
{
public:
    BareTarget(const osg::AbstractConstraintPtr& constraint, const osg::NodePtr& target, QUndoCommand* parent)
        : QUndoCommand(QStringLiteral("Set Constraint Target"), parent),
          m_constraintId(constraint.getFieldContainerId()),
          m_targetId(target.getFieldContainerId())
    {
    }

    void undo() override
    {
        const auto constraint = found<osg::AbstractConstraintPtr>(m_constraintId);
        if (constraint == osg::NullFC) return;
        const osg::CPEditor edit(constraint, osg::AbstractConstraintBase::TargetFieldMask);
        constraint->setTarget(osg::NullFC);
    }
    void redo() override
    {
        const auto constraint = found<osg::AbstractConstraintPtr>(m_constraintId);
        const auto target = found<osg::AttachmentContainerPtr>(m_targetId);
        if (constraint == osg::NullFC || target == osg::NullFC) return;
        const osg::CPEditor edit(constraint, osg::AbstractConstraintBase::TargetFieldMask);
        constraint->createTarget(target);
    }

private:
    unsigned int m_constraintId;
    unsigned int m_targetId;
};

struct Ours : Constraint
{
    QUndoCommand* operator()(int, QUndoCommand*) const
    {
        return new moSetConstraintTargetUndoCommand(constraint(), target(), nullptr);
    }
};
struct Bare : Constraint
{
    QUndoCommand* operator()(int, QUndoCommand* parent) const { return new BareTarget(constraint(), target(), parent); }
};

const Comparisons s_comparisons([] { compareCommands<Ours, Bare>("constraint/target"); });

} // namespace
