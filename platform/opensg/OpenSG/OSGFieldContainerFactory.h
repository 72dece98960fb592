#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace osg {

/// Knows every container by its id and every container type by its name. Main thread only; never destroyed.
///
/// Ids count up from 1 in the order of creation, prototypes included, and are never used again.
class OSG_BASELIB_DLLMAPPING FieldContainerFactory
{
public:
    typedef std::vector<FieldContainerPtr> FieldContainerStore;
    typedef std::map<UInt32, FieldContainerType*> TypeIdMap;
    typedef TypeIdMap::iterator TypeIdMapIt;

    static FieldContainerFactory* the() { return s_the ? s_the : create(); }

    /// Null for 0, for an id not given yet, and for a destroyed container (already inside its onDestroy).
    FieldContainerPtr getContainer(UInt32 id) const { return id < m_store.size() ? m_store[id] : FieldContainerPtr(); }
    /// Indexed by id; a destroyed container's place stays null.
    const FieldContainerStore* getFieldContainerStore() const { return &m_store; }

    /// Null if unknown.
    FieldContainerType* findType(UInt32 id) const;
    FieldContainerType* findType(const Char8* name) const;
    FieldContainerType* findUninitializedType(const Char8* name) const;
    UInt32 getNumTypes() const { return static_cast<UInt32>(m_typesById.size()); }
    TypeIdMapIt beginTypes() { return m_typesById.begin(); }
    TypeIdMapIt endTypes() { return m_typesById.end(); }
    /// Makes the types usable that came after osgInit; false when one has no parent type yet, or osgInit was not
    /// called.
    bool initializePendingTypes();

    /// 0 if unknown.
    UInt16 findGroupId(const Char8* name) const;
    /// Null if unknown.
    const Char8* findGroupName(UInt16 id) const;
    UInt16 getNumGroups() const { return static_cast<UInt16>(m_groups.size()); }

    // Null for an unknown or abstract type.
    FieldContainerPtr createFieldContainer(const Char8* typeName) const;
    NodePtr createNode(const Char8* typeName) const;
    NodeCorePtr createNodeCore(const Char8* typeName) const;
    AttachmentPtr createAttachment(const Char8* typeName) const;

protected:
    friend class FieldContainer;
    friend class FieldContainerPtrBase;
    friend class FieldContainerType;
    friend bool osgInit(Int32, Char8**, UInt16, UInt16, UInt16, bool, bool, bool);
    friend bool osgExit();

    UInt32 registerFieldContainer(FieldContainer& container);
    void unregisterFieldContainer(UInt32 id);
    void registerType(FieldContainerType& type);
    void unregisterType(FieldContainerType& type);
    UInt16 registerGroup(const Char8* name);
    bool initialize();
    void terminate();

private:
    FieldContainerFactory() : m_store(1) {}
    static FieldContainerFactory* create();

    static FieldContainerFactory* s_the;

    FieldContainerStore m_store;
    bool m_initialized = false;
    std::vector<FieldContainerType*> m_types;
    TypeIdMap m_typesById;
    std::map<std::string_view, FieldContainerType*> m_typesByName;
    std::vector<std::string> m_groups;
};

} // namespace osg
