#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGThread.h>

#include <typeinfo>

namespace osg {

class FieldContainerType;

/// The base of everything in the scene: an object with an id, a count and described fields, reached through handles.
///
/// A container has one object. Implementations with several aspects keep one object per aspect, and handles choose by
/// thread; here there is the one aspect 0, and all access is from the main thread.
class OSG_BASELIB_DLLMAPPING FieldContainer
{
public:
    enum : UInt32
    {
        NextFieldId = 1
    };

    FieldContainer& operator=(const FieldContainer&) = delete;

    static FieldContainerType& getClassType();
    static UInt32 getClassTypeId();
    static UInt16 getClassGroupId();

    virtual FieldContainerType& getType() = 0;
    virtual const FieldContainerType& getType() const = 0;
    UInt32 getTypeId() const;
    UInt16 getGroupId() const;
    const Char8* getTypeName() const;
    /// sizeof
    virtual UInt32 getContainerSize() const = 0;

    /// Null for an unknown id or name. The field lives as long as the container.
    Field* getField(UInt32 fieldId);
    Field* getField(const Char8* fieldName);

    /// A new container with the count 0 and the same field values; handles are copied without counting.
    virtual FieldContainerPtr shallowCopy() const = 0;

    /// Called at the end of every edit. An override calls its base class's.
    virtual void changed(BitVector whichField, UInt32 origin);

protected:
    FieldContainer();
    FieldContainer(const FieldContainer& source);
    virtual ~FieldContainer();

    /// Called once before the destructor, when the id gives null already.
    virtual void onDestroy();
    /// A class that declares a function of this name gets the call after its construction; source is null or what was
    /// copied.
    void onCreate(const FieldContainer* = nullptr) {}

    /// Makes result the handle of a new object of its class, which makes FieldContainer its friend.
    template<class HandleT>
    static void newPtr(HandleT& result)
    {
        auto* const object = new typename HandleT::StoredObjectType;
        object->onCreate();
        result = HandleT(object);
    }
    /// The same as a copy.
    template<class HandleT>
    static void newPtr(HandleT& result, const typename HandleT::StoredObjectType* source)
    {
        auto* const object = new typename HandleT::StoredObjectType(*source);
        object->onCreate(source);
        result = HandleT(object);
    }

    /// What a type table calls after its type is initialised; hidden by a class that has something to set up.
    static void initMethod() {}

private:
    friend class FieldContainerPtrBase;

    void destroy();

    UInt32 m_id;
    Int32 m_refCount = 0;
    bool m_dying = false;
};

template<class Self, class Base, class Object>
Self ContainerHandle<Self, Base, Object>::dcast(const FieldContainerPtrBase& handle)
{
    Self result;
    if (FieldContainer* const store = handle.getBaseCPtr()) {
        // The very class asked for is the usual case, and much cheaper to recognise than a derived one.
        if (&typeid(*store) == &typeid(Object) || dynamic_cast<const Object*>(store)) {
            result.m_store = store;
            result.setParentFieldPos(handle.getParentFieldPos());
        }
    }
    return result;
}

inline UInt32 FieldContainerPtrBase::getFieldContainerId() const
{
    return m_store->m_id;
}

inline Int32 FieldContainerPtrBase::getRefCount() const
{
    return m_store ? m_store->m_refCount : 0;
}

inline void FieldContainerPtrBase::addRef() const
{
    ++m_store->m_refCount;
    ChangeList& changes = *Thread::getCurrentChangeList();
    changes.add(changes.m_addRefd, m_store->m_id);
}

inline void FieldContainerPtrBase::subRef() const
{
    if (--m_store->m_refCount > 0) {
        ChangeList& changes = *Thread::getCurrentChangeList();
        changes.add(changes.m_subRefd, m_store->m_id);
    } else if (!m_store->m_dying) {
        // Null before it happens: the handle itself may lie inside the container.
        FieldContainer* const store = m_store;
        m_store = nullptr;
        store->destroy();
    }
}

inline void ChangeList::addChanged(const FieldContainerPtr& container, BitVector mask)
{
    if (!m_readOnly) m_changed.emplace_back(container.getFieldContainerId(), mask);
}
inline void ChangeList::addAddRefd(const FieldContainerPtr& container)
{
    add(m_addRefd, container.getFieldContainerId());
}
inline void ChangeList::addSubRefd(const FieldContainerPtr& container)
{
    add(m_subRefd, container.getFieldContainerId());
}

// The edit bracket. Nothing checks pairs or masks; a null handle is ignored.

/// Does nothing: a container is always open for writing.
inline void beginEditCP(const FieldContainerPtr&, BitVector = FieldBits::AllFields, UInt32 = ChangedOrigin::External) {}

/// Only tells the container.
inline void changedCP(const FieldContainerPtr& container, BitVector whichField = FieldBits::AllFields,
                      UInt32 origin = ChangedOrigin::External)
{
    if (container) container->changed(whichField, origin);
}
/// Only makes the entry of the change list.
inline void endEditNotChangedCP(const FieldContainerPtr& container, BitVector whichField = FieldBits::AllFields,
                                UInt32 = ChangedOrigin::External)
{
    if (container) Thread::getCurrentChangeList()->addChanged(container, whichField);
}
/// Makes the entry of the change list, then tells the container.
inline void endEditCP(const FieldContainerPtr& container, BitVector whichField = FieldBits::AllFields,
                      UInt32 origin = ChangedOrigin::External)
{
    endEditNotChangedCP(container, whichField, origin);
    changedCP(container, whichField, origin);
}

/// An edit bracket that its scope closes; the origin is always External.
class OSG_BASELIB_DLLMAPPING CPEditor
{
public:
    explicit CPEditor(const FieldContainerPtr& container, BitVector whichField = FieldBits::AllFields)
        : m_container(container), m_whichField(whichField)
    {
        beginEditCP(m_container, m_whichField);
    }
    CPEditor(const CPEditor&) = delete;
    CPEditor& operator=(const CPEditor&) = delete;
    ~CPEditor() { endEditCP(m_container, m_whichField); }

private:
    FieldContainerPtr m_container;
    BitVector m_whichField;
};

#define CPEdit(container, mask) osg::CPEditor container##Editor_(container, mask)
#define CPEditAll(container) osg::CPEditor container##Editor_(container)

} // namespace osg
