#pragma once

#include <moUndoStack/field/moTextFieldUndoCommand.h>

/// Sets a string field. Old value, merging and message: see moTextFieldUndoCommand.
class MO_UNDO_STACK_EXPORT moStringFieldUndoCommand : public moTextFieldUndoCommand<osg::SFString, std::string>
{
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param parent     null means the composite being composed, if any.
    moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                             std::string value, QUndoCommand* parent = nullptr);
    /// The same without a text.
    moStringFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, std::string value,
                             QUndoCommand* parent = nullptr);
    /// The same by the field's id.
    /// \param fieldId  counts from 1.
    moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, std::string value,
                             QUndoCommand* parent = nullptr);
    /// The same by the field's id and without a text.
    moStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, std::string value,
                             QUndoCommand* parent = nullptr);
};
