#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <iosfwd>

namespace osg {

class FieldContainer;
class Attachment;
class AttachmentContainer;
class Node;
class NodeCore;
class NullFieldContainerPtr;

/// The base of all handles: the address of a container and a parent field position, 16 bytes.
///
/// A handle is a plain value. Copying, assigning and destroying one never counts; a handle whose container was
/// destroyed dangles and cannot be asked. Who must survive that keeps the id and asks the FieldContainerFactory, or
/// holds a reference.
class OSG_BASELIB_DLLMAPPING FieldContainerPtrBase
{
    typedef void (FieldContainerPtrBase::*SafeBool)() const;

public:
    static constexpr UInt16 InvalidParentFieldPos = 0xFFFF;

    constexpr FieldContainerPtrBase() = default;

    /// The handle must not be null.
    UInt32 getFieldContainerId() const;
    /// 0 for null.
    Int32 getRefCount() const;
    FieldContainer* getBaseCPtr() const { return m_store; }

    /// Travels with the handle; no part of its equality.
    UInt16 getParentFieldPos() const { return static_cast<UInt16>(m_parentFieldPos); }
    void setParentFieldPos(UInt16 position) { m_parentFieldPos = position; }

    // Addresses are compared, across handle types.
    bool operator==(const FieldContainerPtrBase& other) const { return m_store == other.m_store; }
    bool operator!=(const FieldContainerPtrBase& other) const { return m_store != other.m_store; }
    bool operator<(const FieldContainerPtrBase& other) const
    {
        return reinterpret_cast<std::uintptr_t>(m_store) < reinterpret_cast<std::uintptr_t>(other.m_store);
    }
    bool operator!() const { return m_store == nullptr; }
    operator SafeBool() const { return m_store ? &FieldContainerPtrBase::isSet : nullptr; }

protected:
    friend void addRefCP(const FieldContainerPtrBase& container);
    friend void subRefCP(const FieldContainerPtrBase& container);

    // Counting and destroying happen through const handles; only the handle that destroyed becomes null.
    void addRef() const;
    void subRef() const;

    mutable FieldContainer* m_store = nullptr;

private:
    void isSet() const {}

    // As wide as its place in the handle: with a gap behind it, each copy of a handle by value would write two bytes
    // and then read eight, which stalls the processor.
    UInt64 m_parentFieldPos = InvalidParentFieldPos;
};

/// What all typed handles have in common. Base is the handle type of the parent class, so that upcasts are plain
/// slicing copies; a downcast is Self::dcast.
template<class Self, class Base, class Object>
class OSG_BASELIB_DLLMAPPING ContainerHandle : public Base
{
public:
    typedef Object StoredObjectType;
    typedef Self ObjectType;
    typedef Base Inherited;

    constexpr ContainerHandle() = default;
    ContainerHandle(const NullFieldContainerPtr&) {}
    explicit ContainerHandle(const Object* object) { this->m_store = const_cast<Object*>(object); }
    explicit ContainerHandle(const Object& object) : ContainerHandle(&object) {}

    /// Null for null and for a container of another type.
    static Self dcast(const FieldContainerPtrBase& handle);

    Object* operator->() const { return getCPtr(); }
    Object& operator*() const { return *getCPtr(); }
    Object* getCPtr() const { return static_cast<Object*>(this->m_store); }
};

class OSG_BASELIB_DLLMAPPING FieldContainerPtr
    : public ContainerHandle<FieldContainerPtr, FieldContainerPtrBase, FieldContainer>
{
public:
    using ContainerHandle::ContainerHandle;

    /// OpenSG has none: there is nothing to find out.
    static FieldContainerPtr dcast(const FieldContainerPtrBase&) = delete;
};

/// The type of NullFC, which converts to and compares with every handle.
class OSG_BASELIB_DLLMAPPING NullFieldContainerPtr : public FieldContainerPtr
{
public:
    constexpr NullFieldContainerPtr() = default;
};

inline constexpr NullFieldContainerPtr NullFC;

template<class BasePtrTypeT, class FieldContainerTypeT>
class OSG_BASELIB_DLLMAPPING FCPtr
    : public ContainerHandle<FCPtr<BasePtrTypeT, FieldContainerTypeT>, BasePtrTypeT, FieldContainerTypeT>
{
public:
    using ContainerHandle<FCPtr<BasePtrTypeT, FieldContainerTypeT>, BasePtrTypeT, FieldContainerTypeT>::ContainerHandle;
};

class OSG_BASELIB_DLLMAPPING AttachmentPtr : public ContainerHandle<AttachmentPtr, FieldContainerPtr, Attachment>
{
public:
    using ContainerHandle::ContainerHandle;
};

class OSG_BASELIB_DLLMAPPING AttachmentContainerPtr
    : public ContainerHandle<AttachmentContainerPtr, FieldContainerPtr, AttachmentContainer>
{
public:
    using ContainerHandle::ContainerHandle;
};

typedef FCPtr<AttachmentContainerPtr, NodeCore> NodeCorePtr;

class OSG_BASELIB_DLLMAPPING NodePtr : public ContainerHandle<NodePtr, AttachmentContainerPtr, Node>
{
public:
    using ContainerHandle::ContainerHandle;
};

static_assert(sizeof(FieldContainerPtr) == 16 && sizeof(NodePtr) == 16 && sizeof(NodeCorePtr) == 16);

/// "null", or the type's name and the id.
OSG_BASELIB_DLLMAPPING std::ostream& operator<<(std::ostream& stream, const FieldContainerPtrBase& handle);

template<class HandleT>
UInt32 getContainerId(const HandleT& handle)
{
    return handle.getFieldContainerId();
}
template<class HandleT>
typename HandleT::StoredObjectType* getCPtr(const HandleT& handle)
{
    return handle.getCPtr();
}
/// Found by std::mem_fn-like binders.
template<class HandleT>
typename HandleT::StoredObjectType* get_pointer(const HandleT& handle)
{
    return handle.getCPtr();
}
template<class HandleT>
HandleT dynamic_pointer_cast(const FieldContainerPtr& handle)
{
    return HandleT::dcast(handle);
}

// Null handles are ignored by all of these. A fresh container has the count 0.

inline void addRefCP(const FieldContainerPtrBase& container)
{
    if (container) container.addRef();
}
/// Destroys the container when its count falls to 0 or below (so also a fresh one), and then makes this one handle
/// null.
inline void subRefCP(const FieldContainerPtrBase& container)
{
    if (container) container.subRef();
}
/// Lets destination hold the source in place of what it held. The old reference is given back first, and only then is
/// the handle assigned: for a member that others may look at meanwhile there is assignCounted().
template<class HandleT, class SourceT>
void setRefdCP(HandleT& destination, const SourceT& source)
{
    if (destination == source) return;
    const HandleT next = source;
    const HandleT old = destination;
    subRefCP(old);
    destination = next;
    addRefCP(next);
}
/// Gives the reference back, then makes the handle null.
template<class HandleT>
void clearRefCP(HandleT& handle)
{
    const HandleT old = handle;
    subRefCP(old);
    handle = HandleT();
}
inline void addRef(const FieldContainerPtrBase& container)
{
    addRefCP(container);
}
inline void subRef(const FieldContainerPtrBase& container)
{
    subRefCP(container);
}
inline Int32 getRefCount(const FieldContainerPtrBase& container)
{
    return container.getRefCount();
}

} // namespace osg

#include <OpenSG/OSGFieldContainer.h>
