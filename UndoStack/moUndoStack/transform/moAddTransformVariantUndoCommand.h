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
/// \param index     where the variant ends up, at most the length of the list; a greater one inserts nothing and is
///                  told all the same.
/// \param parent    before the callback here; null means the composite being composed, if any.
/// \param callback  called after every step, undone = true after an undo. Required: with an empty one the step stands
///                  and its caller gets std::bad_function_call.
///
/// A node without a list gets one, which undo takes off again; redo puts that same one back. A list that was there
/// before stays, also when undo leaves it empty. Holds a reference on the variant, and on the list that it made, as
/// long as it lives. On the stack it never merges. Message: "id" (int).
/// A destroyed node makes a step do and tell nothing. So does redo for a variant that is null or was destroyed: its undo
/// then changes nothing, but is told. What redo did not insert, undo does not remove; what it did insert, undo removes by
/// position, counting on the list being as redo left it.
/// Inside a composite that merges it must not stand beside a newer one made within its merge interval: the composite
/// asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it with
/// merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
class MO_UNDO_STACK_EXPORT moAddTransformVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moAddTransformVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback = std::function<void(unsigned int nodeId, int index, bool undone)>;

    moAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant, std::uint64_t index,
                                     QUndoCommand* parent, Callback callback);
    ~moAddTransformVariantUndoCommand() override;

    void undo() override;
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
