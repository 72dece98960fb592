#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>
#include <scene/Prepare.h>
#include <scene/Progress.h>
#include <scene/SceneDigest.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moLights.h>
#include <moSceneData/moSceneDataManager.h>

#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>

namespace {

using osg::UberLight;

constexpr unsigned int lightList = 3, sceneNodeList = 0;
constexpr bool adding = false, removing = true;

/// How many nodes are linked to lights at most. A link set searches its list for each node that is added or removed, so
/// linking all nodes of a big scene would cost the square of their number.
constexpr std::size_t linkedNodes = 1000;

/// The external flags of a node; null on an OpenSG whose nodes have none.
osg::SFUInt32* externalFlags(const osg::NodePtr& node)
{
    return dynamic_cast<osg::SFUInt32*>(node->getField("externalFlags"));
}

osg::NodePtr childOfRoot(const Model& model, const char* name)
{
    const osg::NodePtr root = model.root.get();
    for (osg::UInt32 i = root->getNChildren(); i > 0; --i) {
        const char* childName = osg::getName(root->getChild(i - 1));
        if (childName && std::string(childName) == name) return root->getChild(i - 1);
    }
    return osg::NullFC;
}

/// Makes the model scene 0 while it exists: a link command looks there for the real node of a light.
class SceneZero
{
public:
    explicit SceneZero(const Model& model) { moSceneDataManager::getSceneData(0)->setSceneNode(model.root.get()); }
    ~SceneZero() { moSceneDataManager::getSceneData(0)->setSceneNode(osg::NullFC); }
    SceneZero(const SceneZero&) = delete;
    SceneZero& operator=(const SceneZero&) = delete;
};

/// Drags a slider: a command for each move, one step in all.
template<class Command, class T>
void drag(Context& context, const osg::NodePtr& light, T (*value)(const osg::NodePtr&), const T& first, const T& last)
{
    constexpr int moves = 20;
    // In seconds: longer than the user may rest in the middle of a drag.
    constexpr double mergeInterval = 10.;

    const SceneState before = context.scene.state();
    const int steps = context.stack.size();
    for (int move = 1; move <= moves; ++move) {
        const float part = static_cast<float>(move) / static_cast<float>(moves);
        auto* command = new Command(light, move == moves ? last : T(first + (last - first) * part), nullptr);
        command->setMergeResponseDelta(mergeInterval);
        context.stack.addOrExecute(command);
    }
    const char* name = osg::getName(light);
    const QString text = QStringLiteral("%1, %2").arg(QString::fromUtf8(name), context.stack.currentCommand()->text());
    context.report.check(QStringLiteral("light: the moves of a drag are one step (%1)").arg(text),
                         context.stack.size() == steps + 1 && value(light) == last);
    context.stack.undo();
    context.checkScene(QStringLiteral("light: one undo takes the whole drag back (%1)").arg(text), before);
    context.stack.redo();
}

void editProperties(Context& context, const osg::NodePtr& light)
{
    using osg::Vec3f;
    drag<moLightDiffuseUndoCommand>(context, light, moLights::getDiffuse, Vec3f(1.f, 1.f, 1.f), Vec3f(1.f, .75f, .5f));
    drag<moLightGlossyUndoCommand>(context, light, moLights::getGlossy, Vec3f(1.f, 1.f, 1.f), Vec3f(.5f, .75f, 1.f));
    drag<moLightIntensityUndoCommand>(context, light, moLights::getLightValue, 1.f, 27.5f);
    drag<moLightConeAngleUndoCommand>(context, light, moLights::getConeAngle, 20.f, 72.f);
    drag<moLightPenumbraAngleUndoCommand>(context, light, moLights::getPenumbraAngle, 0.f, 12.f);

    const float value = moLights::getLightValue(light);
    const auto attenuation = moLights::getAttenuation(light) == UberLight::QuadraticAttenuation
                                 ? UberLight::NoAttenuation
                                 : UberLight::QuadraticAttenuation;
    context.stack.addOrExecute(new moLightAttenuationUndoCommand(light, attenuation, nullptr));
    context.report.check("light: another attenuation keeps the light value", moLights::getLightValue(light) == value);

    context.stack.addOrExecute(new moLightEnableUndoCommand(light, false, nullptr));
    const int steps = context.stack.size();
    context.stack.addOrExecute(new moLightVisibleUndoCommand(light, false, nullptr));
    context.stack.addOrExecute(new moLightVisibleUndoCommand(light, true, nullptr));
    context.stack.addOrExecute(new moLightVisibleUndoCommand(light, false, nullptr));
    context.report.check("light: showing and hiding stay steps of their own", context.stack.size() == steps + 3);
}

/// Builds a lens flare, removes parts of it, and replaces it by another one.
void editLensFlare(Context& context, const osg::NodePtr& light)
{
    const osg::LensFlareEffectPtr flare = moLights::getLensFlareEffect(light);
    const osg::LensFlareElementPtr glow = osg::LensFlareElement::create();
    const osg::LensFlareElementPtr ring = osg::LensFlareElement::create();
    const osg::LensFlareGhostLinePtr ghostLine = osg::LensFlareGhostLine::create();
    context.stack.addOrExecute(new moAddLensFlareElementCommand(light, {glow, ring, ghostLine}, nullptr));

    std::vector<osg::LensFlareGhostPtr> ghosts;
    for (const float position : {.5f, .8f, 1.3f, 1.9f}) {
        ghosts.push_back(osg::LensFlareGhost::create());
        ghosts.back()->setPosition(position);
    }
    context.stack.addOrExecute(new moAddGhostCommand(ghostLine, ghosts, nullptr));

    const SceneState whole = context.scene.state();
    context.stack.addOrExecute(
        new moRemoveGhostCommand(ghostLine, {osg::getContainerId(ghosts[1]), osg::getContainerId(ghosts[2])}, nullptr));
    context.stack.addOrExecute(new moRemoveLensFlareElementCommand(light, {osg::getContainerId(ring)}, nullptr));
    context.report.check("light: parts were taken out of a lens flare",
                         flare->getElements().size() == 2 && ghostLine->getGhosts().size() == 2);
    context.stack.undo();
    context.stack.undo();
    context.checkScene("light: undo puts them back where they were", whole);
    context.stack.redo();
    context.stack.redo();

    const osg::RefPtr<osg::LensFlareEffectPtr> preset(osg::LensFlareEffect::create());
    preset->setLensFlareType(osg::LensFlareEffect::AnamorphicFlare);
    preset->setColor(osg::Color3f(.4f, .6f, 1.f));
    preset->setSize(2.5f);
    preset->addElement(osg::LensFlareElement::create());
    context.stack.addOrExecute(new moSetLensFlareEffectCommand(preset, flare, nullptr));
    context.report.check("light: a lens flare takes over all of a preset",
                         flare->getSize() == 2.5f && flare->getElements().size() == 1);
}

void editProfile(Context& context, const osg::NodePtr& light)
{
    const SceneState before = context.scene.state();
    context.stack.addOrExecute(new moSetLightProfileShapeCommand(light, nullptr));
    context.report.check("light: a light has the shape and the value of its profile",
                         moLights::getLightTypeName(light) == "Profile" && moLights::getLightValue(light) == 850.f);
    context.stack.undo();
    context.checkScene("light: undo gives type, scale and value back", before);
    context.stack.redo();
}

void editLinks(Context& context, const osg::NodePtr& areaLight)
{
    const auto set = osg::LightLinkSetPtr::dcast(childOfRoot(context.model, linkSetName)->getCore());
    const SceneZero scene(context.model);

    // For a stand-in of the area light, the area light itself is added.
    const osg::NodePtr standIn = childOfRoot(context.model, standInName);
    if (standIn != osg::NullFC) {
        context.stack.addOrExecute(new moAddNodeToLightLinkSetUndoCommand(set, standIn, lightList, adding, nullptr));
        context.report.check("light: a light with a shared core is listed by its real node",
                             set->containsLight(areaLight) && !set->containsLight(standIn));
    }

    // Without the root, which a link set refuses: the node of a light may be the root of the file.
    std::vector<osg::NodePtr> lights;
    for (const LoadedLight& loaded : context.model.lights) {
        if (loaded.node != context.model.root.get()) lights.push_back(loaded.node);
    }
    context.stack.addOrExecute(new moAddNodeToLightLinkSetUndoCommand(set, lights, lightList, adding, nullptr));
    context.report.check("light: a link set lists a light once", set->getLights().size() == lights.size());

    std::vector<osg::NodePtr> nodes(context.model.nodes.begin() + 1, context.model.nodes.end());
    nodes.resize(std::min(nodes.size(), linkedNodes));
    context.stack.addOrExecute(new moAddNodeToLightLinkSetUndoCommand(set, nodes, sceneNodeList, adding, nullptr));
    context.report.check("light: a link set takes every node that it is given",
                         set->getSceneNodes().size() == nodes.size());

    // Reorders: every other node is removed and added again at the end.
    std::vector<osg::NodePtr> moved;
    for (std::size_t i = 0; i < nodes.size(); i += 2)
        moved.push_back(nodes[i]);
    const SceneState before = context.scene.state();
    context.stack.addOrExecute(new moAddNodeToLightLinkSetUndoCommand(set, moved, sceneNodeList, removing, nullptr));
    context.stack.undo();
    context.checkScene("light: removed nodes return to their places", before);
    context.stack.redo();
    context.stack.addOrExecute(new moAddNodeToLightLinkSetUndoCommand(set, moved, sceneNodeList, adding, nullptr));

    if (nodes.empty()) return;
    context.stack.addOrExecute(new moAddNodeAsVisibilityReferenceUndoCommand(
        osg::UberLightPtr::dcast(areaLight->getCore()), nodes.back(), adding, nullptr));
    if (const auto* flags = externalFlags(nodes.back()))
        context.report.check("light: a visibility reference is marked", (flags->getValue() & 0x10) != 0);
}

} // namespace

void lightChapter(Context& context)
{
    const osg::NodePtr areaLight = context.model.lights.back().node;
    const std::vector<LoadedLight>& lights = context.model.lights;
    for (std::size_t i = 0; i < lights.size(); ++i) {
        context.progress.step("editing", i, lights.size());
        editProperties(context, lights[i].node);
    }
    editLensFlare(context, areaLight);
    editProfile(context, areaLight);
    editLinks(context, areaLight);
}
