#include <moUndoStack/transform/moEulerRotationOrderUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moMirror_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moEulerRotationOrderUndoCommand)

moUndoDetail::HeldFunction<void(const osg::NodePtr&, const std::string&)> moEulerRotationOrderUndoCommand::s_sync;

moEulerRotationOrderUndoCommand::moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 QUndoCommand* parent, Callback callback,
                                                                 int variantIndex)
    : moEulerRotationOrderUndoCommand(node, std::move(order), moMergeOption(), parent, std::move(callback),
                                      variantIndex)
{
}

// Intended: "Translate", see docs/oddities.md#one-word-for-several-commands.
moEulerRotationOrderUndoCommand::moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 moMergeOption merge, QUndoCommand* parent,
                                                                 Callback callback, int variantIndex)
    : moTransformUndoCommand("Translate", node, std::move(order), false, merge, parent, variantIndex),
      m_callback(std::move(callback))
{
}

void moEulerRotationOrderUndoCommand::setSyncFunction(const SyncFunction& function)
{
    s_sync.set(function);
}

std::string moEulerRotationOrderUndoCommand::get(osg::NodePtr node)
{
    return moNodeUtils::getTransformNodeEulerRotationOrder(node, variantIndex());
}

void moEulerRotationOrderUndoCommand::set(osg::NodePtr node, std::string order)
{
    const unsigned int id = containerId(node);
    moStep::writeThroughSibling([&] { moNodeUtils::setTransformNodeEulerRotationOrder(node, order, variantIndex()); });
    if (m_callback) moStep::afterwards([&] { m_callback(id, order, variantIndex()); });
    if (editsLiveTransform()) mirror(s_sync, id, order);
}
