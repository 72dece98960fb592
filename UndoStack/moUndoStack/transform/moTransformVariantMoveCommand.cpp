#include <moUndoStack/transform/moTransformVariantMoveCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moTransformText_p.h>

#include <cstdint>
#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moTransformVariantMoveCommand)

// As the list counts: a negative position becomes one past any end.
static std::uint64_t listPosition(int position)
{
    return static_cast<std::uint64_t>(position);
}

moTransformVariantMoveCommand::moTransformVariantMoveCommand(osg::NodePtr node, const std::vector<int>& from, int to,
                                                             QUndoCommand* parent, Callback callback)
    : moUndoCommand(transformText(tr("Move transform variant '%1'").arg(nodeName(node)), tr("Move transform variant")),
                    parent),
      m_nodeId(containerId(node)),
      m_callback(std::move(callback))
{
    const std::uint64_t count = moNodeUtils::getTransformVariantCount(node);
    if (listPosition(to) >= count || from.size() > count - listPosition(to)) return;
    for (const int position : from)
        if (listPosition(position) < count && record(node, position, to)) ++to;
}

moTransformVariantMoveCommand::moTransformVariantMoveCommand(osg::NodePtr node, int from, int to, QUndoCommand* parent,
                                                             Callback callback)
    : moTransformVariantMoveCommand(node, std::vector<int>{from}, to, parent, std::move(callback))
{
}

bool moTransformVariantMoveCommand::record(const osg::NodePtr& node, int from, int to)
{
    if (m_positions.contains(from)) return false;
    const unsigned int variantId = containerId(moNodeUtils::getTransformVariant(node, listPosition(from)));
    if (variantId == 0) return false;
    m_positions.insert(from, to);
    m_sourceVariants.emplace(from, variantId);
    m_targetVariants.emplace(to, variantId);
    return true;
}

bool moTransformVariantMoveCommand::move(const Variants& source, const Variants& target) const
{
    const auto node = findContainer<osg::NodePtr>(m_nodeId);
    if (node == osg::NullFC) return false;

    // The list holds the only reference on most variants: without one of ours they would not survive the way.
    std::vector<ContainerReference> references;
    for (const auto& [position, variantId] : source)
        references.emplace_back(findContainer<osg::FieldContainerPtr>(variantId));

    // From the highest position down, so that those still to be removed stay valid.
    for (auto it = source.rbegin(); it != source.rend(); ++it)
        moNodeUtils::removeTransformVariant(node, listPosition(it->first));
    for (const auto& [position, variantId] : target)
        if (const auto variant = findContainer<osg::TransformVariantPtr>(variantId))
            moNodeUtils::insertTransformVariant(node, listPosition(position), variant);
    return true;
}

void moTransformVariantMoveCommand::redo()
{
    if (move(m_sourceVariants, m_targetVariants)) m_callback(m_nodeId, m_positions.keys(), m_positions.values());
}

void moTransformVariantMoveCommand::undo()
{
    if (move(m_targetVariants, m_sourceVariants)) m_callback(m_nodeId, m_positions.values(), m_positions.keys());
}
