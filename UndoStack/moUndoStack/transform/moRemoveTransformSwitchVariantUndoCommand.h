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
/// The constructor records the variant and the node's list, and holds a reference on each until the command is deleted.
/// Redo removes the variant that is at the position by then. The commands of a composite are all made before the first
/// one is run, so remove from the highest position down: Remove(1), Remove(0). Remove(0), Remove(0) records one variant
/// twice, and the other one is destroyed. On the stack it never merges. Message: "id" (int).
/// If the node was destroyed, a step is a no-op and calls no callback. The same holds for undo if the variant or the
/// list was destroyed, or was not there at construction. Intended: the command makes no list of its own, see
/// docs/oddities.md#a-destroyed-list-of-variants.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moRemoveTransformSwitchVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveTransformSwitchVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called after every step; `undone` is true after an undo.
    using Callback = std::function<void(unsigned int nodeId, int index, bool undone)>;

    /// \param node      null makes the command inert.
    /// \param index     position of the variant. If there is none, redo removes nothing and calls the callback, and
    ///                  undo is a no-op.
    /// \param parent    owns the command; null means the composite being composed, if any.
    /// \param callback  required: with an empty one the step stands and its caller gets std::bad_function_call. See
    ///                  docs/oddities.md#callbacks-that-must-not-be-empty.
    moRemoveTransformSwitchVariantUndoCommand(osg::NodePtr node, std::uint64_t index, QUndoCommand* parent,
                                              Callback callback);
    ~moRemoveTransformSwitchVariantUndoCommand() override;

    /// Puts the variant back at its position, and the list if the node has none.
    void undo() override;
    /// Removes the variant, and the list if it is empty then.
    void redo() override;

private:
    unsigned int m_nodeId;
    std::unique_ptr<ContainerReference> m_variant;
    std::unique_ptr<ContainerReference> m_attachment;
    std::uint64_t m_index;
    Callback m_callback;
};
