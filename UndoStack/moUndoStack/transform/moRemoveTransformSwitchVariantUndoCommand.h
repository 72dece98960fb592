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
/// \param parent    before the callback here; null means the composite being composed, if any.
/// \param callback  called after every step, undone = true after an undo. Required: with an empty one the step stands
///                  and its caller gets std::bad_function_call.
///
/// The variant and the node's list are recorded at construction, with a reference on each as long as the command lives.
/// Redo removes what stands at the position by then. Commands of one composite are all made before the first is run, so
/// remove from the highest position down: Remove(1), Remove(0). Remove(0), Remove(0) records one variant twice, and the
/// other one is destroyed for good.
/// On the stack it never merges. Message: "id" (int).
/// A destroyed node makes a step do and tell nothing. So does an undo whose variant or list was destroyed, or for which
/// none was recorded: that a destroyed list is not replaced by a new one is intended.
/// Inside a composite that merges it must not stand beside a newer one made within its merge interval: the composite
/// asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it with
/// merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
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
