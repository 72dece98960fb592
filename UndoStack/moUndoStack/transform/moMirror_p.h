#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moHeldFunction.h>

#include <OpenSG/OSGNode.h>

/// Calls a synchronisation function, unless it is empty or the node was destroyed: a listener to the edit, or the
/// command's callback, may have destroyed it.
template<class Signature, class... Arguments>
void mirror(const moUndoDetail::HeldFunction<Signature>& sync, unsigned int nodeId, const Arguments&... arguments)
{
    if (!sync) return;
    if (const auto node = findContainer<osg::NodePtr>(nodeId)) moStep::afterwards([&] { sync(node, arguments...); });
}
