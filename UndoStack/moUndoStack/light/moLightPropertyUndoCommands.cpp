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

/// A setter of moLights, which tells listeners.
template<auto setter, class T>
void write(const osg::NodePtr& light, const T& value)
{
    moStep::writeThroughSibling([&] { setter(light, value); });
}

/// Sets the mode and restores the light value, which moLights rescales with it. The light is found anew for each edit:
/// a listener to the one before may have destroyed it.
void writeAttenuationOnly(const osg::NodePtr& light, osg::UberLight::LightAttenuation mode)
{
    const auto find = [id = containerId(light)] { return findContainer<osg::NodePtr>(id); };
    const auto former = moLights::getAttenuation(light);
    const float value = moLights::getLightValue(light);
    const auto writeBoth = [&](osg::UberLight::LightAttenuation to) {
        write<&moLights::setAttenuation>(find(), to);
        write<&moLights::setLightValue>(find(), value);
    };
    moStep::writeOrTakeBack([&] { writeBoth(mode); }, [&] { writeBoth(former); });
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
MO_LIGHT_VALUE(moLightDiffuseUndoCommand,        osg::Vec3f,                        "Diffuse Light Color",   moLights::getDiffuse,       write<&moLights::setDiffuse>)
MO_LIGHT_VALUE(moLightGlossyUndoCommand,         osg::Vec3f,                        "Specular Light Color",  moLights::getGlossy,        write<&moLights::setGlossy>)
MO_LIGHT_VALUE(moLightIntensityUndoCommand,      float,                             "Light Intensity",       moLights::getLightValue,    write<&moLights::setLightValue>)
MO_LIGHT_VALUE(moLightPenumbraAngleUndoCommand,  float,                             "Light Penumbra Angle",  moLights::getPenumbraAngle, write<&moLights::setPenumbraAngle>)
MO_LIGHT_VALUE(moLightConeAngleUndoCommand,      float,                             "Light Cone Angle",      moLights::getConeAngle,     write<&moLights::setConeAngle>)
MO_LIGHT_VALUE(moLightAttenuationUndoCommand,    osg::UberLight::LightAttenuation,  "Set Light Attenuation", moLights::getAttenuation,   writeAttenuationOnly)

//              command                    text for true        text for false       getter                                   setter
MO_LIGHT_SWITCH(moLightEnableUndoCommand,  "Set Light on/off",  "Set Light on/off",  moLights::getOn,                         (write<&moLights::setOn, bool>))
MO_LIGHT_SWITCH(moLightVisibleUndoCommand, "Show Light",        "Hide Light",        moLights::getLightVisualizationVisible,  (write<&moLights::setLightVisualizationVisible, bool>))
// clang-format on

#undef MO_LIGHT_VALUE
#undef MO_LIGHT_SWITCH
