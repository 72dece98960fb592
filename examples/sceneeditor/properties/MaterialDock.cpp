#include <sceneeditor/properties/MaterialDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/properties/ChangingChoice.h>
#include <sceneeditor/properties/FieldRows.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/material/moColorComponentUndoCommand.h>
#include <moUndoStack/material/moMaterialMultiUndoCommand.h>
#include <moUndoStack/material/moMaterialUndoCommand.h>
#include <moUndoStack/material/moSetEnvironmentUndoCommand.h>

#include <algorithm>
#include <array>

namespace {

constexpr NumberStyle intensityStyle{0., 1e6, 0.1, 3};
constexpr std::array<const char*, 3> channels{"red", "green", "blue"};

moUndoString wordingOf(const QString& text)
{
    return {text, text, "Material Commands"};
}

/// The settings that the color data of a node's mesh begins with; null if the material has none.
osg::ColorComponentSettingsPtr firstOf(const osg::UberMaterialPtr& material)
{
    if (!material || material->getColorComponents().size() == 0) return osg::NullFC;
    return material->getColorComponents(0);
}

osg::Color3f colorOf(const osg::ColorComponentSettingsPtr& settings)
{
    return {settings->getRed(), settings->getGreen(), settings->getBlue()};
}

moUndoString paintText(const osg::ColorComponentSettingsPtr& settings)
{
    return wordingOf(MaterialDock::tr("Paint '%1'").arg(QString::fromStdString(settings->getLabel())));
}

moUndoCommandBase* paint(const osg::UberMaterialPtr& material, const osg::ColorComponentSettingsPtr& settings,
                         const osg::Color3f& color)
{
    auto* const composite = new moMaterialMultiUndoCommand(paintText(settings), material, settings);
    for (unsigned int i = 0; i < channels.size(); ++i)
        new moFieldUndoCommand<float>(paintText(settings), settings, channels.at(i), color[i], composite);
    return composite;
}

} // namespace

MaterialDock::MaterialDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Material"), "material-dock", session, parent)
{
    addChangingChoice(
        form(), tr("Material"), "material", [this] { return namesOf(materials()); },
        [this]() -> std::optional<int> {
            if (current() == osg::NullFC) return std::nullopt;
            return static_cast<int>(m_current);
        },
        [this](int index) {
            m_current = static_cast<std::size_t>(index);
            m_component = 0;
            form().refresh();
        });
    addChangingChoice(
        form(), tr("Component"), "material-component",
        [this] {
            QStringList numbers;
            const osg::UberMaterialPtr shown = material();
            const int count = shown ? static_cast<int>(shown->getColorComponents().size()) : 0;
            for (int number = 1; number <= count; ++number)
                numbers.append(QString::number(number));
            return numbers;
        },
        [this]() -> std::optional<int> { return component() ? std::optional<int>(m_component) : std::nullopt; },
        [this](int index) {
            m_component = index;
            form().refresh();
        });
    addRenderedRows();
    addEditorRows();
    addSelectionRow();
    addEnvironment();
    connect(&session, &EditorSession::selectionChanged, this, &MaterialDock::followSelection);
    connect(&session, &EditorSession::sceneLoaded, this, [this] {
        m_current = 0;
        m_component = 0;
        form().refresh();
    });
    form().refresh();
}

void MaterialDock::addRenderedRows()
{
    FieldRows rows(
        form(), "Material Commands", [this]() -> osg::FieldContainerPtr { return component(); },
        [this](moFieldBaseUndoCommand<>* command) {
            session().apply(
                new moMaterialUndoCommand(wordingOf(command->text()), command, material(), component(), nullptr));
        });
    rows.addFlag(tr("Enabled"), "material-enabled", "enabled");
    form().addColor<osg::Color3f>(
        tr("Colour"), "material-color", [this] { return color(); },
        [this](const osg::Color3f& value) { setColor(value); });
    rows.addNumber(tr("Intensity"), "material-intensity", "intensity", intensityStyle);
    constexpr int blendModes = 16, textureUnits = 16;
    rows.addCount(tr("Blend mode"), "material-blend", "blendMode", 0, blendModes - 1);
    rows.addCount(tr("Texture unit"), "material-unit", "textureUnit", -1, textureUnits - 1);
    rows.addFlag(tr("Planar"), "material-planar", "planarProjection");
}

void MaterialDock::addEditorRows()
{
    FieldRows rows(
        form(), "Material Commands", [this]() -> osg::FieldContainerPtr { return component(); },
        [this](moFieldBaseUndoCommand<>* command) {
            session().apply(
                new moColorComponentUndoCommand(wordingOf(command->text()), command, material(), component(), nullptr));
        });
    rows.addText(tr("Label"), "material-label", "label");
    rows.addTexts(tr("Textures"), "material-textures", "texturePaths");
}

void MaterialDock::addSelectionRow()
{
    form().addButtons(
        {{tr("Colour to Selected Nodes"), "material-paint-selected",
          [this] { return color().has_value() && !selectedMaterials().empty(); }, [this] { paintSelected(); }}});
}

void MaterialDock::addEnvironment()
{
    addChangingChoice(
        form(), tr("Environment"), "material-environment",
        [this] { return QStringList(tr("None")) + namesOf(environments()); },
        [this]() -> std::optional<int> {
            if (!measured()) return std::nullopt;
            const std::vector<osg::MaterialPtr> all = environments();
            const auto found = std::find(all.begin(), all.end(), measured()->getEnvironment());
            return found == all.end() ? 0 : static_cast<int>(found - all.begin()) + 1;
        },
        [this](int index) { setEnvironment(index); });
}

