#include <moUndoStack/material/moMaterialMultiUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommand.h>

MO_UNDO_COMMAND_ID_IMPL(moMaterialMultiUndoCommand)

moMaterialMultiUndoCommand::moMaterialMultiUndoCommand(const moUndoString& text, osg::FieldContainerPtr material,
                                                       osg::FieldContainerPtr componentSettings)
    : moMultiCommand(text), m_materialId(containerId(material)), m_settingsId(containerId(componentSettings))
{
}

void moMaterialMultiUndoCommand::undo()
{
    moStep::run([this] {
        moMultiCommand::undo();
        touchSettingsAndMaterial(m_settingsId, m_materialId);
    });
}

void moMaterialMultiUndoCommand::redo()
{
    moStep::run([this] {
        moMultiCommand::redo();
        touchSettingsAndMaterial(m_settingsId, m_materialId);
    });
}

bool moMaterialMultiUndoCommand::mergeWith(const QUndoCommand* other)
{
    // Intended: no merge interval here; the children have theirs. See
    // docs/oddities.md#composites-have-no-time-of-their-own.
    const auto* newer = dynamic_cast<const moMaterialMultiUndoCommand*>(other);
    if (!newer || newer->id() != id()) return false;
    if (newer->m_settingsId != m_settingsId || newer->m_materialId != m_materialId) return false;
    return moMultiCommand::mergeWith(other);
}

void moMaterialMultiUndoCommand::makeMessage(moMessage& message) const
{
    moMultiCommand::makeMessage(message);
    setIdUnlessNull(message, "material", m_materialId);
    setIdUnlessNull(message, "componentSettings", m_settingsId);
}
