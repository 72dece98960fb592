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
    moStep::run([this] {
        const float value = moLights::getLightValue(light());
        const std::string type = moLights::getLightTypeName(light());
        const auto core = light() ? osg::Transform3DPtr::dcast(light()->getCore()) : osg::Transform3DPtr();
        const osg::Vec3f scale = core ? core->getScale() : osg::Vec3f();
        moStep::writeOrTakeBack(
            [this] {
                moStep::writeThroughSibling([this] { moLights::setLightProfileShape(light()); });
                moStep::writeThroughSibling([this] { moLights::setDefaultLightUnit(light()); });
                const float profileValue = moLights::getLightProfileValue(light());
                setLightValue(profileValue > 0.f ? profileValue : m_lightValue);
            },
            [&] { restore(type, scale, value); });
    });
}

void moSetLightProfileShapeCommand::undo()
{
    moStep::run([this] {
        moStep::writeOrTakeBack([this] { restore(m_typeName, m_scale, m_lightValue); }, [this] { redo(); });
    });
}

void moSetLightProfileShapeCommand::restore(const std::string& typeName, const osg::Vec3f& scale, float lightValue)
{
    moStep::writeThroughSibling([&] { moLights::changeLightType(light(), typeName.c_str()); });
    // Without a type name it was no light at construction, and there are no old values.
    if (!light() || typeName.empty()) return;
    if (const auto core = osg::Transform3DPtr::dcast(light()->getCore())) {
        const ContainerEdit edit(core, osg::Transform3DBase::ScaleFieldMask);
        core->setScale(scale);
    }
    setLightValue(lightValue);
}

void moSetLightProfileShapeCommand::setLightValue(float value)
{
    moStep::writeThroughSibling([&] { moLights::setLightValue(light(), value); });
}

osg::NodePtr moSetLightProfileShapeCommand::light() const
{
    return findContainer<osg::NodePtr>(m_lightId);
}
