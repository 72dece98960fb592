#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <QtCore/QCoreApplication>

#include <cstdint>
#include <functional>

/// Sets the apply flags of a transform variant.
///
/// \param applyFlags  osg::TransformVariant::ApplyFlags; all 64 bits are kept.
/// \param callback    called after every step. Required: an empty one throws std::bad_function_call after the edit was
///                    made.
///
/// Old value: read at construction. Never merges. Message: "id" (int).
/// A variant that has gone makes a step do and tell nothing; a null one makes a command that never does anything.
class MO_UNDO_STACK_EXPORT moTransformVariantOptionsUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantOptionsUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback = std::function<void()>;

    moTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant, std::uint64_t applyFlags,
                                         QUndoCommand* parent, Callback callback);

    void undo() override;
    void redo() override;

private:
    void apply(std::uint64_t flags) const;

    unsigned int m_variantId;
    std::uint64_t m_oldFlags;
    std::uint64_t m_newFlags;
    Callback m_callback;
};
