#include <moOpenSGUtils/moLights.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <cmath>

namespace {

osg::UberLightPtr lightOf(const osg::NodePtr& node)
{
    return node ? osg::UberLightPtr::dcast(node->getCore()) : osg::UberLightPtr(osg::NullFC);
}

/// get(light), or the zero of its type for a node that is no light.
template<class Read>
auto read(const osg::NodePtr& node, const Read& get)
{
    const osg::UberLightPtr light = lightOf(node);
    using Value = std::decay_t<decltype(get(*light))>;
    return light ? Value(get(*light)) : Value();
}

/// change(light) between begin and end of an edit of the fields; nothing for a node that is no light.
template<class Write>
void write(const osg::NodePtr& node, osg::BitVector mask, const Write& change)
{
    const osg::UberLightPtr light = lightOf(node);
    if (!light) return;
    osg::beginEditCP(light, mask);
    change(*light);
    osg::endEditCP(light, mask);
}

osg::Vec3f toVector(const osg::Color3f& color)
{
    return {color.red(), color.green(), color.blue()};
}

osg::Color3f toColor(const osg::Vec3f& vector)
{
    return {vector[0], vector[1], vector[2]};
}

// Applied to what is set and to what is read, so that what was read can be set again. NaN, which nobody can set but a
// field may hold, reads as 0.

float validLightValue(float value)
{
    return std::fmax(value, 0.f);
}

float validAngle(float degrees)
{
    return std::fmin(std::fmax(degrees, 0.f), 180.f);
}

template<class Ptr>
std::vector<Ptr> resolved(const std::vector<unsigned int>& ids)
{
    std::vector<Ptr> items;
    items.reserve(ids.size());
    for (const unsigned int id : ids) {
        if (const Ptr item = Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(id))) items.push_back(item);
    }
    return items;
}

/// A copy of its own of everything that the effect, or a ghost line, lists.
void makeDeep(osg::LensFlareEffect& effect)
{
    const osg::MFLensFlareElementPtr shared = effect.getElements();
    std::vector<osg::LensFlareElementPtr> copies;
    for (const osg::LensFlareElementPtr& element : shared) {
        copies.push_back(osg::LensFlareElementPtr::dcast(element->shallowCopy()));
        const auto line = osg::LensFlareGhostLinePtr::dcast(copies.back());
        if (!line) continue;
        const osg::MFLensFlareGhostPtr ghosts = line->getGhosts();
        line->clearGhosts();
        for (const osg::LensFlareGhostPtr& ghost : ghosts) {
            line->addGhost(osg::LensFlareGhostPtr::dcast(ghost->shallowCopy()));
        }
    }
    effect.clearEffects();
    for (const osg::LensFlareElementPtr& copy : copies)
        effect.addElement(copy);
}

/// Calls the list's function with every item that the ids stand for, in one edit; no edit without items.
template<class ItemPtr, class OwnerPtr, class Function>
void editList(const OwnerPtr& owner, osg::BitVector mask, const std::vector<unsigned int>& ids, Function function)
{
    const std::vector<ItemPtr> items = resolved<ItemPtr>(ids);
    if (!owner || items.empty()) return;
    osg::beginEditCP(owner, mask);
    for (const ItemPtr& item : items)
        ((*owner).*function)(item);
    osg::endEditCP(owner, mask);
}

} // namespace

bool moLights::isLight(const osg::NodePtr& node)
{
    return lightOf(node) != osg::NullFC;
}

bool moLights::getOn(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getOn(); });
}

void moLights::setOn(const osg::NodePtr& light, bool on)
{
    write(light, osg::UberLight::OnFieldMask, [on](auto& core) { core.setOn(on); });
}

osg::Vec3f moLights::getDiffuse(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return toVector(core.getDiffuse()); });
}

void moLights::setDiffuse(const osg::NodePtr& light, osg::Vec3f color)
{
    write(light, osg::UberLight::DiffuseFieldMask, [&color](auto& core) { core.setDiffuse(toColor(color)); });
}

osg::Vec3f moLights::getGlossy(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return toVector(core.getGlossy()); });
}

void moLights::setGlossy(const osg::NodePtr& light, osg::Vec3f color)
{
    write(light, osg::UberLight::GlossyFieldMask, [&color](auto& core) { core.setGlossy(toColor(color)); });
}

float moLights::getLightValue(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return validLightValue(core.getIntensity()); });
}

void moLights::setLightValue(const osg::NodePtr& light, float value)
{
    if (std::isnan(value)) return;
    write(light, osg::UberLight::IntensityFieldMask,
          [value](auto& core) { core.setIntensity(validLightValue(value)); });
}

float moLights::getPenumbraAngle(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return validAngle(core.getPenumbraAngle()); });
}

void moLights::setPenumbraAngle(const osg::NodePtr& light, float degrees)
{
    if (std::isnan(degrees)) return;
    write(light, osg::UberLight::PenumbraAngleFieldMask,
          [degrees](auto& core) { core.setPenumbraAngle(validAngle(degrees)); });
}

