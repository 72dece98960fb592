#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <cstdint>

/// Sets a single field of scalar type T. moUndoUtil::makeCommand() picks the T that the field asks for.
///
/// \param fieldName  as moUndoUtil::findField() takes it.
///
/// Undo and redo are one operation: the field's value and the command's change places. So the old value is read at the
/// first redo. Undo is the exchange itself and does not call an overridden redo(), unlike moFunctionUndoCommand's.
/// Merges as moFieldBaseUndoCommand<> says; one undo then returns to the value before the first.
/// A field of another type is left alone. Message: "id", "container", "fieldId".
template<class T>
class MO_UNDO_STACK_EXPORT moFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    moFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                       T value, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
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
