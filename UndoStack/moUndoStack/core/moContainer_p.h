#pragma once

#include <moUndoStack/core/moStep.h>

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFactory.h>

#include <utility>

// The one place of the library that finds containers, reads ids from handles, brackets edits and counts references.

/// Id of a container; 0 for a null handle, whose getFieldContainerId() must not be called.
inline unsigned int containerId(const osg::FieldContainerPtr& container)
{
    return container ? container.getFieldContainerId() : 0;
}

/// The container with this id as a handle of the given type; null if it was destroyed, never existed or is of another
/// type.
template<class Ptr>
Ptr findContainer(unsigned int id)
{
    return Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

template<>
inline osg::FieldContainerPtr findContainer<osg::FieldContainerPtr>(unsigned int id)
{
    return osg::FieldContainerFactory::the()->getContainer(id);
}

/// The bracket around an edit by the user: open from construction to destruction, also if the edit throws. The change
/// is announced when it closes; if a listener throws then, the step stands (see moStep). Does nothing for a null
/// container. Looks the container up again before closing the edit: writing may have destroyed it.
class ContainerEdit
{
public:
    ContainerEdit(const osg::FieldContainerPtr& container, osg::BitVector mask)
        : m_id(containerId(container)), m_mask(mask)
    {
        osg::beginEditCP(container, m_mask, origin);
    }
    ~ContainerEdit() noexcept(false)
    {
        moStep::afterwards([this] { osg::endEditCP(findContainer<osg::FieldContainerPtr>(m_id), m_mask, origin); });
    }
    ContainerEdit(const ContainerEdit&) = delete;
    ContainerEdit& operator=(const ContainerEdit&) = delete;

private:
    static constexpr osg::UInt32 origin = osg::ChangedOrigin::External;

    unsigned int m_id;
    osg::BitVector m_mask;
};

/// An edit that writes nothing: announces a change. If a listener throws, the step stands (see moStep). Does nothing for
/// a null container.
inline void announceChange(const osg::FieldContainerPtr& container, osg::BitVector mask)
{
    osg::beginEditCP(container, mask, osg::ChangedOrigin::External);
    moStep::afterwards([&] { osg::endEditCP(container, mask, osg::ChangedOrigin::External); });
}

/// Adds a reference. For the few commands that give a field its reference; all others use ContainerReference. A null
/// handle is ignored.
inline void addReference(const osg::FieldContainerPtr& container)
{
    osg::addRefCP(container);
}

/// Releases a reference. This may destroy the container: the given handle is null then, others are not. A null handle
/// is ignored.
inline void releaseReference(const osg::FieldContainerPtr& container)
{
    osg::subRefCP(container);
}

/// Keeps a container alive: one reference from construction to destruction. Looks the container up again before
/// releasing it: it may have been destroyed all the same.
class ContainerReference
{
public:
    ContainerReference() = default;
    explicit ContainerReference(const osg::FieldContainerPtr& container) : m_id(containerId(container))
    {
        addReference(container);
    }
    ~ContainerReference() { releaseReference(findContainer<osg::FieldContainerPtr>(m_id)); }
    ContainerReference(ContainerReference&& other) noexcept : m_id(std::exchange(other.m_id, 0)) {}
    ContainerReference& operator=(ContainerReference&& other) noexcept
    {
        std::swap(m_id, other.m_id);
        return *this;
    }
    ContainerReference(const ContainerReference&) = delete;
    ContainerReference& operator=(const ContainerReference&) = delete;

    /// Id of the container; 0 for none.
    unsigned int id() const { return m_id; }

    template<class Ptr>
    Ptr find() const
    {
        return findContainer<Ptr>(m_id);
    }

private:
    unsigned int m_id = 0;
};
