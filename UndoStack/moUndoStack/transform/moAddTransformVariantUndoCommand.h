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

/// Inserts a transform variant into the list of a node.
///
/// \param index     where the variant ends up, at most the length of the list; a greater one inserts nothing and is told
///                  all the same.
/// \param callback  called after every step, undone = true after an undo. Required: an empty one throws
///                  std::bad_function_call after the edit was made.
///
/// A node without a list gets one, which undo takes off again; redo puts that same one back. A list that was there
/// before stays, also when undo leaves it empty. Holds a reference on the variant, and on the list that it made, as
/// long as it lives. Never merges. Message: "id" (int). A node or variant that has gone or is of another type makes a
/// step do and tell nothing. Undo counts on the list being as redo left it.
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
    unsigned int m_nodeId;
    std::unique_ptr<ContainerReference> m_variant;
    std::unique_ptr<ContainerReference> m_attachment;
    std::uint64_t m_index;
    Callback m_callback;
};
