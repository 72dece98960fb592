#include <moUndoStack/transform/moTransformVariantMoveCommand.h>

#include <moUndoStack/transform/moTransformText_p.h>
#include <moUndoStack/transform/moVariantList_p.h>

#include <algorithm>
#include <cstdint>
#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moTransformVariantMoveCommand)

// A negative position becomes one past the end of any list.
static std::uint64_t listPosition(int position)
{
    return static_cast<std::uint64_t>(position);
}

/// The expected position if the variant is there, else its first position in the list; the count if it is not listed.
static std::uint64_t find(const moVariantList& list, unsigned int variantId, std::uint64_t expected)
{
    const std::uint64_t count = list.count();
    if (expected < count && containerId(list.at(expected)) == variantId) return expected;
    std::uint64_t position = 0;
    while (position < count && containerId(list.at(position)) != variantId)
        ++position;
    return position;
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
    if (findContainer<osg::NodePtr>(m_nodeId) == osg::NullFC) return false;

    moVariantList list(m_nodeId);
    list.edit([&] {
        // From the highest position down, so that the positions of the others stay valid.
        std::vector<unsigned int> taken;
        for (auto it = source.rbegin(); it != source.rend(); ++it) {
            const std::uint64_t position = find(list, it->second, listPosition(it->first));
            if (position == list.count()) continue;
            list.remove(position);
            taken.push_back(it->second);
        }
        for (const auto& [position, variantId] : target) {
            const auto variant = findContainer<osg::TransformVariantPtr>(variantId);
            if (variant == osg::NullFC) continue;
            const auto own = std::find(taken.begin(), taken.end(), variantId);
            if (own != taken.end())
                taken.erase(own);
            else if (find(list, variantId, 0) < list.count())
                continue;
            list.insert(std::min(listPosition(position), list.count()), variant);
        }
    });
    return true;
}

void moTransformVariantMoveCommand::step(const Variants& source, const Variants& target, const QList<int>& before,
                                         const QList<int>& after) const
{
    moStep::run([&] {
        if (move(source, target)) moStep::afterwards([&] { m_callback(m_nodeId, before, after); });
    });
}

void moTransformVariantMoveCommand::redo()
{
    step(m_sourceVariants, m_targetVariants, m_positions.keys(), m_positions.values());
}

void moTransformVariantMoveCommand::undo()
{
    step(m_targetVariants, m_sourceVariants, m_positions.values(), m_positions.keys());
}