float moLights::getConeAngle(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return validAngle(core.getConeAngle()); });
}

void moLights::setConeAngle(const osg::NodePtr& light, float degrees)
{
    if (std::isnan(degrees)) return;
    write(light, osg::UberLight::ConeAngleFieldMask, [degrees](auto& core) { core.setConeAngle(validAngle(degrees)); });
}

osg::UberLight::LightAttenuation moLights::getAttenuation(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getAttenuation(); });
}

void moLights::setAttenuation(const osg::NodePtr& light, osg::UberLight::LightAttenuation mode)
{
    write(light, osg::UberLight::AttenuationFieldMask | osg::UberLight::IntensityFieldMask,
          [mode](auto& core) { core.setAttenuation(mode); });
}

bool moLights::getLightVisualizationVisible(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getLightVisualizationVisible(); });
}

void moLights::setLightVisualizationVisible(const osg::NodePtr& light, bool visible)
{
    write(light, osg::UberLight::LightVisualizationVisibleFieldMask,
          [visible](auto& core) { core.setLightVisualizationVisible(visible); });
}

std::string moLights::getLightTypeName(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return std::string(osg::UberLight::lightTypeName(core.getLightType())); });
}

void moLights::changeLightType(const osg::NodePtr& light, const char* typeName)
{
    osg::UberLight::LightType type;
    if (!osg::UberLight::findLightType(typeName, type)) return;
    write(light,
          osg::UberLight::LightTypeFieldMask | osg::UberLight::LightUnitFieldMask | osg::UberLight::IntensityFieldMask |
              osg::UberLight::ScaleFieldMask,
          [type](auto& core) { core.setLightType(type); });
}

osg::UberLight::LightUnit moLights::getLightUnit(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getLightUnit(); });
}

void moLights::setLightUnit(const osg::NodePtr& light, osg::UberLight::LightUnit unit)
{
    write(light, osg::UberLight::LightUnitFieldMask | osg::UberLight::IntensityFieldMask,
          [unit](auto& core) { core.setLightUnit(unit); });
}

void moLights::setDefaultLightUnit(const osg::NodePtr& light)
{
    if (const osg::UberLightPtr core = lightOf(light)) {
        setLightUnit(light, osg::UberLight::defaultLightUnit(core->getLightType()));
    }
}

void moLights::setLightProfileShape(const osg::NodePtr& light)
{
    changeLightType(light, osg::UberLight::lightTypeName(osg::UberLight::ProfileLight));
}

float moLights::getLightProfileValue(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getProfileValue(); });
}

void moLights::setLightProfile(const osg::NodePtr& light, const char* name, float value)
{
    if (std::isnan(value)) return;
    write(light, osg::UberLight::ProfileNameFieldMask | osg::UberLight::ProfileValueFieldMask,
          [name, value](auto& core) {
              core.setProfileName(name ? name : "");
              core.setProfileValue(value);
          });
}

osg::LensFlareEffectPtr moLights::getLensFlareEffect(const osg::NodePtr& light)
{
    return read(light, [](auto& core) { return core.getLensFlareEffect(); });
}

void moLights::setLensFlareEffect(const osg::NodePtr& light, const osg::LensFlareEffectPtr& effect)
{
    write(light, osg::UberLight::LensFlareEffectFieldMask, [&effect](auto& core) { core.setLensFlareEffect(effect); });
}

void moLights::addLensFlareElements(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds)
{
    editList<osg::LensFlareElementPtr>(getLensFlareEffect(light), osg::LensFlareEffect::ElementsFieldMask, elementIds,
                                       &osg::LensFlareEffect::addElement);
}

void moLights::removeLensFlareElements(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds)
{
    editList<osg::LensFlareElementPtr>(getLensFlareEffect(light), osg::LensFlareEffect::ElementsFieldMask, elementIds,
                                       &osg::LensFlareEffect::subElement);
}

void moLights::addLensFlareGhosts(const osg::LensFlareGhostLinePtr& line, const std::vector<unsigned int>& ghostIds)
{
    editList<osg::LensFlareGhostPtr>(line, osg::LensFlareGhostLine::GhostsFieldMask, ghostIds,
                                     &osg::LensFlareGhostLine::addGhost);
}

void moLights::removeLensFlareGhosts(const osg::LensFlareGhostLinePtr& line, const std::vector<unsigned int>& ghostIds)
{
    editList<osg::LensFlareGhostPtr>(line, osg::LensFlareGhostLine::GhostsFieldMask, ghostIds,
                                     &osg::LensFlareGhostLine::subGhost);
}

osg::LensFlareEffectPtr moLights::cloneLensFlareEffect(const osg::LensFlareEffectPtr& effect,
                                                       LensFlareEffectCloneMode mode)
{
    if (!effect) return osg::NullFC;
    const auto clone = osg::LensFlareEffectPtr::dcast(effect->shallowCopy());
    if (mode == LensFlareEffectCloneDeep) makeDeep(*clone);
    return clone;
}
