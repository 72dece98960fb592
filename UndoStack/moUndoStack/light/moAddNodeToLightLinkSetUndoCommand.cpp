#include <moUndoStack/light/moAddNodeToLightLinkSetUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/light/moNodeFlags_p.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moOpenSGUtils.h>
#include <moSceneData/moSceneDataManager.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>
#include <moUtils/moMessage.h>

#include <algorithm>

MO_UNDO_COMMAND_ID_IMPL(moAddNodeToLightLinkSetUndoCommand)

namespace {

constexpr unsigned int lightListType = 3;
constexpr osg::UInt32 sharedCoreExternalFlag = 0x2;
constexpr osg::UInt32 notInSceneFlag = 0x1000;

/// The one real node of the scene that has the stand-in's core; null if there is none, or more than one.
osg::NodePtr findRealLight(const osg::NodePtr& standIn)
{
    const osg::NodeCorePtr core = standIn->getCore();
    const moSceneData* scene = moSceneDataManager::getSceneData(0);
    if (!core || !scene) return osg::NullFC;

    const auto isReal = [sceneNode = scene->getSceneNode()](const osg::NodePtr& node) {
        return node && !(moNodeFlags::getFlags(node) & notInSceneFlag) &&
               !(moNodeFlags::getExternalFlags(node) & sharedCoreExternalFlag) &&
               moNodeUtils::hasParent(node, sceneNode);
    };
    osg::NodePtr real;
    for (const osg::NodePtr& parent : core->getParents()) {
        if (!isReal(parent)) continue;
        if (real) return osg::NullFC;
        real = parent;
    }
    return real;
}

} // namespace

moAddNodeToLightLinkSetUndoCommand::moAddNodeToLightLinkSetUndoCommand(const char* text,
                                                                       const osg::LightLinkSetPtr& set,
                                                                       unsigned int listType, bool remove,
                                                                       QUndoCommand* parent)
    : moUndoCommand(moUndoString(text, QString()), parent),
      m_setId(containerId(set)),
      m_remove(remove),
      m_sceneNodes(listType != lightListType)
{
}

moAddNodeToLightLinkSetUndoCommand::moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       const std::vector<osg::NodePtr>& nodes,
                                                                       unsigned int listType, bool remove,
                                                                       QUndoCommand* parent)
    : moAddNodeToLightLinkSetUndoCommand("Add Nodes to Light Link Set", set, listType, remove, parent)
{
    if (set) init(set, nodes);
}

moAddNodeToLightLinkSetUndoCommand::moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, osg::NodePtr node,
                                                                       unsigned int listType, bool remove,
                                                                       QUndoCommand* parent)
    : moAddNodeToLightLinkSetUndoCommand("Add Node to Light Link Set", set, listType, remove, parent)
{
    if (set && node) init(set, {node});
}

void moAddNodeToLightLinkSetUndoCommand::init(const osg::LightLinkSetPtr& set, const std::vector<osg::NodePtr>& nodes)
{
    const osg::MFNodePtr& list = *(m_sceneNodes ? set->getMFSceneNodes() : set->getMFLights());
    for (osg::NodePtr node : nodes) {
        if (!node) continue;
        if (node == moOpenSGUtils::getRoot()) {
            moLog::error("Cannot add Root to Light Link Set.");
            continue;
        }
        if (!m_sceneNodes && (moNodeFlags::getExternalFlags(node) & sharedCoreExternalFlag)) {
            node = findRealLight(node);
            if (!node) continue;
        }
        if (m_remove) {
            const auto entry = std::find(list.begin(), list.end(), node);
            m_positions.push_back(entry == list.end() ? -1 : static_cast<int>(entry - list.begin()));
        } else if (m_sceneNodes ? set->containsSceneNode(node) : set->containsLight(node)) {
            continue;
        }
        m_nodeIds.push_back(containerId(node));
    }
}

void moAddNodeToLightLinkSetUndoCommand::undo()
{
    step(!m_remove);
}

void moAddNodeToLightLinkSetUndoCommand::redo()
{
    step(m_remove);
}

void moAddNodeToLightLinkSetUndoCommand::step(bool remove)
{
    moStep::run([this, remove] {
        std::size_t done = 0;
        moStep::writeOrTakeBack(
            [&] {
                for (; done < m_nodeIds.size(); ++done)
                    apply(done, remove);
            },
            [&] {
                for (std::size_t i = 0; i <= done; ++i)
                    apply(i, !remove);
            });
    });
}

void moAddNodeToLightLinkSetUndoCommand::apply(std::size_t i, bool remove)
{
    // Looks the set up for each node: a listener to one edit may destroy it before the next.
    const auto set = findContainer<osg::LightLinkSetPtr>(m_setId);
    const auto node = findContainer<osg::NodePtr>(m_nodeIds[i]);
    if (!set || !node) return;
    moStep::writeThroughSibling([&] {
        if (remove) {
            m_sceneNodes ? set->subSceneNode(node) : set->subLight(node);
        } else if (i < m_positions.size()) {
            m_sceneNodes ? set->insertSceneNode(node, m_positions[i]) : set->insertLight(node, m_positions[i]);
        } else {
            m_sceneNodes ? set->addSceneNode(node) : set->addLight(node);
        }
    });
}

void moAddNodeToLightLinkSetUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("lightlinkset", m_setId, true);
}
