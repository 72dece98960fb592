#include <moOpenSGConstraint/OSGConstraintObject.h>

#include <OpenSG/OSGFieldContainerFactory.h>

namespace osg {

OSG_CONTAINER_IMPL(ConstraintObject, AttachmentContainer, OSG_CONSTRAINTOBJECT_FIELDS)

ConstraintObjectPtr ConstraintObject::createFor(const AttachmentContainerPtr& object, Real32 weight)
{
    const ConstraintObjectPtr created = ConstraintObject::create();
    beginEditCP(created, ObjectIdFieldMask | WeightFieldMask);
    created->setObject(object);
    created->setWeight(weight);
    endEditNotChangedCP(created, ObjectIdFieldMask | WeightFieldMask);
    return created;
}

AttachmentContainerPtr ConstraintObject::getObject() const
{
    return AttachmentContainerPtr::dcast(FieldContainerFactory::the()->getContainer(getObjectId()));
}

void ConstraintObject::setObject(const AttachmentContainerPtr& object)
{
    setObjectId(object == NullFC ? 0 : object.getFieldContainerId());
}

} // namespace osg