std::vector<osg::MaterialPtr> MaterialDock::materials() const
{
    std::vector<osg::MaterialPtr> found;
    for (const osg::FieldContainerRefPtr& container : session().model().containers) {
        if (osg::UberMaterialPtr::dcast(container.get()) || osg::UBRDFMaterialPtr::dcast(container.get()))
            found.push_back(osg::MaterialPtr::dcast(container.get()));
    }
    return found;
}

QStringList MaterialDock::namesOf(const std::vector<osg::MaterialPtr>& materials) const
{
    QStringList names;
    for (const osg::MaterialPtr& each : materials) {
        const osg::ColorComponentSettingsPtr settings = firstOf(osg::UberMaterialPtr::dcast(each));
        const QString name = settings ? QString::fromStdString(settings->getLabel()) : tr("Measured");
        names.append(name.isEmpty() ? tr("Unnamed") : name);
    }
    return names;
}

/// A material cannot light itself.
std::vector<osg::MaterialPtr> MaterialDock::environments() const
{
    std::vector<osg::MaterialPtr> found = materials();
    found.erase(std::remove(found.begin(), found.end(), current()), found.end());
    return found;
}

void MaterialDock::followSelection()
{
    const std::vector<osg::UberMaterialPtr> selected = selectedMaterials();
    if (selected.empty()) return;
    const std::vector<osg::MaterialPtr> all = materials();
    const auto found = std::find(all.begin(), all.end(), osg::MaterialPtr(selected.back()));
    m_current = static_cast<std::size_t>(found - all.begin());
    m_component = 0;
    form().refresh();
}

/// Those of the selected nodes, each once, that of the node selected last at the end. The materials of the file come
/// first, in the order of the file.
std::vector<osg::UberMaterialPtr> MaterialDock::selectedMaterials() const
{
    std::vector<osg::UberMaterialPtr> found;
    const std::vector<osg::MaterialPtr> all = materials();
    const std::vector<LoadedMaterial>& loaded = session().model().materials;
    for (const osg::NodePtr& node : session().selection()) {
        for (std::size_t i = 0; i < std::min(loaded.size(), all.size()); ++i) {
            const std::vector<osg::NodePtr>& nodes = loaded[i].nodes;
            if (std::find(nodes.begin(), nodes.end(), node) == nodes.end()) continue;
            const auto material = osg::UberMaterialPtr::dcast(all[i]);
            found.erase(std::remove(found.begin(), found.end(), material), found.end());
            found.push_back(material);
        }
    }
    return found;
}

osg::MaterialPtr MaterialDock::current() const
{
    const std::vector<osg::MaterialPtr> all = materials();
    return m_current < all.size() ? all[m_current] : osg::MaterialPtr(osg::NullFC);
}

osg::UberMaterialPtr MaterialDock::material() const
{
    return osg::UberMaterialPtr::dcast(current());
}

osg::UBRDFMaterialPtr MaterialDock::measured() const
{
    return osg::UBRDFMaterialPtr::dcast(current());
}

osg::ColorComponentSettingsPtr MaterialDock::component() const
{
    const osg::UberMaterialPtr shown = material();
    const auto index = static_cast<osg::UInt32>(m_component);
    if (!shown || index >= shown->getColorComponents().size()) return osg::NullFC;
    return shown->getColorComponents(index);
}

std::optional<osg::Color3f> MaterialDock::color() const
{
    const osg::ColorComponentSettingsPtr settings = component();
    return settings ? std::optional<osg::Color3f>(colorOf(settings)) : std::nullopt;
}

/// One channel is one field; for more it takes a composite.
void MaterialDock::setColor(const osg::Color3f& color)
{
    const osg::ColorComponentSettingsPtr settings = component();
    if (!settings) return;
    const osg::Color3f before = colorOf(settings);
    std::vector<unsigned int> changed;
    for (unsigned int i = 0; i < channels.size(); ++i) {
        if (color[i] != before[i]) changed.push_back(i);
    }
    if (changed.size() == 1) {
        const moUndoString wording = paintText(settings);
        auto* const channel =
            new moFieldUndoCommand<float>(wording, settings, channels.at(changed.front()), color[changed.front()]);
        session().apply(new moMaterialUndoCommand(wording, channel, material(), settings, nullptr));
    } else if (!changed.empty()) {
        session().apply(paint(material(), settings, color));
    }
}

void MaterialDock::paintSelected()
{
    if (!color()) return;
    const osg::Color3f wanted = *color();
    const QString text = tr("Paint Selected Nodes");
    const moCompositionScope composition(session().edits(), text, text);
    for (const osg::UberMaterialPtr& each : selectedMaterials()) {
        if (firstOf(each)) session().apply(paint(each, firstOf(each), wanted));
    }
}

void MaterialDock::setEnvironment(int index)
{
    if (!measured()) return;
    const std::vector<osg::MaterialPtr> all = environments();
    const auto chosen = static_cast<std::size_t>(index);
    const osg::MaterialPtr environment =
        chosen >= 1 && chosen <= all.size() ? all[chosen - 1] : osg::MaterialPtr(osg::NullFC);
    session().apply(new moSetEnvironmentUndoCommand(measured(), environment, nullptr));
}
