#include <moUndoStack/material/moMaterialUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

MO_UNDO_COMMAND_ID_IMPL(moMaterialUndoCommand)

moMaterialUndoCommand::moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                             osg::FieldContainerPtr material, osg::FieldContainerPtr componentSettings,
                                             QUndoCommand* parent)
    : moWrappedFieldUndoCommand(text, command, containerId(material), containerId(componentSettings), parent)
{
    if (!command || wrapped()) return;
    command->setNotifyFunction(
        [settingsId = secondId(), materialId = firstId()] { touchSettingsAndMaterial(settingsId, materialId); });
}

void moMaterialUndoCommand::undo()
{
    if (!wrapped()) return;
    wrapped()->undo();
    touchSettingsAndMaterial(secondId(), firstId());
}

void moMaterialUndoCommand::redo()
{
    if (!wrapped()) return;
    wrapped()->redo();
    touchSettingsAndMaterial(secondId(), firstId());
}

void moMaterialUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    setContainerKeys(message, "material", "componentSettings");
}
