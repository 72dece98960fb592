#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <cstdint>

/// Sets a single field of the scalar type T. moUndoUtil::makeCommand() picks the T that the field needs.
///
/// Redo and undo are one operation: each exchanges the field's value with the command's, so the old value is read at
/// the first redo. undo() does not call redo(), unlike moFunctionUndoCommand's: overriding redo() leaves undo() as it
/// is. A field of another type is left alone.
///
/// Merges as moFieldBaseUndoCommand<> says; one undo then returns to the value before the first command.
/// Message: "id", "container", "fieldId".
template<class T>
class MO_UNDO_STACK_EXPORT moFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param value      what the first redo writes.
    /// \param parent     null means the composite being composed, if any.
    moFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                       T value, QUndoCommand* parent = nullptr);

    /// Exchanges the values.
    void undo() override;
    /// Exchanges the values.
    void redo() override;
    /// Takes over the newer command's time; the value from before this command stays.
    bool mergeWith(const QUndoCommand* other) override;

private:
    T m_value; // what the next undo or redo writes
};

extern template class moFieldUndoCommand<signed char>;
extern template class moFieldUndoCommand<unsigned char>;
extern template class moFieldUndoCommand<short>;
extern template class moFieldUndoCommand<unsigned short>;
extern template class moFieldUndoCommand<int>;
extern template class moFieldUndoCommand<unsigned int>;
extern template class moFieldUndoCommand<std::int64_t>;
extern template class moFieldUndoCommand<std::uint64_t>;
extern template class moFieldUndoCommand<float>;
extern template class moFieldUndoCommand<double>;
