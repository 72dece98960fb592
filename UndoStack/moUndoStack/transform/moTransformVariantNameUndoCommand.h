#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Renames a transform variant.
///
/// \param parent    before the callback here; null means the composite being composed, if any.
/// \param callback  called after every step with the name before it and the one after it. Required: with an empty one
///                  the step stands and its caller gets std::bad_function_call.
///
/// Old value: read at construction. On the stack it never merges. Message: "id" (int).
/// Inside a composite that merges it must not stand beside a newer one made within its merge interval: the composite
/// asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it with
/// merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
/// A destroyed variant makes a step do and tell nothing; a null one makes a command that never does anything.
class MO_UNDO_STACK_EXPORT moTransformVariantNameUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantNameUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback = std::function<void(const std::string& previousName, const std::string& currentName)>;

    moTransformVariantNameUndoCommand(osg::TransformVariantPtr variant, std::string name, QUndoCommand* parent,
                                      Callback callback);

    void undo() override;
    void redo() override;

private:
    void rename(const std::string& from, const std::string& to) const;

    unsigned int m_variantId;
    std::string m_oldName;
    std::string m_newName;
    Callback m_callback;
};
