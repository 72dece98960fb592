#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGLightLinkSet.h>

#include <cstddef>
#include <vector>

/// Adds nodes to, or removes them from, one of the two lists of a light link set. Never merges.
///
/// What goes in or out is decided at construction. Null nodes are skipped, the scene root is refused with one logged
/// error each, and nodes to be added that the list has already are skipped. In the list of lights, a node that stands
/// for a light with a shared core (external flag 0x2) is replaced by the one real node of that core in scene 0, and
/// skipped when there is none or more than one. Whether a node in the list of lights is a light is not looked at.
///
/// Adding appends in the order given; its undo takes the nodes out. Removing remembers the index of each node; its undo
/// puts each back there, front to back in the order given, which gives the old list for nodes given in the order of the
/// list; a node given twice does not move the others. Nodes given in another order are permuted by undo: of A B C, undo
/// of removing B, A gives A C B. The -1 of a node that was not in the list is passed on to the set's insert function as
/// it is; this is intended.
///
/// Set and nodes are kept by id and without a reference: destroyed ones are skipped.
/// Message: "id" (int), "lightlinkset" = the set's id (unsigned int).
class MO_UNDO_STACK_EXPORT moAddNodeToLightLinkSetUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param set       null makes the command inert.
    /// \param listType  3 is the list of lights, every other value the list of scene nodes.
    /// \param remove    redo removes the nodes and undo puts them back, instead of the reverse; the text is the same.
    /// \param parent    null means the composite being composed, if any.
    moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, const std::vector<osg::NodePtr>& nodes,
                                       unsigned int listType, bool remove, QUndoCommand* parent);
    /// The same for one node; a null node makes the command inert.
    moAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, osg::NodePtr node, unsigned int listType, bool remove,
                                       QUndoCommand* parent);

    void undo() override;
    void redo() override;
    void makeMessage(moMessage& message) const override;
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
