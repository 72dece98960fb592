#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGStringFields.h>

#include <vector>

/// Sets a field that is a list of strings.
///
/// \param fieldName  as moUndoUtil::findField() takes it. There is no constructor that takes a field's id.
/// \param value      copied; may be the very field.
///
/// Old list: read at construction. Merges with a newer moStringsFieldUndoCommand made within its merge interval that
/// starts from the list at which this one ends, string for string. Containers and fields are not compared; this is
/// intended. A step merged from two fields writes the older command's alone: redo gives it the newer list, and the newer
/// command's field keeps what that command wrote. A field of another type is left alone. Message: "id", "container",
/// "fieldId".
class MO_UNDO_STACK_EXPORT moStringsFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    moStringsFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                              const osg::MFString& value, QUndoCommand* parent = nullptr);
    moStringsFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                              const osg::MFString& value, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;
    bool canMergeWith(const QUndoCommand* other) const override;

private:
    osg::MFString* getField() const;
    static void getStdStrings(const osg::MFString* field, std::vector<std::string>& strings);
    static void setStdStrings(const std::vector<std::string>& strings, osg::MFString* field);
    void apply(const std::vector<std::string>& strings);

    std::vector<std::string> m_old;
    std::vector<std::string> m_new;
};
