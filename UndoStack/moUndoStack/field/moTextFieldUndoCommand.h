#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGStringFields.h>

#include <string>
#include <type_traits>
#include <vector>

/// Base of the commands that set a field of text: one string, or a list of them.
///
/// Old value: read at construction. A field of another type is left alone. Message: "id", "container", "fieldId".
///
/// Merges with a newer command of the same class, made within its merge interval, whose old value equals this one's new
/// value byte for byte: typing in a text field is one step. Intended: containers and fields are not compared, because a
/// text that starts where the one before ended is taken for its continuation. If two fields were edited, the merged
/// step writes only the older command's: redo gives it the newer value, and the newer command's field keeps what that
/// command wrote. See docs/oddities.md#texts-merge-by-value.
///
/// For the library's own rows: a command of yours derives from moStringFieldUndoCommand or moStringsFieldUndoCommand.
template<class Field, class Value>
class moTextFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    static_assert((std::is_same_v<Field, osg::SFString> && std::is_same_v<Value, std::string>) ||
                      (std::is_same_v<Field, osg::MFString> && std::is_same_v<Value, std::vector<std::string>>),
                  "moTextFieldUndoCommand is for the library's own commands: derive from moStringFieldUndoCommand or "
                  "moStringsFieldUndoCommand");

public:
    /// Writes the old value.
    void undo() override;
    /// Writes the new value.
    void redo() override;
    /// Takes over the newer command's new value.
    bool mergeWith(const QUndoCommand* other) override;
    /// Asks whether the newer command starts from the value at which this one ends; the field may be another.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// How the value is read from the field and written into it.
    struct Row;

    /// \param row        outlives the command.
    /// \param fieldName  as moUndoUtil::findField() takes it.
    moTextFieldUndoCommand(const Row& row, const moUndoString& text, osg::FieldContainerPtr container,
                           const std::string& fieldName, Value value, QUndoCommand* parent);
    /// The same by the field's id.
    /// \param fieldId  counts from 1.
    moTextFieldUndoCommand(const Row& row, const moUndoString& text, osg::FieldContainerPtr container, int fieldId,
                           Value value, QUndoCommand* parent);

private:
    Field* getField() const;
    void readOld();
    void write(const Value& value);

    const Row& m_row;
    Value m_old;
    Value m_new;
};

extern template class MO_UNDO_STACK_EXPORT moTextFieldUndoCommand<osg::SFString, std::string>;
extern template class MO_UNDO_STACK_EXPORT moTextFieldUndoCommand<osg::MFString, std::vector<std::string>>;
