#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

/// Sets a bool field, or an integer field (Int8 to UInt64) to 0 or 1.
///
/// Redo and undo are one operation: each exchanges the field's value with the command's, so the old value is read at
/// the first redo. undo() does not call redo(): overriding redo() leaves undo() as it is. A field of any other type is
/// left alone.
///
/// Intended: the command keeps a bool, so an integer field that held 5 holds 1 after redo and undo. See
/// docs/oddities.md#an-integer-as-a-boolean-comes-back-as-1.
///
/// Never merges; a composite with such a child does not merge either. Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moBoolFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param value      what the first redo writes.
    /// \param parent     null means the composite being composed, if any.
    moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                           bool value, QUndoCommand* parent = nullptr);
    /// The same without a text.
    moBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, bool value,
                           QUndoCommand* parent = nullptr);
    /// \param fieldId  counts from 1.
    /// \param value    what the first redo writes.
    /// \param parent   null means the composite being composed, if any.
    moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, bool value,
                           QUndoCommand* parent = nullptr);
    /// The same without a text.
    moBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value, QUndoCommand* parent = nullptr);

    /// Exchanges the values.
    void undo() override;
    /// Exchanges the values.
    void redo() override;
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

protected:
    /// Exchanges the field's value with value() and calls the notify function; what undo() and redo() both do.
    void apply();

    /// The value that the next exchange writes.
    bool value() const { return m_value; }

private:
    bool m_value;
};
