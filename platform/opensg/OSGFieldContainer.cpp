#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>

#include <ostream>

namespace osg {

namespace {

FieldContainerType s_type("FieldContainer", nullptr, "FieldContainer");

} // namespace

FieldContainerType& FieldContainer::getClassType()
{
    return s_type;
}

UInt32 FieldContainer::getClassTypeId()
{
    return s_type.getId();
}

UInt16 FieldContainer::getClassGroupId()
{
    return s_type.getGroupId();
}

FieldContainer::FieldContainer() : m_id(FieldContainerFactory::the()->registerFieldContainer(*this))
{
    Thread::getCurrentChangeList()->addCreated(m_id);
}

FieldContainer::FieldContainer(const FieldContainer&) : FieldContainer() {}

FieldContainer::~FieldContainer()
{
    // Registered still if a derived constructor threw.
    FieldContainerFactory::the()->unregisterFieldContainer(m_id);
}

UInt32 FieldContainer::getTypeId() const
{
    return getType().getId();
}

UInt16 FieldContainer::getGroupId() const
{
    return getType().getGroupId();
}

const Char8* FieldContainer::getTypeName() const
{
    return getType().getCName();
}

Field* FieldContainer::getField(UInt32 fieldId)
{
    const FieldDescription* const description = getType().getFieldDescription(fieldId);
    return description ? description->getField(*this) : nullptr;
}

Field* FieldContainer::getField(const Char8* fieldName)
{
    const FieldDescription* const description = getType().findFieldDescription(fieldName);
    return description ? description->getField(*this) : nullptr;
}

void FieldContainer::changed(BitVector, UInt32) {}

void FieldContainer::onDestroy() {}

void FieldContainer::destroy()
{
    // References that come and go meanwhile must not destroy it again.
    m_dying = true;
    Thread::getCurrentChangeList()->addDestroyed(m_id);
    FieldContainerFactory::the()->unregisterFieldContainer(m_id);
    onDestroy();
    delete this;
}

std::ostream& operator<<(std::ostream& stream, const FieldContainerPtrBase& handle)
{
    if (!handle) return stream << "null";
    return stream << handle.getBaseCPtr()->getTypeName() << ' ' << handle.getFieldContainerId();
}

} // namespace osg
