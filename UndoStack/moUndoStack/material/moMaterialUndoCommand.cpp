#include <moUndoStack/material/moMaterialUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>

MO_UNDO_COMMAND_ID_IMPL(moMaterialUndoCommand)

moMaterialUndoCommand::moMaterialUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                             osg::FieldContainerPtr material, osg::FieldContainerPtr componentSettings,
                                             QUndoCommand* parent)
    : moWrappedFieldUndoCommand(text, command, containerId(material), containerId(componentSettings), parent)
{
    if (runBy() != RunBy::ItsParent) return;
    command->addWrapperFunction(
        [settingsId = componentId(), materialId = ownerId()] { touchSettingsAndMaterial(settingsId, materialId); });
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
    if (runBy() != RunBy::Wrapper) return;
    moStep::run([=] {
        (ownCommand()->*step)();
        touchSettingsAndMaterial(componentId(), ownerId());
    });
}

void moMaterialUndoCommand::makeMessage(moMessage& message) const
{
    moWrappedFieldUndoCommand::makeMessage(message);
    setIdUnlessNull(message, "material", ownerId());
    setIdUnlessNull(message, "componentSettings", componentId());
}
