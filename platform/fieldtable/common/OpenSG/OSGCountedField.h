#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerPtr.h>

#include <type_traits>

namespace osg {

/// Makes a member that holds a reference hold `next` instead: takes the new reference, assigns, and gives the old one
/// back last.
///
/// OpenSG's own setRefdCP and clearRefCP give the old one back first. Whatever looks at the member while the old
/// container is destroyed then finds the handle of just that container, and a second assignment destroys it again.
template<class HandleT>
void assignCounted(HandleT& member, std::common_type_t<HandleT> next)
{
    if (member == next) return;
    addRefCP(next);
    const HandleT former = member;
    member = next;
    subRefCP(former);
}

} // namespace osg
