#include <moUndoStack/light/moLightPropertyUndoCommands.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moLights.h>
#include <moUndoUtils/moUndoString.h>

#include <QtCore/QCoreApplication>

MO_UNDO_COMMAND_ID_IMPL(moLightDiffuseUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightGlossyUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightIntensityUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightPenumbraAngleUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightConeAngleUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightAttenuationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightEnableUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moLightVisibleUndoCommand)

template<class T>
struct moLightPropertyUndoCommand<T>::Row
{
    const char* text;
    T (*read)(const osg::NodePtr& light);
    void (*write)(const osg::NodePtr& light, T value);
};

struct moLightSwitchUndoCommand::Row
{
    const char* textOn;
    const char* textOff;
    bool (*read)(const osg::NodePtr& light);
    void (*write)(const osg::NodePtr& light, bool on);
};

using N = const osg::NodePtr&;

// clang-format off
// Texts are marked for translation where they stand: a translator finds no other.
//                                                                                text                                                              read                                                              write
const moLightDiffuseUndoCommand::Row        moLightDiffuseUndoCommand::s_row     {QT_TRANSLATE_NOOP("LightUndoCommand", "Diffuse Light Color"),    [](N light) { return moLights::getDiffuse(light); },              [](N light, osg::Vec3f v) { moLights::setDiffuse(light, v); }};
const moLightGlossyUndoCommand::Row         moLightGlossyUndoCommand::s_row      {QT_TRANSLATE_NOOP("LightUndoCommand", "Specular Light Color"),   [](N light) { return moLights::getGlossy(light); },               [](N light, osg::Vec3f v) { moLights::setGlossy(light, v); }};
const moLightIntensityUndoCommand::Row      moLightIntensityUndoCommand::s_row   {QT_TRANSLATE_NOOP("LightUndoCommand", "Light Intensity"),        [](N light) { return moLights::getLightValue(light); },           [](N light, float v) { moLights::setLightValue(light, v); }};
const moLightPenumbraAngleUndoCommand::Row  moLightPenumbraAngleUndoCommand::s_row{QT_TRANSLATE_NOOP("LightUndoCommand", "Light Penumbra Angle"),  [](N light) { return moLights::getPenumbraAngle(light); },        [](N light, float v) { moLights::setPenumbraAngle(light, v); }};
const moLightConeAngleUndoCommand::Row      moLightConeAngleUndoCommand::s_row   {QT_TRANSLATE_NOOP("LightUndoCommand", "Light Cone Angle"),       [](N light) { return moLights::getConeAngle(light); },            [](N light, float v) { moLights::setConeAngle(light, v); }};
const moLightAttenuationUndoCommand::Row    moLightAttenuationUndoCommand::s_row {QT_TRANSLATE_NOOP("LightUndoCommand", "Set Light Attenuation"),  [](N light) { return moLights::getAttenuation(light); },          [](N light, osg::UberLight::LightAttenuation v) { moLights::setAttenuation(light, v); }};

//                                                                                text for on, text for off
const moLightEnableUndoCommand::Row         moLightEnableUndoCommand::s_row      {QT_TRANSLATE_NOOP("LightUndoCommand", "Set Light on/off"), QT_TRANSLATE_NOOP("LightUndoCommand", "Set Light on/off"),
                                                                                  [](N light) { return moLights::getOn(light); },                  [](N light, bool on) { moLights::setOn(light, on); }};
const moLightVisibleUndoCommand::Row        moLightVisibleUndoCommand::s_row     {QT_TRANSLATE_NOOP("LightUndoCommand", "Show Light"), QT_TRANSLATE_NOOP("LightUndoCommand", "Hide Light"),
                                                                                  [](N light) { return moLights::getLightVisualizationVisible(light); },  [](N light, bool on) { moLights::setLightVisualizationVisible(light, on); }};
// clang-format on

/// The description is the untranslated text.
static moUndoString lightText(const char* text)
{
    const QString shown = QCoreApplication::translate("LightUndoCommand", text);
    // A drag makes hundreds of commands: if nothing is translated, text and description share one string.
    const QString description = shown == QLatin1String(text) ? shown : QString::fromLatin1(text);
    return {shown, description, QStringLiteral("Light Commands")};
}

template<class T>
moLightPropertyUndoCommand<T>::moLightPropertyUndoCommand(const Row& row, const osg::NodePtr& light, T value,
                                                          QUndoCommand* parent)
    : moLightUndoCommand<T>(lightText(row.text), light, 0, value, parent), m_row(row)
{
}

template<class T>
T moLightPropertyUndoCommand<T>::get(osg::NodePtr node)
{
    return m_row.read(node);
}

template<class T>
void moLightPropertyUndoCommand<T>::set(osg::NodePtr node, T value)
{
    moStep::writeThroughSibling([&] { m_row.write(node, value); });
}

template class moLightPropertyUndoCommand<osg::Vec3f>;
template class moLightPropertyUndoCommand<float>;
template class moLightPropertyUndoCommand<osg::UberLight::LightAttenuation>;

moLightSwitchUndoCommand::moLightSwitchUndoCommand(const Row& row, const osg::NodePtr& light, bool value,
                                                   QUndoCommand* parent)
    : moLightsFunctionUndoCommand<bool>(
          lightText(value ? row.textOn : row.textOff), light, value, row.read,
          [write = row.write](const osg::NodePtr& node, bool on) {
              moStep::writeThroughSibling([&] { write(node, on); });
          },
          parent)
{
}

// Looks the light up for each edit: a listener to the one before may have destroyed it.
void moLightAttenuationUndoCommand::set(osg::NodePtr node, osg::UberLight::LightAttenuation mode)
{
    const auto former = get(node);
    const float value = moLights::getLightValue(node);
    const auto writeBoth = [&](osg::UberLight::LightAttenuation to) {
        moLightPropertyUndoCommand::set(findNode(), to);
        moStep::writeThroughSibling([&] { moLights::setLightValue(findNode(), value); });
    };
    moStep::writeOrTakeBack([&] { writeBoth(mode); }, [&] { writeBoth(former); });
}

moLightDiffuseUndoCommand::moLightDiffuseUndoCommand(const osg::NodePtr& light, osg::Vec3f value, QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightGlossyUndoCommand::moLightGlossyUndoCommand(const osg::NodePtr& light, osg::Vec3f value, QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightIntensityUndoCommand::moLightIntensityUndoCommand(const osg::NodePtr& light, float value, QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightPenumbraAngleUndoCommand::moLightPenumbraAngleUndoCommand(const osg::NodePtr& light, float value,
                                                                 QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightConeAngleUndoCommand::moLightConeAngleUndoCommand(const osg::NodePtr& light, float value, QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightAttenuationUndoCommand::moLightAttenuationUndoCommand(const osg::NodePtr& light,
                                                             osg::UberLight::LightAttenuation value,
                                                             QUndoCommand* parent)
    : moLightPropertyUndoCommand(s_row, light, value, parent)
{
}

moLightEnableUndoCommand::moLightEnableUndoCommand(const osg::NodePtr& light, bool value, QUndoCommand* parent)
    : moLightSwitchUndoCommand(s_row, light, value, parent)
{
}

moLightVisibleUndoCommand::moLightVisibleUndoCommand(const osg::NodePtr& light, bool value, QUndoCommand* parent)
    : moLightSwitchUndoCommand(s_row, light, value, parent)
{
}
