#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

/// Sets a bool field, or an integer field (Int8 to UInt64) to 0 or 1.
///
/// \param fieldName  as moUndoUtil::findField() takes it.
/// \param fieldId    counts from 1.
///
/// Undo and redo are one operation: the field's value and the command's change places. So the old value is read at the
/// first redo. Undo is the exchange itself and does not call an overridden redo(). Of an integer only whether it is 0 is remembered: a field that held 5 holds 1 after redo and undo; this
/// is intended. Any other field is left alone. Never merges. Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moBoolFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                           bool value, QUndoCommand* parent = nullptr);
    moBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, bool value,
                           QUndoCommand* parent = nullptr);
    moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, bool value,
                           QUndoCommand* parent = nullptr);
    moBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

protected:
    /// The exchange that undo and redo both are.
    void apply();

    /// What the next exchange writes.
    bool value() const { return m_value; }

private:
    bool m_value;
};
