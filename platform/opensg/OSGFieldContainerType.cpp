#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNode.h>

#include <algorithm>

namespace osg {

FieldContainerType::FieldContainerType(const Char8* name, const Char8* parentName, const Char8* groupName,
                                       PrototypeCreateMethod create, InitMethod init, DescribeMethod describe)
    : DataType(name, parentName),
      m_groupId(FieldContainerFactory::the()->registerGroup(groupName)),
      m_create(create),
      m_init(init),
      m_describe(describe)
{
    FieldContainerFactory::the()->registerType(*this);
}

FieldContainerType::~FieldContainerType()
{
    FieldContainerFactory::the()->unregisterType(*this);
}

bool FieldContainerType::isDerivedFrom(const FieldContainerType& other) const
{
    const FieldContainerType* type = this;
    while (type && *type != other)
        type = type->m_parent;
    return type != nullptr;
}

bool FieldContainerType::isNode() const
{
    return isDerivedFrom(Node::getClassType());
}

bool FieldContainerType::isNodeCore() const
{
    return isDerivedFrom(NodeCore::getClassType());
}

bool FieldContainerType::isAttachment() const
{
    return isDerivedFrom(Attachment::getClassType());
}

FieldDescription* FieldContainerType::findFieldDescription(const Char8* name)
{
    const auto found = m_idsByName.find(std::string_view(name ? name : ""));
    return found == m_idsByName.end() ? nullptr : getFieldDescription(found->second);
}

const FieldDescription* FieldContainerType::findFieldDescription(const Char8* name) const
{
    const auto found = m_idsByName.find(std::string_view(name ? name : ""));
    return found == m_idsByName.end() ? nullptr : getFieldDescription(found->second);
}

FieldContainerPtr FieldContainerType::createFieldContainer() const
{
    return m_prototype ? m_prototype->shallowCopy() : FieldContainerPtr();
}

NodePtr FieldContainerType::createNode() const
{
    return isNode() ? NodePtr::dcast(createFieldContainer()) : NodePtr();
}

NodeCorePtr FieldContainerType::createNodeCore() const
{
    return isNodeCore() ? NodeCorePtr::dcast(createFieldContainer()) : NodeCorePtr();
}

AttachmentPtr FieldContainerType::createAttachment() const
{
    return isAttachment() ? AttachmentPtr::dcast(createFieldContainer()) : AttachmentPtr();
}

bool FieldContainerType::initialize()
{
    if (m_initialized) return true;
    if (getCParentName()) {
        FieldContainerType* const parent = FieldContainerFactory::the()->findType(getCParentName());
        if (!parent || !parent->initialize()) return false;
        m_parent = parent;
        m_descriptions = parent->m_descriptions;
    }
    if (m_describe) {
        for (FieldDescription& description : m_describe())
            m_descriptions.push_back(description);
    }
    if (std::any_of(m_descriptions.begin(), m_descriptions.end(),
                    [](const FieldDescription& description) { return *description.getCName() == '\0'; })) {
        SWARNING << getCName() << " has a field without a name: the type stays uninitialised" << std::endl;
        m_descriptions.clear();
        return false;
    }
    if (m_descriptions.size() >= 64) SWARNING << getCName() << " has more fields than a mask has bits" << std::endl;
    for (const FieldDescription& description : m_descriptions)
        m_idsByName.emplace(description.getCName(), description.getFieldId());
    m_initialized = true;
    if (m_create) setPrototype(m_create());
    if (m_init) m_init();
    return true;
}

void FieldContainerType::terminate()
{
    clearRefCP(m_prototype);
    m_idsByName.clear();
    m_descriptions.clear();
    m_parent = nullptr;
    m_initialized = false;
}

} // namespace osg
