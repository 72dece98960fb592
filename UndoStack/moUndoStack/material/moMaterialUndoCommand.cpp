#include <moUndoStack/material/moMaterialUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>

MO_UNDO_COMMAND_ID_IMPL(moMaterialUndoCommand)

moMaterialUndoCommand::moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                             osg::FieldContainerPtr material, osg::FieldContainerPtr componentSettings,
                                             QUndoCommand* parent)
    : moWrappedFieldUndoCommand(text, command, containerId(material), containerId(componentSettings), parent)
{
    if (!command || wrapped()) return;
    command->addWrapperFunction(
        [settingsId = secondId(), materialId = firstId()] { touchSettingsAndMaterial(settingsId, materialId); });
}

void moMaterialUndoCommand::undo()
{
    run(&QUndoCommand::undo);
}

void moMaterialUndoCommand::redo()
{
    run(&QUndoCommand::redo);
}

void moMaterialUndoCommand::run(void (QUndoCommand::*step)())
{
    if (!wrapped()) return;
    moStep::run([=] {
        (wrapped()->*step)();
        touchSettingsAndMaterial(secondId(), firstId());
    });
}

void moMaterialUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    setContainerKeys(message, "material", "componentSettings");
}
