#include <OpenSG/OSGThread.h>

namespace osg {

namespace {

template<class Store>
void append(Store& destination, const Store& source)
{
    // By index: a list may be merged with itself.
    destination.reserve(destination.size() + source.size());
    for (std::size_t i = 0, count = source.size(); i < count; ++i)
        destination.push_back(source[i]);
}

} // namespace

bool ChangeList::s_readWriteDefault = false;
ChangeList* Thread::s_changeList = nullptr;

void ChangeList::clearAll()
{
    m_changed.clear();
    m_addRefd.clear();
    m_subRefd.clear();
    m_created.clear();
    m_destroyed.clear();
}

void ChangeList::swap(ChangeList& other)
{
    m_changed.swap(other.m_changed);
    m_addRefd.swap(other.m_addRefd);
    m_subRefd.swap(other.m_subRefd);
    m_created.swap(other.m_created);
    m_destroyed.swap(other.m_destroyed);
}

void ChangeList::merge(const ChangeList& other)
{
    append(m_changed, other.m_changed);
    append(m_addRefd, other.m_addRefd);
    append(m_subRefd, other.m_subRefd);
    append(m_created, other.m_created);
    append(m_destroyed, other.m_destroyed);
}

ChangeList* Thread::createChangeList()
{
    // Never destroyed: containers are released as late as in static destructors.
    s_changeList = new ChangeList;
    return s_changeList;
}

} // namespace osg
