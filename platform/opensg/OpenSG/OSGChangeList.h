#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <utility>
#include <vector>

namespace osg {

class FieldContainerPtr;

/// What happened to containers, by id. A list is read-only at first and then records nothing; recording is switched on
/// before osgInit for every list, or for one list at any time. Entries are never merged: the list grows until it is
/// cleared.
class OSG_BASELIB_DLLMAPPING ChangeList
{
public:
    typedef std::pair<UInt32, BitVector> ChangeEntry;
    typedef std::vector<ChangeEntry> ChangedStore;
    typedef std::vector<UInt32> IdStore;
    typedef ChangedStore::const_iterator changed_const_iterator;
    typedef IdStore::const_iterator idrefd_const_iterator;

    ChangeList() : m_readOnly(!s_readWriteDefault) {}

    static void setReadWriteDefault(bool readWrite = true) { s_readWriteDefault = readWrite; }
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }

    UInt32 sizeChanged() const { return static_cast<UInt32>(m_changed.size()); }
    changed_const_iterator beginChanged() const { return m_changed.begin(); }
    changed_const_iterator endChanged() const { return m_changed.end(); }
    UInt32 sizeAddRefd() const { return static_cast<UInt32>(m_addRefd.size()); }
    idrefd_const_iterator beginAddRefd() const { return m_addRefd.begin(); }
    idrefd_const_iterator endAddRefd() const { return m_addRefd.end(); }
    /// The last reference that goes is an entry of the destroyed ones instead.
    UInt32 sizeSubRefd() const { return static_cast<UInt32>(m_subRefd.size()); }
    idrefd_const_iterator beginSubRefd() const { return m_subRefd.begin(); }
    idrefd_const_iterator endSubRefd() const { return m_subRefd.end(); }
    UInt32 sizeCreated() const { return static_cast<UInt32>(m_created.size()); }
    idrefd_const_iterator beginCreated() const { return m_created.begin(); }
    idrefd_const_iterator endCreated() const { return m_created.end(); }
    UInt32 sizeDestroyed() const { return static_cast<UInt32>(m_destroyed.size()); }
    idrefd_const_iterator beginDestroyed() const { return m_destroyed.begin(); }
    idrefd_const_iterator endDestroyed() const { return m_destroyed.end(); }
    bool empty() const
    {
        return m_changed.empty() && m_addRefd.empty() && m_subRefd.empty() && m_created.empty() && m_destroyed.empty();
    }

    // Not for null.
    void addChanged(const FieldContainerPtr& container, BitVector mask);
    void addAddRefd(const FieldContainerPtr& container);
    void addSubRefd(const FieldContainerPtr& container);
    void addCreated(UInt32 id) { add(m_created, id); }
    void addDestroyed(UInt32 id) { add(m_destroyed, id); }

    void clearAll();
    /// Exchanges the entries.
    void swap(ChangeList& other);
    /// Appends the other list's entries.
    void merge(const ChangeList& other);

private:
    friend class FieldContainerPtrBase;
    friend bool osgInit(Int32, Char8**, UInt16, UInt16, UInt16, bool, bool, bool);

    void add(IdStore& ids, UInt32 id)
    {
        if (!m_readOnly) ids.push_back(id);
    }

    static bool s_readWriteDefault;

    bool m_readOnly;
    ChangedStore m_changed;
    IdStore m_addRefd;
    IdStore m_subRefd;
    IdStore m_created;
    IdStore m_destroyed;
};

} // namespace osg
