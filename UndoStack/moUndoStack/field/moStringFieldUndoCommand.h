#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGStringFields.h>

/// Sets a string field.
///
/// \param fieldName  as moUndoUtil::findField() takes it.
/// \param fieldId    counts from 1.
///
/// Old value: read at construction. Merges with a newer moStringFieldUndoCommand made within its merge interval that
/// starts from the text at which this one ends, byte for byte: typing in a text field is one step. Containers and
/// fields are not compared; this is intended. A step merged from two fields writes the older command's alone: redo gives
/// it the newer text, and the newer command's field keeps what that command wrote. A field of another type is left alone.
/// Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moStringFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    MO_UNDO_COMMAND_ID
public:
    moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, const std::string& fieldName,
                             std::string value, QUndoCommand* parent = nullptr);
    moStringFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, std::string value,
                             QUndoCommand* parent = nullptr);
    moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, std::string value,
                             QUndoCommand* parent = nullptr);
    moStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, std::string value,
                             QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;
    bool canMergeWith(const QUndoCommand* other) const override;

private:
    osg::SFString* getField() const;
    void readOld();
    void apply(const std::string& value);

    std::string m_old;
    std::string m_new;
};
