#pragma once

#include <moUndoStack/field/moTextFieldUndoCommand.h>

/// Sets a field that is a list of strings. Old list, merging and message: see moTextFieldUndoCommand. There is no
/// constructor that takes a field's id.
class MO_UNDO_STACK_EXPORT moStringsFieldUndoCommand
    : public moTextFieldUndoCommand<osg::MFString, std::vector<std::string>>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param value      copied; may be the field itself.
    /// \param parent     null means the composite being composed, if any.
    moStringsFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                              const osg::MFString& value, QUndoCommand* parent = nullptr);
    /// The same without a text.
    moStringsFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                              const osg::MFString& value, QUndoCommand* parent = nullptr);

private:
    static void getStdStrings(const osg::MFString* field, std::vector<std::string>& strings);
    static void setStdStrings(const std::vector<std::string>& strings, osg::MFString* field);
};
