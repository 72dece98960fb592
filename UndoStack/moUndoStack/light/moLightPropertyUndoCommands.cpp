#include <moUndoStack/light/moLightPropertyUndoCommands.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moLights.h>
#include <moUndoUtils/moUndoString.h>

#include <QtCore/QCoreApplication>

namespace {

/// \param description  the same words, not translated: a literal, as a drag makes hundreds of commands.
moUndoString lightText(const char* text, const QString& description)
{
    return moUndoString(QCoreApplication::translate("LightUndoCommand", text), description,
                        QStringLiteral("Light Commands"));
}

/// The mode without what moLights does to the light value beside it. The light is found anew in between: whoever hears
/// of the mode may take it away.
void setAttenuationOnly(const osg::NodePtr& light, osg::UberLight::LightAttenuation mode)
{
    const unsigned int lightId = containerId(light);
    const float value = moLights::getLightValue(light);
    moLights::setAttenuation(light, mode);
    moLights::setLightValue(findContainer<osg::NodePtr>(lightId), value);
}

} // namespace

#define MO_LIGHT_VALUE(Command, T, text, getter, setter)                                                               \
    MO_UNDO_COMMAND_ID_IMPL(Command)                                                                                   \
    Command::Command(const osg::NodePtr& light, T value, QUndoCommand* parent)                                         \
        : moLightUndoCommand<T>(lightText(text, QStringLiteral(text)), light, 0, value, parent)                        \
    {                                                                                                                  \
    }                                                                                                                  \
    T Command::get(osg::NodePtr node)                                                                                  \
    {                                                                                                                  \
        return getter(node);                                                                                           \
    }                                                                                                                  \
    void Command::set(osg::NodePtr node, T value)                                                                      \
    {                                                                                                                  \
        setter(node, value);                                                                                           \
    }

#define MO_LIGHT_SWITCH(Command, textOn, textOff, getter, setter)                                                      \
    MO_UNDO_COMMAND_ID_IMPL(Command)                                                                                   \
    Command::Command(const osg::NodePtr& light, bool value, QUndoCommand* parent)                                      \
        : moLightsFunctionUndoCommand<bool>(value ? lightText(textOn, QStringLiteral(textOn))                          \
                                                  : lightText(textOff, QStringLiteral(textOff)),                       \
                                            light, value, getter, setter, parent)                                      \
    {                                                                                                                  \
    }

// clang-format off
//             command                           value                              text                     getter                     setter
MO_LIGHT_VALUE(moLightDiffuseUndoCommand,        osg::Vec3f,                        "Diffuse Light Color",   moLights::getDiffuse,       moLights::setDiffuse)
MO_LIGHT_VALUE(moLightGlossyUndoCommand,         osg::Vec3f,                        "Specular Light Color",  moLights::getGlossy,        moLights::setGlossy)
MO_LIGHT_VALUE(moLightIntensityUndoCommand,      float,                             "Light Intensity",       moLights::getLightValue,    moLights::setLightValue)
MO_LIGHT_VALUE(moLightPenumbraAngleUndoCommand,  float,                             "Light Penumbra Angle",  moLights::getPenumbraAngle, moLights::setPenumbraAngle)
MO_LIGHT_VALUE(moLightConeAngleUndoCommand,      float,                             "Light Cone Angle",      moLights::getConeAngle,     moLights::setConeAngle)
MO_LIGHT_VALUE(moLightAttenuationUndoCommand,    osg::UberLight::LightAttenuation,  "Set Light Attenuation", moLights::getAttenuation,   setAttenuationOnly)

//              command                    text for true        text for false       getter                                   setter
MO_LIGHT_SWITCH(moLightEnableUndoCommand,  "Set Light on/off",  "Set Light on/off",  moLights::getOn,                         moLights::setOn)
MO_LIGHT_SWITCH(moLightVisibleUndoCommand, "Show Light",        "Hide Light",        moLights::getLightVisualizationVisible,  moLights::setLightVisualizationVisible)
// clang-format on

#undef MO_LIGHT_VALUE
#undef MO_LIGHT_SWITCH
