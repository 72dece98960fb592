#include <moUndoStack/transform/moTransformVariantMoveCommand.h>

#include <moUndoStack/transform/moTransformText_p.h>
#include <moUndoStack/transform/moVariantList_p.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moTransformVariantMoveCommand)

// A negative position becomes one past the end of any list.
static std::uint64_t listPosition(int position)
{
    return static_cast<std::uint64_t>(position);
}

/// The expected position if the variant is there, else its first position in the list; none if it is not listed.
/// \param variantId  never 0, the id of what stands past the end.
static std::optional<std::uint64_t> find(const moVariantList& list, unsigned int variantId, std::uint64_t expected)
{
    if (containerId(list.at(expected)) == variantId) return expected;
    for (std::uint64_t position = 0, count = list.count(); position < count; ++position) {
        if (containerId(list.at(position)) == variantId) return position;
    }
    return std::nullopt;
}

moTransformVariantMoveCommand::moTransformVariantMoveCommand(osg::NodePtr node, const std::vector<int>& from, int to,
                                                             QUndoCommand* parent, Callback callback)
    : moUndoCommand(transformText(sharedText(tr("Move transform variant '%1'"), node), tr("Move transform variant")),
                    parent),
      m_nodeId(containerId(node)),
      m_callback(std::move(callback))
{
    const std::uint64_t count = moNodeUtils::getTransformVariantCount(node);
    if (listPosition(to) >= count || from.size() > count - listPosition(to)) return;
    m_moves.reserve(from.size());
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
    const auto place = std::lower_bound(m_moves.begin(), m_moves.end(), from,
                                        [](const Move& known, int position) { return known.from < position; });
    if (place != m_moves.end() && place->from == from) return false;
    const unsigned int variantId = containerId(moNodeUtils::getTransformVariant(node, listPosition(from)));
    if (variantId == 0) return false;
    m_moves.insert(place, {from, to, variantId});
    return true;
}

/// \param source  in the order of the positions `from`
/// \param target  the same moves in the order of the positions `to`
bool moTransformVariantMoveCommand::move(const Moves& source, Position from, const Moves& target, Position to) const
{
    if (findContainer<osg::NodePtr>(m_nodeId) == osg::NullFC) return false;

    moVariantList list(m_nodeId);
    list.edit([&] {
        // From the highest position down, so that the positions of the others stay valid.
        std::vector<unsigned int> taken;
        taken.reserve(source.size());
        for (auto move = source.rbegin(); move != source.rend(); ++move) {
            const auto position = find(list, move->variantId, listPosition((*move).*from));
            if (!position) continue;
            list.remove(*position);
            taken.push_back(move->variantId);
        }
        for (const Move& move : target) {
            const auto variant = findContainer<osg::TransformVariantPtr>(move.variantId);
            if (variant == osg::NullFC) continue;
            const auto own = std::find(taken.begin(), taken.end(), move.variantId);
            if (own != taken.end())
                taken.erase(own);
            else if (find(list, move.variantId, 0))
                continue;
            list.insertOrAppend(listPosition(move.*to), variant);
        }
    });
    return true;
}

QList<int> moTransformVariantMoveCommand::positions(Position which) const
{
    QList<int> positions;
    positions.reserve(static_cast<int>(m_moves.size()));
    for (const Move& move : m_moves)
        positions.append(move.*which);
    return positions;
}

/// Moves from the first of two positions to the second.
void moTransformVariantMoveCommand::step(Position from, Position to) const
{
    Moves byTarget = m_moves;
    std::sort(byTarget.begin(), byTarget.end(), [](const Move& a, const Move& b) { return a.to < b.to; });
    const bool forward = from == &Move::from;
    const Moves& source = forward ? m_moves : byTarget;
    const Moves& target = forward ? byTarget : m_moves;
    moStep::run([&] {
        if (!move(source, from, target, to)) return;
        moStep::afterwards([&] { m_callback(m_nodeId, positions(from), positions(to)); });
    });
}

void moTransformVariantMoveCommand::redo()
{
    step(&Move::from, &Move::to);
}

void moTransformVariantMoveCommand::undo()
{
    step(&Move::to, &Move::from);
}
