#include <scene/Prepare.h>

#include <scene/ModelLoader.h>
#include <scene/Paint.h>

#include <moOpenSGUtils/moLights.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>
#include <moOpenSGExt/OSGTagAttachment.h>
#include <moOpenSGUberLight/OSGLightLinkSet.h>
#include <moOpenSGUberLight/OSGUberLight.h>
#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>

namespace {

using osg::UberLight;

constexpr osg::UInt32 sharedCoreFlag = 0x2;

UberLight::LightType typeOf(LoadedLight::Kind kind)
{
    switch (kind) {
    case LoadedLight::Kind::Directional:
        return UberLight::DirectionalLight;
    case LoadedLight::Kind::Spot:
        return UberLight::SpotLight;
    case LoadedLight::Kind::Area:
        return UberLight::AreaLight;
    case LoadedLight::Kind::Point:
    case LoadedLight::Kind::Ambient:
        break;
    }
    return UberLight::PointLight;
}

/// A light core with the properties from the file and the transform of the node.
osg::UberLightPtr lightCore(const LoadedLight& loaded)
{
    const osg::UberLightPtr light = UberLight::create();
    const osg::CPEditor edit(light, osg::FieldBits::AllFields);
    if (const auto transform = osg::Transform3DPtr::dcast(loaded.node->getCore())) {
        for (osg::UInt32 id = osg::Transform::NextFieldId; id < osg::Transform3D::NextFieldId; ++id)
            light->getField(id)->setAbstrValue(*transform->getField(id));
    }
    const float intensity = std::max({loaded.color.red(), loaded.color.green(), loaded.color.blue()});
    light->setLightType(typeOf(loaded.kind));
    if (intensity > 0.f) {
        light->setIntensity(intensity);
        light->setDiffuse(osg::Color3f(loaded.color.red() / intensity, loaded.color.green() / intensity,
                                       loaded.color.blue() / intensity));
    }
    if (loaded.kind == LoadedLight::Kind::Spot) {
        light->setConeAngle(std::clamp(loaded.outerConeAngle, 0.f, 180.f));
        light->setPenumbraAngle(std::clamp(loaded.outerConeAngle - loaded.innerConeAngle, 0.f, 180.f));
    }
    if (loaded.attenuation[2] > 0.f)
        light->setAttenuation(UberLight::QuadraticAttenuation);
    else if (loaded.attenuation[1] > 0.f)
        light->setAttenuation(UberLight::LinearAttenuation);
    return light;
}

osg::NodePtr addNode(const osg::NodePtr& parent, const char* name, const osg::NodeCorePtr& core)
{
    const osg::NodePtr node = osg::makeNodeFor(core);
    osg::setName(node, name);
    const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(node);
    return node;
}

void addMaterial(Model& model, const LoadedMaterial& loaded)
{
    const osg::ColorComponentSettingsPtr settings = osg::ColorComponentSettings::create();
    settings->setLabel(loaded.name);
    settings->setRed(loaded.baseColor.red());
    settings->setGreen(loaded.baseColor.green());
    settings->setBlue(loaded.baseColor.blue());

    const osg::UberMaterialPtr material = osg::UberMaterial::create();
    const osg::CPEditor edit(material, osg::UberMaterial::ColorComponentsFieldMask);
    material->addColorComponent(settings);
    model.containers.emplace_back(material);
}

} // namespace

osg::SFUInt32* externalFlags(const osg::NodePtr& node)
{
    return dynamic_cast<osg::SFUInt32*>(node->getField("externalFlags"));
}

osg::TagAttachmentPtr tagsOf(const osg::NodePtr& node)
{
    return osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassType()));
}

void prepareFields(Model& model)
{
    std::vector<LoadedMaterial> materials = model.materials;
    if (materials.empty()) materials.emplace_back();
    for (const LoadedMaterial& material : materials) {
        const osg::PaintPtr paint = osg::Paint::create();
        const osg::CPEditor edit(paint);
        paint->setDiffuse(material.baseColor);
        paint->setEmission(material.emission);
        paint->setTransparency(1.F - material.opacity);
        paint->setLabel(material.name);
        model.containers.emplace_back(paint);
    }
}

void prepareLights(Model& model)
{
    for (const LoadedLight& loaded : model.lights) {
        const osg::CPEditor edit(loaded.node, osg::Node::CoreFieldMask);
        loaded.node->setCore(lightCore(loaded));
    }

    // Model files do not have these: an area light with a profile and a lens flare, a link set and, if nodes can be
    // marked as stand-ins, a second node with the light's core.
    const osg::UberLightPtr core = UberLight::create();
    const osg::NodePtr areaLight = addNode(model.root.get(), areaLightName, core);
    moLights::changeLightType(areaLight, "Area");
    moLights::setLightProfile(areaLight, "softbox.ies", 850.f);
    moLights::setLensFlareEffect(areaLight, osg::LensFlareEffect::create());
    {
        const osg::CPEditor edit(core, osg::Transform3D::ScaleFieldMask);
        core->setScale(osg::Vec3f(2.f, 1.f, 1.f));
    }
    model.lights.push_back({LoadedLight::Kind::Area, areaLight, osg::Color3f(1.f, 1.f, 1.f)});
    if (externalFlags(model.root.get()))
        externalFlags(addNode(model.root.get(), standInName, core))->setValue(sharedCoreFlag);
    addNode(model.root.get(), linkSetName, osg::LightLinkSet::create());
}

void prepareMaterials(Model& model)
{
    for (const LoadedMaterial& loaded : model.materials)
        addMaterial(model, loaded);
    // Two more, which also serve as environments.
    for (const char* name : {"Studio", "Sky"}) {
        LoadedMaterial environment;
        environment.name = name;
        addMaterial(model, environment);
    }
    model.containers.emplace_back(osg::UBRDFMaterial::create());
}

void prepareTags(Model& model)
{
    for (const osg::NodePtr& node : model.nodes) {
        if (tagsOf(node)) continue;
        const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
        tags->getMFSystemTags()->push_back("imported");
        const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
        node->addAttachment(tags);
    }
}

void prepareConstraints(Model& model)
{
    model.containers.emplace_back(osg::AimConstraint::create());
}
