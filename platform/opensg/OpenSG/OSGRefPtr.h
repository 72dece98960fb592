#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

namespace osg {

/// A handle that holds a reference as long as it points at the container.
template<class HandleT>
class OSG_BASELIB_DLLMAPPING RefPtr
{
public:
    typedef HandleT Ptr;

    RefPtr() = default;
    explicit RefPtr(const HandleT& handle) : m_handle(handle) { addRefCP(m_handle); }
    RefPtr(const RefPtr& other) : RefPtr(other.m_handle) {}
    ~RefPtr() { clearRefCP(m_handle); }

    RefPtr& operator=(const RefPtr& other) { return *this = other.m_handle; }
    RefPtr& operator=(const HandleT& handle)
    {
        setRefdCP(m_handle, handle);
        return *this;
    }

    HandleT get() const { return m_handle; }
    operator HandleT() const { return m_handle; }
    typename HandleT::StoredObjectType* operator->() const { return m_handle.getCPtr(); }

    bool operator==(const FieldContainerPtrBase& other) const { return m_handle == other; }
    bool operator!=(const FieldContainerPtrBase& other) const { return m_handle != other; }
    bool operator!() const { return !m_handle; }

private:
    HandleT m_handle;
};

typedef RefPtr<FieldContainerPtr> FieldContainerRefPtr;
typedef RefPtr<NodePtr> NodeRefPtr;
typedef RefPtr<NodeCorePtr> NodeCoreRefPtr;

} // namespace osg
