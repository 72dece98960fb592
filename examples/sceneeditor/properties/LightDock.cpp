#include <sceneeditor/properties/LightDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/properties/LightSelection.h>
#include <sceneeditor/properties/ValueRow.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/light/moAddNodeAsVisibilityReferenceUndoCommand.h>
#include <moUndoStack/light/moLightPropertyUndoCommands.h>
#include <moUndoStack/light/moSetLightProfileShapeCommand.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <QtWidgets/QLabel>

#include <algorithm>

namespace {

constexpr NumberStyle intensityStyle{0., 1e9, 1., 3};
constexpr NumberStyle angleStyle{0., 180., 1., 2};

osg::UberLightPtr coreOf(const osg::NodePtr& light)
{
    return light == osg::NullFC ? osg::UberLightPtr() : osg::UberLightPtr::dcast(light->getCore());
}

} // namespace

LightDock::LightDock(EditorSession& session, QWidget* parent) : PropertyDock(tr("Light"), "light-dock", session, parent)
{
    auto* const name = new QLabel;
    name->setObjectName("light-name");
    form().addWidget(name, [this, name] { name->setText(heading()); });
    addShine();
    addReference();
    form().refresh();
}

void LightDock::addShine()
{
    using osg::Vec3f;
    using Attenuation = osg::UberLight::LightAttenuation;
    form().addFlag(tr("On"), "light-on", reads<bool>(&moLights::getOn),
                   writes<moLightEnableUndoCommand, bool, bool>(tr("Switch Lights")));
    form().addFlag(tr("Symbol"), "light-visible", reads<bool>(&moLights::getLightVisualizationVisible),
                   writes<moLightVisibleUndoCommand, bool, bool>(tr("Show or Hide Lights")));
    form().addColor(tr("Diffuse"), "light-diffuse", reads<Vec3f>(&moLights::getDiffuse),
                    writes<moLightDiffuseUndoCommand, Vec3f, Vec3f>(tr("Diffuse Colour of Lights")));
    form().addColor(tr("Specular"), "light-glossy", reads<Vec3f>(&moLights::getGlossy),
                    writes<moLightGlossyUndoCommand, Vec3f, Vec3f>(tr("Specular Colour of Lights")));
    form().addNumber(tr("Intensity"), "light-intensity", intensityStyle, reads<double>(&moLights::getLightValue),
                     writes<moLightIntensityUndoCommand, float, double>(tr("Intensity of Lights")));
    form().addNumber(tr("Cone"), "light-cone", angleStyle, reads<double>(&moLights::getConeAngle),
                     writes<moLightConeAngleUndoCommand, float, double>(tr("Cone of Lights")));
    form().addNumber(tr("Penumbra"), "light-penumbra", angleStyle, reads<double>(&moLights::getPenumbraAngle),
                     writes<moLightPenumbraAngleUndoCommand, float, double>(tr("Penumbra of Lights")));
    form().addChoice(tr("Attenuation"), "light-attenuation", {tr("None"), tr("Linear"), tr("Quadratic")},
                     reads<int>(&moLights::getAttenuation),
                     writes<moLightAttenuationUndoCommand, Attenuation, int>(tr("Attenuation of Lights")));
    form().addButtons(
        {{tr("Shape of Profile"), "light-profile", [this] { return currentLight(session()) != osg::NullFC; },
          [this] {
              applyToLights(tr("Profile Shape of Lights"), [](const osg::NodePtr& light) {
                  return new moSetLightProfileShapeCommand(light, nullptr);
              });
          }}});
}

