#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Renames a transform variant.
///
/// Old value: read at construction. On the stack it never merges. Message: "id" (int).
/// If the variant was destroyed, a step is a no-op and calls no callback.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moTransformVariantNameUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantNameUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called after every step with the name before it and the name after it.
    using Callback = std::function<void(const std::string& previousName, const std::string& currentName)>;

    /// \param variant   null makes the command inert.
    /// \param name      the new name; may be empty.
    /// \param parent    owns the command; null means the composite being composed, if any.
    /// \param callback  required: with an empty one the step stands and its caller gets std::bad_function_call. See
    ///                  docs/oddities.md#callbacks-that-must-not-be-empty.
    moTransformVariantNameUndoCommand(osg::TransformVariantPtr variant, std::string name, QUndoCommand* parent,
                                      Callback callback);

    /// Writes the name that was read at construction.
    void undo() override;
    /// Writes the new name.
    void redo() override;

private:
    void rename(const std::string& from, const std::string& to) const;

    unsigned int m_variantId;
    std::string m_oldName;
    std::string m_newName;
    Callback m_callback;
};
