#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGLightLinkSet.h>

#include <cstddef>
#include <vector>

/// Adds nodes to, or removes them from, one of the two lists of a light link set. Never merges.
///
/// The constructor decides which nodes are added or removed. It skips null nodes and nodes to be added that are listed
/// already. It refuses the scene root, with one log line (error) each time. In the list of lights it replaces a
/// stand-in of a light with a shared core (external flag 0x2) by the one real node of that core in scene 0, and skips
/// the stand-in if there is none or more than one. It does not check that the nodes in the list of lights are lights.
///
/// Adding appends the nodes in the order given; its undo removes them. Removing remembers the index of each node; its
/// undo inserts each at its index, in the order given. This restores the list if the nodes were given in the order of
/// the list; a node given twice does no harm. Intended: in another order undo permutes them, and a node that was not
/// listed has the index -1, which the set decides about. See docs/oddities.md#the-order-of-removed-links.
///
/// Set and nodes are kept by id, without a reference. Destroyed nodes are skipped; without the set a step is a no-op.
/// Message: "id" (int), "lightlinkset" = the set's id (unsigned int).
class MO_UNDO_STACK_EXPORT moAddNodeToLightLinkSetUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param set       null makes the command inert.
    /// \param listType  3: the list of lights; any other value: the list of scene nodes.
    /// \param remove    true: redo removes the nodes and undo puts them back; false: redo adds and undo removes them.
    ///                  Intended: the text is the same, see docs/oddities.md#the-text-does-not-follow-the-direction.
    /// \param parent    owns the command; null means the composite being composed, if any.
    moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, const std::vector<osg::NodePtr>& nodes,
                                       unsigned int listType, bool remove, QUndoCommand* parent);
    /// The same for one node; a null node makes the command inert.
    moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, osg::NodePtr node, unsigned int listType, bool remove,
                                       QUndoCommand* parent);

    /// Removes the nodes, or puts them back if `remove` was true.
    void undo() override;
    /// Adds the nodes, or removes them if `remove` was true.
    void redo() override;
    /// Adds "lightlinkset".
    void makeMessage(moMessage& message) const override;
    /// Never merges.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    moAddNodeToLightLinkSetUndoCommand(const char* text, const osg::LightLinkSetPtr& set, unsigned int listType,
                                       bool remove, QUndoCommand* parent);
    void init(const osg::LightLinkSetPtr& set, const std::vector<osg::NodePtr>& nodes);
    void step(bool remove);
    void apply(std::size_t i, bool remove);

    unsigned int m_setId;
    bool m_remove;
    std::vector<unsigned int> m_nodeIds;
    std::vector<int> m_positions;
    bool m_sceneNodes;
};
