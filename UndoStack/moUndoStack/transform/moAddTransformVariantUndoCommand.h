#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QCoreApplication>

#include <cstdint>
#include <functional>
#include <memory>

class ContainerReference;
class moVariantList;

/// Inserts a transform variant into the list of a node.
///
/// If the node has no list, redo makes one. Undo takes that list off again if it is empty, and the next redo puts the
/// same list back. A list that was there before stays on the node, also when undo leaves it empty. Undo removes by
/// position and only what redo inserted, so the list must be as redo left it. The command holds references on the
/// variant and on the list that it made until it is deleted. On the stack it never merges. Message: "id" (int).
/// If the node was destroyed, a step is a no-op and calls no callback. Redo is one, too, if the variant is null or was
/// destroyed; the undo after it changes nothing and calls the callback.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moAddTransformVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moAddTransformVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called after every step; `undone` is true after an undo.
    using Callback = std::function<void(unsigned int nodeId, int index, bool undone)>;

    /// \param node      null makes the command inert.
    /// \param index     where the variant ends up. For one greater than the length of the list nothing is inserted, and
    ///                  the callback is called all the same.
    /// \param parent    owns the command; null means the composite being composed, if any.
    /// \param callback  required: with an empty one the step stands and its caller gets std::bad_function_call. See
    ///                  docs/oddities.md#callbacks-that-must-not-be-empty.
    moAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant, std::uint64_t index,
                                     QUndoCommand* parent, Callback callback);
    ~moAddTransformVariantUndoCommand() override;

    /// Removes what redo inserted, and a list that redo made if it is empty.
    void undo() override;
    /// Inserts the variant, into a list of its own making if the node has none.
    void redo() override;

private:
    void putOnList(moVariantList& list);

    unsigned int m_nodeId;
    std::unique_ptr<ContainerReference> m_variant;
    std::unique_ptr<ContainerReference> m_attachment;
    std::uint64_t m_index;
    Callback m_callback;
    bool m_isDone = false;
    bool m_isInserted = false;
};
