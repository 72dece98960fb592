#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGLog.h>

#include <algorithm>
#include <cstring>

namespace osg {

FieldContainerFactory* FieldContainerFactory::s_the = nullptr;

FieldContainerFactory* FieldContainerFactory::create()
{
    s_the = new FieldContainerFactory;
    return s_the;
}

FieldContainerType* FieldContainerFactory::findType(UInt32 id) const
{
    const auto found = m_typesById.find(id);
    return found == m_typesById.end() ? nullptr : found->second;
}

FieldContainerType* FieldContainerFactory::findType(const Char8* name) const
{
    const auto found = m_typesByName.find(std::string_view(name ? name : ""));
    return found == m_typesByName.end() ? nullptr : found->second;
}

FieldContainerType* FieldContainerFactory::findUninitializedType(const Char8* name) const
{
    FieldContainerType* const type = findType(name);
    return type && !type->isInitialized() ? type : nullptr;
}

UInt16 FieldContainerFactory::findGroupId(const Char8* name) const
{
    const auto found = std::find(m_groups.begin(), m_groups.end(), name ? name : "");
    return found == m_groups.end() ? UInt16(0) : static_cast<UInt16>(found - m_groups.begin() + 1);
}

const Char8* FieldContainerFactory::findGroupName(UInt16 id) const
{
    return id > 0 && id <= m_groups.size() ? m_groups[id - 1u].c_str() : nullptr;
}

FieldContainerPtr FieldContainerFactory::createFieldContainer(const Char8* typeName) const
{
    const FieldContainerType* const type = findType(typeName);
    return type ? type->createFieldContainer() : FieldContainerPtr();
}

NodePtr FieldContainerFactory::createNode(const Char8* typeName) const
{
    const FieldContainerType* const type = findType(typeName);
    return type ? type->createNode() : NodePtr();
}

NodeCorePtr FieldContainerFactory::createNodeCore(const Char8* typeName) const
{
    const FieldContainerType* const type = findType(typeName);
    return type ? type->createNodeCore() : NodeCorePtr();
}

AttachmentPtr FieldContainerFactory::createAttachment(const Char8* typeName) const
{
    const FieldContainerType* const type = findType(typeName);
    return type ? type->createAttachment() : AttachmentPtr();
}

UInt32 FieldContainerFactory::registerFieldContainer(FieldContainer& container)
{
    m_store.push_back(FieldContainerPtr(container));
    return static_cast<UInt32>(m_store.size() - 1);
}

void FieldContainerFactory::unregisterFieldContainer(UInt32 id)
{
    m_store[id] = NullFC;
}

void FieldContainerFactory::registerType(FieldContainerType& type)
{
    if (!m_typesByName.emplace(type.getCName(), &type).second) {
        SWARNING << "a second container type " << type.getCName() << " stays unknown" << std::endl;
        return;
    }
    m_typesById.emplace(type.getId(), &type);
    m_types.push_back(&type);
}

void FieldContainerFactory::unregisterType(FieldContainerType& type)
{
    const auto found = std::find(m_types.begin(), m_types.end(), &type);
    if (found == m_types.end()) return;
    type.terminate();
    m_types.erase(found);
    m_typesById.erase(type.getId());
    m_typesByName.erase(type.getCName());
}

UInt16 FieldContainerFactory::registerGroup(const Char8* name)
{
    if (const UInt16 known = findGroupId(name)) return known;
    m_groups.emplace_back(name);
    return getNumGroups();
}

bool FieldContainerFactory::initialize()
{
    m_initialized = true;
    return initializePendingTypes();
}

bool FieldContainerFactory::initializePendingTypes()
{
    if (!m_initialized) return false;
    bool all = true;
    for (std::size_t i = 0; i < m_types.size(); ++i)
        all = m_types[i]->initialize() && all;
    return all;
}

void FieldContainerFactory::terminate()
{
    for (auto type = m_types.rbegin(); type != m_types.rend(); ++type)
        (*type)->terminate();
    m_initialized = false;
}

} // namespace osg
