#include <moUndoStack/light/moSetLightProfileShapeCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <OpenSG/OSGTransform3D.h>
#include <moOpenSGUtils/moLights.h>
#include <moUndoUtils/moUndoString.h>

MO_UNDO_COMMAND_ID_IMPL(moSetLightProfileShapeCommand)

moSetLightProfileShapeCommand::moSetLightProfileShapeCommand(const osg::NodePtr& light, QUndoCommand* parent)
    : moUndoCommand(moUndoString("Set Light Profile Shape", QStringLiteral("Light Commands")), parent),
      m_lightId(containerId(light)),
      m_scale(0.f, 0.f, 0.f)
{
    if (!light || !moLights::isLight(light)) return;
    m_typeName = moLights::getLightTypeName(light);
    m_scale = osg::Transform3DPtr::dcast(light->getCore())->getScale();
    m_lightValue = moLights::getLightValue(light);
}

void moSetLightProfileShapeCommand::redo()
{
    moLights::setLightProfileShape(light());
    moLights::setDefaultLightUnit(light());
    const float profileValue = moLights::getLightProfileValue(light());
    moLights::setLightValue(light(), profileValue > 0.f ? profileValue : m_lightValue);
}

void moSetLightProfileShapeCommand::undo()
{
    moLights::changeLightType(light(), m_typeName.c_str());
    // No type name: it was no light, and nothing was remembered that could be put back.
    if (!light() || m_typeName.empty()) return;
    if (const auto core = osg::Transform3DPtr::dcast(light()->getCore())) {
        const ContainerEdit edit(core, osg::Transform3DBase::ScaleFieldMask);
        core->setScale(m_scale);
    }
    moLights::setLightValue(light(), m_lightValue);
}

osg::NodePtr moSetLightProfileShapeCommand::light() const
{
    return findContainer<osg::NodePtr>(m_lightId);
}
