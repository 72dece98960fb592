#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QCoreApplication>

#include <cstdint>
#include <functional>
#include <memory>

class ContainerReference;

/// Removes a transform variant from the list of a node, and the list from the node when it becomes empty.
///
/// \param index     position of the variant; where there is none, nothing is removed.
/// \param callback  called after every step, undone = true after an undo. Required: an empty one throws
///                  std::bad_function_call after the edit was made.
///
/// The variant and the node's list are recorded at construction, with a reference on each as long as the command lives.
/// Never merges. Message: "id" (int).
/// A node that has gone makes a step do and tell nothing. So does an undo whose variant or list has gone, or for which
/// none was recorded: that a list which has gone is not replaced by a new one is intended.
class MO_UNDO_STACK_EXPORT moRemoveTransformSwitchVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveTransformSwitchVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback = std::function<void(unsigned int nodeId, int index, bool undone)>;

    moRemoveTransformSwitchVariantUndoCommand(osg::NodePtr node, std::uint64_t index, QUndoCommand* parent,
                                              Callback callback);
    ~moRemoveTransformSwitchVariantUndoCommand() override;

    void undo() override;
    void redo() override;

private:
    unsigned int m_nodeId;
    std::unique_ptr<ContainerReference> m_variant;
    std::unique_ptr<ContainerReference> m_attachment;
    std::uint64_t m_index;
    Callback m_callback;
};
