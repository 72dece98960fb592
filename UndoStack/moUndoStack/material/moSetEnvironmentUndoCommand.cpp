#include <moUndoStack/material/moSetEnvironmentUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

MO_UNDO_COMMAND_ID_IMPL(moSetEnvironmentUndoCommand)

moSetEnvironmentUndoCommand::moSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material, osg::MaterialPtr environment,
                                                         QUndoCommand* parent)
    : moUndoCommand(moUndoString("Change Environment", QStringLiteral("Material Commands")), parent),
      m_materialId(containerId(material)),
      m_oldEnvironmentId(material == osg::NullFC ? 0 : containerId(material->getEnvironment())),
      m_newEnvironmentId(containerId(environment))
{
}

void moSetEnvironmentUndoCommand::undo()
{
    apply(m_oldEnvironmentId);
}

void moSetEnvironmentUndoCommand::redo()
{
    apply(m_newEnvironmentId);
}

void moSetEnvironmentUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    if (m_materialId != 0) message.set("material", m_materialId, true);
}

void moSetEnvironmentUndoCommand::apply(unsigned int environmentId)
{
    const auto material = findContainer<osg::UBRDFMaterialPtr>(m_materialId);
    if (material == osg::NullFC) return;
    const ContainerEdit edit(material, osg::UBRDFMaterialBase::EnvironmentFieldMask);
    material->setEnvironment(findContainer<osg::MaterialPtr>(environmentId));
}
