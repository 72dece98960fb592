#include <moUndoStack/constraint/moDeleteConstraintReferenceUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>
#include <moUndoUtils/moUndoString.h>

#include <map>

MO_UNDO_COMMAND_ID_IMPL(moDeleteConstraintReferenceUndoCommand)

namespace {

// Sorted by id: an object that is found twice is held once. Intended: undo adds them in this order. See
// docs/oddities.md#the-order-of-removed-constraint-objects.
using HeldObjects = std::map<unsigned int, ContainerReference>;

void hold(HeldObjects& objects, const osg::ConstraintObjectPtr& object)
{
    if (object != osg::NullFC) objects.try_emplace(containerId(object), object);
}

template<class ConstraintPtr>
using ObjectEdit = void (ConstraintPtr::StoredObjectType::*)(osg::ConstraintObjectPtr);

template<class ConstraintPtr>
void editObjects(unsigned int constraintId, osg::BitVector mask, const HeldObjects& objects,
                 ObjectEdit<ConstraintPtr> edit)
{
    const auto constraint = findContainer<ConstraintPtr>(constraintId);
    if (constraint == osg::NullFC || objects.empty()) return;
    const ContainerEdit bracket(constraint, mask);
    for (const auto& entry : objects)
        if (const auto object = entry.second.find<osg::ConstraintObjectPtr>())
            moStep::writeThroughSibling([&] { ((*constraint).*edit)(object); });
}

} // namespace

struct moDeleteConstraintReferenceUndoCommand::Roles
{
    HeldObjects sources;
    HeldObjects upVectors;
    ContainerReference target;
};

moDeleteConstraintReferenceUndoCommand::moDeleteConstraintReferenceUndoCommand(
    osg::AbstractConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr>& references,
    QUndoCommand* parent)
    : moUndoCommand(moUndoString("Remove References from Constraint", QString()), parent),
      m_constraintId(containerId(constraint)),
      m_roles(std::make_unique<Roles>())
{
    if (constraint != osg::NullFC) init(constraint, references);
}

moDeleteConstraintReferenceUndoCommand::~moDeleteConstraintReferenceUndoCommand() = default;

void moDeleteConstraintReferenceUndoCommand::undo()
{
    step(false);
}

void moDeleteConstraintReferenceUndoCommand::redo()
{
    step(true);
}

void moDeleteConstraintReferenceUndoCommand::step(bool remove)
{
    moStep::run([this, remove] {
        moStep::writeOrTakeBack([this, remove] { apply(remove); }, [this, remove] { apply(!remove); });
    });
}

void moDeleteConstraintReferenceUndoCommand::init(const osg::AbstractConstraintPtr& constraint,
                                                  const std::vector<osg::AttachmentContainerPtr>& references)
{
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    for (const osg::AttachmentContainerPtr& reference : references) {
        if (reference == osg::NullFC) continue;
        hold(m_roles->sources, constraint->findSourceConstraintObject(reference));
        if (constraint->hasTarget(reference)) m_roles->target = ContainerReference(constraint->getTarget());
        if (aim != osg::NullFC) hold(m_roles->upVectors, aim->findUpVectorConstraintObject(reference));
    }
}

void moDeleteConstraintReferenceUndoCommand::apply(bool remove)
{
    using Constraint = osg::AbstractConstraint;
    using Aim = osg::AimConstraint;

    // Each edit looks the constraint up again: a listener to the one before may have destroyed it.
    editObjects<osg::AbstractConstraintPtr>(m_constraintId, Constraint::SourcesFieldMask, m_roles->sources,
                                            remove ? &Constraint::removeSourceObject : &Constraint::addSourceObject);
    editObjects<osg::AimConstraintPtr>(m_constraintId, Aim::UpVectorSourcesFieldMask, m_roles->upVectors,
                                       remove ? &Aim::removeUpVectorObject : &Aim::addUpVectorObject);

    const auto constraint = findContainer<osg::AbstractConstraintPtr>(m_constraintId);
    const auto target = m_roles->target.find<osg::ConstraintObjectPtr>();
    if (constraint == osg::NullFC || target == osg::NullFC) return;
    const ContainerEdit edit(constraint, Constraint::TargetFieldMask);
    moStep::writeThroughSibling([&] { constraint->setTarget(remove ? osg::ConstraintObjectPtr() : target); });
}
