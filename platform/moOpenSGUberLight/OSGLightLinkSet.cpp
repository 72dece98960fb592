#include <moOpenSGUberLight/OSGLightLinkSet.h>

#include "referenceList_p.h"

#include <OpenSG/OSGRefPtr.h>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_IMPL(LightLinkSet, NodeCore, OSG_LIGHTLINKSET_FIELDS)

LightLinkSet::LightLinkSet(const LightLinkSet& source) : Inherited(source)
{
    referenceList::addReferences(_mfLights);
    referenceList::addReferences(_mfSceneNodes);
}

LightLinkSet::~LightLinkSet()
{
    referenceList::clear(_mfLights);
    referenceList::clear(_mfSceneNodes);
}

bool LightLinkSet::containsLight(const NodePtr& node) const
{
    return referenceList::contains(_mfLights, node);
}

bool LightLinkSet::containsSceneNode(const NodePtr& node) const
{
    return referenceList::contains(_mfSceneNodes, node);
}

void LightLinkSet::addLight(const NodePtr& node)
{
    insertLight(node, static_cast<Int32>(_mfLights.size()));
}

void LightLinkSet::addSceneNode(const NodePtr& node)
{
    insertSceneNode(node, static_cast<Int32>(_mfSceneNodes.size()));
}

void LightLinkSet::insertLight(const NodePtr& node, Int32 index)
{
    insertInto(_mfLights, LightsFieldMask, node, index);
}

void LightLinkSet::insertSceneNode(const NodePtr& node, Int32 index)
{
    insertInto(_mfSceneNodes, SceneNodesFieldMask, node, index);
}

void LightLinkSet::subLight(const NodePtr& node)
{
    takeOutOf(_mfLights, LightsFieldMask, node);
}

void LightLinkSet::subSceneNode(const NodePtr& node)
{
    takeOutOf(_mfSceneNodes, SceneNodesFieldMask, node);
}

void LightLinkSet::insertInto(MFNodePtr& list, BitVector mask, const NodePtr& node, Int32 index)
{
    if (index < 0 || !node || referenceList::contains(list, node)) return;
    const LightLinkSetPtr self(this);
    beginEditCP(self, mask);
    referenceList::insert(list, static_cast<std::size_t>(index), node);
    endEditCP(self, mask);
}

void LightLinkSet::takeOutOf(MFNodePtr& list, BitVector mask, const NodePtr& node)
{
    if (!referenceList::contains(list, node)) return;
    // Until the edit is closed: a node above the set's own takes the set with it when it goes.
    const NodeRefPtr held(node);
    const LightLinkSetPtr self(this);
    beginEditCP(self, mask);
    referenceList::remove(list, node);
    endEditCP(self, mask);
}

OSG_END_NAMESPACE
