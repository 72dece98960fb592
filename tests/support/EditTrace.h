#pragma once

#include <OpenSG/OSGFieldTable.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// Records the changes that traced containers announce while it exists, one line each: `aim sources|target 1`, that is
/// the container, the fields of the mask and the origin.
class EditTrace
{
public:
    EditTrace();
    ~EditTrace();
    EditTrace(const EditTrace&) = delete;
    EditTrace& operator=(const EditTrace&) = delete;

    /// Names a container in the lines; others appear under the name of their type. Returns the container.
    template<class Ptr>
    Ptr name(const Ptr& container, const std::string& name)
    {
        m_names.emplace_back(container.getFieldContainerId(), name);
        return container;
    }

    /// Returns the lines and forgets them.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

    /// Sets a listener, called for each change after its line was added, but not for changes that it makes itself.
    void onChange(std::function<void()> function) { m_onChange = std::move(function); }

    /// For traced containers: adds a line to the trace that exists, if there is one.
    static void tell(const osg::FieldContainerPtr& container, osg::BitVector mask, osg::UInt32 origin);

private:
    std::vector<std::pair<osg::UInt32, std::string>> m_names;
    std::vector<std::string> m_lines;
    std::function<void()> m_onChange;
};

#define MO_NO_FIELDS(SINGLE, MULTI)

/// Declares and defines TracedX, a container class derived from X with no fields of its own, of the group groupName,
/// which tells EditTrace of its changes. For one .cpp, in namespace osg.
#define MO_TRACED_CONTAINER(Parent, groupName)                                                                         \
    class Traced##Parent;                                                                                              \
    typedef FCPtr<Parent##Ptr, Traced##Parent> Traced##Parent##Ptr;                                                    \
    OSG_CONTAINER_BASE(Traced##Parent, Parent, MO_NO_FIELDS)                                                           \
    class Traced##Parent : public Traced##Parent##Base                                                                 \
    {                                                                                                                  \
        OSG_CONTAINER(Traced##Parent)                                                                                  \
    public:                                                                                                            \
        void changed(BitVector mask, UInt32 origin) override                                                           \
        {                                                                                                              \
            Inherited::changed(mask, origin);                                                                          \
            EditTrace::tell(Traced##Parent##Ptr(this), mask, origin);                                                  \
        }                                                                                                              \
    };                                                                                                                 \
    OSG_CONTAINER_GROUP_IMPL(Traced##Parent, Parent, MO_NO_FIELDS, groupName)
