#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGFieldDescription.h>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace osg {

/// The type of a container class: one static object per class, which registers itself with the FieldContainerFactory.
///
/// Until osgInit (or FieldContainerFactory::initializePendingTypes for a type that comes later) it has no descriptions
/// and makes no containers.
class OSG_BASELIB_DLLMAPPING FieldContainerType : public DataType
{
public:
    typedef FieldContainerPtr (*PrototypeCreateMethod)();
    typedef void (*InitMethod)();
    typedef std::vector<FieldDescription> (*DescribeMethod)();

    /// \param parentName  null for the root.
    /// \param create      makes the prototype; null for an abstract class.
    /// \param init        called once the type is usable; may be null.
    /// \param describe    gives the class's own fields; may be null.
    FieldContainerType(const Char8* name, const Char8* parentName, const Char8* groupName,
                       PrototypeCreateMethod create = nullptr, InitMethod init = nullptr,
                       DescribeMethod describe = nullptr);
    ~FieldContainerType() override;

    UInt16 getGroupId() const { return m_groupId; }
    /// Null for the root, and before the type is initialised.
    FieldContainerType* getParent() const { return m_parent; }

    /// True for the type itself and its ancestors.
    bool isDerivedFrom(const FieldContainerType& other) const;
    /// Always false, also for an ancestor: intended, this overload has never answered anything else.
    bool isDerivedFrom(const TypeBase&) const { return false; }
    bool isAbstract() const { return !m_prototype; }
    bool isInitialized() const { return m_initialized; }
    bool isNode() const;
    bool isNodeCore() const;
    bool isAttachment() const;

    /// Ids count from 1 over the whole hierarchy, inherited fields first; any other id gives null.
    FieldDescription* getFieldDescription(UInt32 fieldId)
    {
        return fieldId - 1 < m_descriptions.size() ? &m_descriptions[fieldId - 1] : nullptr;
    }
    const FieldDescription* getFieldDescription(UInt32 fieldId) const
    {
        return fieldId - 1 < m_descriptions.size() ? &m_descriptions[fieldId - 1] : nullptr;
    }
    /// The exact name, inherited fields included; null if there is none.
    FieldDescription* findFieldDescription(const Char8* name);
    const FieldDescription* findFieldDescription(const Char8* name) const;
    UInt32 getNumFieldDescs() const { return static_cast<UInt32>(m_descriptions.size()); }

    FieldContainerPtr getPrototype() const { return m_prototype; }
    /// Holds a reference on the prototype.
    void setPrototype(const FieldContainerPtr& prototype) { setRefdCP(m_prototype, prototype); }

    /// A copy of the prototype; null for an abstract type, or one of another kind.
    FieldContainerPtr createFieldContainer() const;
    NodePtr createNode() const;
    NodeCorePtr createNodeCore() const;
    AttachmentPtr createAttachment() const;

private:
    friend class FieldContainerFactory;

    bool initialize();
    void terminate();

    UInt16 m_groupId;
    bool m_initialized = false;
    FieldContainerType* m_parent = nullptr;
    FieldContainerPtr m_prototype;
    PrototypeCreateMethod m_create;
    InitMethod m_init;
    DescribeMethod m_describe;
    std::vector<FieldDescription> m_descriptions;
    std::unordered_map<std::string_view, UInt32> m_idsByName;
};

} // namespace osg
