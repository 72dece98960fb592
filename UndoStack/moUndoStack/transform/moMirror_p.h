#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moHeldFunction.h>

#include <OpenSG/OSGNode.h>

/// Calls a class-wide synchronisation function with the node, if there still is one: listeners to the edit and the
/// command's own callback come first and may destroy it.
template<class Signature, class... Arguments>
void mirror(const moUndoDetail::HeldFunction<Signature>& sync, unsigned int nodeId, const Arguments&... arguments)
{
    if (!sync) return;
    if (const auto node = findContainer<osg::NodePtr>(nodeId)) moStep::afterwards([&] { sync(node, arguments...); });
}
