#include <moUndoStack/transform/moEulerRotationOrderUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moMirror_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moEulerRotationOrderUndoCommand)

moUndoDetail::HeldFunction<void(const osg::NodePtr&, const std::string&)> moEulerRotationOrderUndoCommand::s_sync;

// The word of the translation is intended.
static constexpr const char* actionWord = "Translate";

moEulerRotationOrderUndoCommand::moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 QUndoCommand* parent, Callback callback,
                                                                 int variantIndex)
    : moTransformUndoCommand(actionWord, node, std::move(order), false, parent, variantIndex),
      m_callback(std::move(callback))
{
}

moEulerRotationOrderUndoCommand::moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 bool mergeEnabled, QUndoCommand* parent,
                                                                 Callback callback, int variantIndex)
    : moTransformUndoCommand(actionWord, node, std::move(order), false, mergeEnabled, parent, variantIndex),
      m_callback(std::move(callback))
{
}

moEulerRotationOrderUndoCommand::moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 double mergeDelta, QUndoCommand* parent,
                                                                 Callback callback, int variantIndex)
    : moTransformUndoCommand(actionWord, node, std::move(order), false, mergeDelta, parent, variantIndex),
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