void LightDock::addReference()
{
    auto* const name = new QLabel;
    name->setObjectName("light-reference");
    form().addWidget(tr("Reference"), name, [this, name] {
        name->setText(reference() == osg::NullFC ? tr("none") : nameOf(reference()));
        name->setEnabled(currentLight(session()) != osg::NullFC);
        name->setToolTip(tr("The light is shown and hidden with this node"));
    });
    form().addButtons({{tr("Set"), "light-set-reference", [this] { return newReference() != osg::NullFC; },
                        [this] {
                            if (newReference() != osg::NullFC) setReference(newReference());
                        }},
                       {tr("Clear"), "light-clear-reference", [this] { return reference() != osg::NullFC; },
                        [this] {
                            if (reference() != osg::NullFC) setReference(osg::NullFC);
                        }}});
    findChild<QWidget*>("light-set-reference")
        ->setToolTip(tr("Takes the selected node; select the light and the node"));
}

QString LightDock::heading() const
{
    const osg::NodePtr light = currentLight(session());
    if (light == osg::NullFC) return tr("No light is selected");
    const QString type = QString::fromStdString(moLights::getLightTypeName(light));
    const int more = static_cast<int>(selectedLights(session()).size()) - 1;
    const QString text = tr("%1 (%2)").arg(nameOf(light), type);
    return more > 0 ? tr("%1 and %2 more").arg(text).arg(more) : text;
}

template<class Shown, class Value>
PropertyForm::Read<Shown> LightDock::reads(Value (*getter)(const osg::NodePtr& light)) const
{
    return [this, getter]() -> std::optional<Shown> {
        const osg::NodePtr light = currentLight(session());
        if (light == osg::NullFC) return std::nullopt;
        return static_cast<Shown>(getter(light));
    };
}

template<class Command, class Value, class Shown>
PropertyForm::Write<Shown> LightDock::writes(const QString& text)
{
    return [this, text](const Shown& shown) {
        applyToLights(text, [value = static_cast<Value>(shown)](const osg::NodePtr& light) {
            return new Command(light, value, nullptr);
        });
    };
}

/// One step for all. The steps of a drag merge, those of several lights child by child.
void LightDock::applyToLights(const QString& text, const std::function<moUndoCommandBase*(const osg::NodePtr&)>& make)
{
    const std::vector<osg::NodePtr> lights = selectedLights(session());
    if (lights.size() == 1) {
        session().apply(make(lights.front()));
        return;
    }
    constexpr bool merges = true;
    const moCompositionScope composition(session().edits(), text, text, merges);
    for (const osg::NodePtr& light : lights)
        session().apply(make(light));
}

osg::NodePtr LightDock::reference() const
{
    const osg::UberLightPtr core = coreOf(currentLight(session()));
    return core ? core->getVisibilityReference() : osg::NodePtr(osg::NullFC);
}

/// The selected node, unless it is the reference already. A light must not refer to itself or to a node above: the two
/// would keep each other for ever.
osg::NodePtr LightDock::newReference() const
{
    const osg::NodePtr light = currentLight(session());
    if (light == osg::NullFC) return osg::NullFC;
    const std::vector<osg::NodePtr> selection = session().selection();
    const osg::NodeCorePtr core = light->getCore();
    const auto found = std::find_if(selection.rbegin(), selection.rend(), [&](const osg::NodePtr& node) {
        const auto& users = core->getParents();
        return !moLights::isLight(node) && std::none_of(users.begin(), users.end(), [&node](const osg::NodePtr& user) {
            return moNodeUtils::hasParent(user, node);
        });
    });
    return found == selection.rend() || *found == reference() ? osg::NodePtr(osg::NullFC) : *found;
}

/// A composite, because undo of a command leaves the light without a reference: the one before is removed by a command of
/// its own, so that undo sets it again.
void LightDock::setReference(const osg::NodePtr& node)
{
    using Command = moAddNodeAsVisibilityReferenceUndoCommand;
    constexpr bool adding = false, removing = true;
    const osg::UberLightPtr core = coreOf(currentLight(session()));
    const QString text =
        node == osg::NullFC ? tr("Clear Visibility Reference") : tr("Visibility Reference '%1'").arg(nameOf(node));
    const moCompositionScope composition(session().edits(), text, text);
    if (reference() != osg::NullFC) session().apply(new Command(core, reference(), removing, nullptr));
    if (node != osg::NullFC) session().apply(new Command(core, node, adding, nullptr));
}
