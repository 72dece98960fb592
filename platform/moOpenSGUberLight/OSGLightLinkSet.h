#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGNode.h>

OSG_BEGIN_NAMESPACE

class LightLinkSet;
typedef FCPtr<NodeCorePtr, LightLinkSet> LightLinkSetPtr;

// clang-format off
//         type      Name         description    default
#define OSG_LIGHTLINKSET_FIELDS(SINGLE, MULTI)              \
    SINGLE(Bool,     Enabled,     "enabled",     true)      \
    MULTI (NodePtr,  Lights,      "lights")                 \
    MULTI (NodePtr,  SceneNodes,  "sceneNodes")
// clang-format on

OSG_CONTAINER_BASE(LightLinkSet, NodeCore, OSG_LIGHTLINKSET_FIELDS)

/// Lets its lights illuminate its scene nodes and nothing else. Both lists are ordered, and a node is in a list once.
///
/// The set holds a reference on each listed node, so a set must not list a node above its own: the two would keep each
/// other for ever. Unlike plain setters, the functions below bracket their own edit with the mask of the list (origin
/// External); one that changes nothing reports nothing.
///
/// Any node is accepted in either list; whether it is a light is looked at when the scene is drawn. Null nodes, adding
/// a node that is listed already and taking out one that is not listed change nothing.
class LightLinkSet : public LightLinkSetBase
{
    OSG_CONTAINER_OWNING(LightLinkSet)

public:
    bool containsLight(const NodePtr& node) const;
    bool containsSceneNode(const NodePtr& node) const;

    /// Appends the node.
    void addLight(const NodePtr& node);
    void addSceneNode(const NodePtr& node);

    /// Puts the node at the index. An index beyond the end appends. A negative index inserts nothing: it is the index
    /// of a node that was not in the list, and putting back what was not there is no change.
    void insertLight(const NodePtr& node, Int32 index);
    void insertSceneNode(const NodePtr& node, Int32 index);

    void subLight(const NodePtr& node);
    void subSceneNode(const NodePtr& node);

protected:
    LightLinkSet() = default;
    /// A copy lists the same nodes, with references of its own.
    LightLinkSet(const LightLinkSet& source);
    ~LightLinkSet() override;

private:
    void insertInto(MFNodePtr& list, BitVector mask, const NodePtr& node, Int32 index);
    void takeOutOf(MFNodePtr& list, BitVector mask, const NodePtr& node);
};

OSG_HANDLE_FIELDS(LightLinkSetPtr)

OSG_END_NAMESPACE
