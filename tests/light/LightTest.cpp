#include <light/LightTest.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moOpenSGUtils.h>
#include <moSceneData/moSceneDataManager.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>

#include <algorithm>
#include <sstream>

namespace osg {

MO_TRACED_CONTAINER(LightLinkSet, "LightLinkSet")
MO_TRACED_CONTAINER(UberLight, "UberLight")

} // namespace osg

void LightTest::SetUp()
{
    UndoTest::SetUp();
    root = keep(osg::Node::create());
    root->setCore(osg::Group::create());
    sceneNode = place(root, "scene", osg::Group::create());
    moOpenSGUtils::setRoot(root);
    moSceneDataManager::getSceneData(0)->setSceneNode(sceneNode);
}

void LightTest::TearDown()
{
    moUndoStack::clearAll();
    moSceneDataManager::getSceneData(0)->setSceneNode(osg::NullFC);
    moOpenSGUtils::setRoot(osg::NullFC);
    for (auto id = m_kept.rbegin(); id != m_kept.rend(); ++id)
        osg::subRefCP(osg::FieldContainerFactory::the()->getContainer(*id));
    UndoTest::TearDown();
}

void LightTest::drop(const osg::FieldContainerPtr& container)
{
    const auto entry = std::find(m_kept.begin(), m_kept.end(), idOf(container));
    ASSERT_NE(entry, m_kept.end()) << "dropped what was not kept";
    m_kept.erase(entry);
    osg::subRefCP(container);
}

osg::NodePtr LightTest::makeTracedLight()
{
    return makeNode<osg::TracedUberLight>("light");
}

osg::LightLinkSetPtr LightTest::makeTracedSet()
{
    return osg::TracedLightLinkSet::create();
}

osg::NodePtr LightTest::place(const osg::NodePtr& parent, const std::string& name, const osg::NodeCorePtr& core)
{
    const osg::NodePtr node = osg::Node::create();
    osg::setName(node, name);
    node->setCore(core);
    parent->addChild(node);
    return node;
}

void LightTest::destroy(osg::NodePtr node)
{
    node->getParent()->subChild(node);
}

osg::UberLightPtr coreOf(const osg::NodePtr& light)
{
    return osg::UberLightPtr::dcast(light->getCore());
}

osg::UInt32 idOf(const osg::FieldContainerPtr& container)
{
    return container == osg::NullFC ? 0 : osg::getContainerId(container);
}

std::string describeLight(const osg::NodePtr& light)
{
    const osg::UberLightPtr core = coreOf(light);
    const auto color = [](const osg::Color3f& c) {
        std::ostringstream out;
        out << c.red() << ' ' << c.green() << ' ' << c.blue();
        return out.str();
    };
    std::ostringstream out;
    out << (core->getOn() ? "on " : "off ") << moLights::getLightTypeName(light) << " scale " << core->getScale()[0]
        << ' ' << core->getScale()[1] << ' ' << core->getScale()[2] << " diffuse " << color(core->getDiffuse())
        << " glossy " << color(core->getGlossy()) << " value " << core->getIntensity() << " unit "
        << core->getLightUnit() << " attenuation " << core->getAttenuation() << " cone " << core->getConeAngle()
        << " penumbra " << core->getPenumbraAngle() << (core->getLightVisualizationVisible() ? " shown" : " hidden")
        << " reference " << idOf(core->getVisibilityReference()) << " flare " << idOf(core->getLensFlareEffect());
    return out.str();
}

std::string describeEffect(const osg::LensFlareEffectPtr& effect)
{
    std::ostringstream out;
    out << (effect->getIsActive() ? "active" : "inactive") << " color " << effect->getColor().red() << ' '
        << effect->getColor().green() << ' ' << effect->getColor().blue() << " intensity " << effect->getIntensity()
        << " size " << effect->getSize() << " type " << effect->getLensFlareType() << " angular "
        << effect->getAngularIntensity() << (effect->getUseLightProperties() ? " of light" : " of its own")
        << " elements";
    for (const unsigned int id : idsOf(*effect->getMFElements()))
        out << ' ' << id;
    return out.str();
}

std::string namesOf(const osg::MFNodePtr& nodes)
{
    std::string names;
    for (const osg::NodePtr& node : nodes) {
        if (!names.empty()) names += ' ';
        names += osg::getName(node);
    }
    return names;
}

EditLog::EditLog()
{
    osg::Thread::getCurrentChangeList()->setReadOnly(false);
    osg::Thread::getCurrentChangeList()->clearAll();
}

EditLog::~EditLog()
{
    osg::Thread::getCurrentChangeList()->clearAll();
    osg::Thread::getCurrentChangeList()->setReadOnly(true);
}

std::vector<EditLog::Edit> EditLog::take()
{
    osg::ChangeList& list = *osg::Thread::getCurrentChangeList();
    const std::vector<Edit> edits(list.beginChanged(), list.endChanged());
    list.clearAll();
    return edits;
}
