#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <QtCore/QCoreApplication>

#include <cstdint>
#include <functional>

/// Sets the apply flags of a transform variant.
///
/// Old value: read at construction. On the stack it never merges. Message: "id" (int).
/// If the variant was destroyed, a step is a no-op and calls no callback.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moTransformVariantOptionsUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantOptionsUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called after every step.
    using Callback = std::function<void()>;

    /// \param variant     null makes the command inert.
    /// \param applyFlags  of osg::TransformVariant::ApplyFlags; all 64 bits are kept.
    /// \param parent      owns the command; null means the composite being composed, if any.
    /// \param callback    required: with an empty one the step stands and its caller gets std::bad_function_call. See
    ///                    docs/oddities.md#callbacks-that-must-not-be-empty.
    moTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant, std::uint64_t applyFlags,
                                         QUndoCommand* parent, Callback callback);

    /// Writes the flags that were read at construction.
    void undo() override;
    /// Writes the new flags.
    void redo() override;

private:
    void apply(std::uint64_t flags) const;

    unsigned int m_variantId;
    std::uint64_t m_oldFlags;
    std::uint64_t m_newFlags;
    Callback m_callback;
};
