#include <moUndoStack/light/moLensFlareListCommands.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moLights.h>
#include <moUtils/moMessage.h>

MO_UNDO_COMMAND_ID_IMPL(moAddLensFlareElementCommand)
MO_UNDO_COMMAND_ID_IMPL(moRemoveLensFlareElementCommand)
MO_UNDO_COMMAND_ID_IMPL(moAddGhostCommand)
MO_UNDO_COMMAND_ID_IMPL(moRemoveGhostCommand)

template<class OwnerPtr, class ItemPtr>
struct moLensFlareListCommand<OwnerPtr, ItemPtr>::Row
{
    const char* text;
    const char* ownerKey;
    const char* itemsKey;
    Edit redo;
    Edit undo;
};

// clang-format off
//                                                                                     text                          owner's key    items' key    redo                                undo
const moAddLensFlareElementCommand::Row     moAddLensFlareElementCommand::s_row       {"Add Lens Flare Elements",    "lightId",     "elementIds", &moLights::addLensFlareElements,    &moLights::removeLensFlareElements};
const moRemoveLensFlareElementCommand::Row  moRemoveLensFlareElementCommand::s_row    {"Remove Lens Flare Elements", "lightId",     "elementIds", &moLights::removeLensFlareElements, &moLights::addLensFlareElements};
const moAddGhostCommand::Row                moAddGhostCommand::s_row                  {"Add Ghost",                  "ghostLineId", "ghostIds",   &moLights::addLensFlareGhosts,      &moLights::removeLensFlareGhosts};
const moRemoveGhostCommand::Row             moRemoveGhostCommand::s_row               {"Remove Ghost",               "ghostLineId", "ghostIds",   &moLights::removeLensFlareGhosts,   &moLights::addLensFlareGhosts};
// clang-format on

template<class OwnerPtr, class ItemPtr>
moLensFlareListCommand<OwnerPtr, ItemPtr>::moLensFlareListCommand(const Row& row, const OwnerPtr& owner,
                                                                  const std::vector<ItemPtr>& items,
                                                                  QUndoCommand* parent)
    : moLensFlareCommand(row.text, parent), m_row(row), m_ownerId(containerId(owner))
{
    for (const ItemPtr& item : items)
        keep(item);
}

template<class OwnerPtr, class ItemPtr>
moLensFlareListCommand<OwnerPtr, ItemPtr>::moLensFlareListCommand(const Row& row, const OwnerPtr& owner,
                                                                  const std::vector<unsigned int>& itemIds,
                                                                  QUndoCommand* parent)
    : moLensFlareCommand(row.text, parent), m_row(row), m_ownerId(containerId(owner))
{
    for (const unsigned int id : itemIds)
        keep(findContainer<ItemPtr>(id));
}

template<class OwnerPtr, class ItemPtr>
moLensFlareListCommand<OwnerPtr, ItemPtr>::~moLensFlareListCommand() = default;

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::keep(const ItemPtr& item)
{
    if (!item) return;
    m_itemIds.push_back(containerId(item));
    m_items.emplace_back(item);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::makeMessage(moMessage& message) const
{
    // Skips the base class, which adds "lightCommand". Intended:
    // docs/oddities.md#lists-of-lens-flares-without-lightcommand. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    moUndoCommand::makeMessage(message);
    message.set(m_row.ownerKey, m_ownerId, true);
    message.set(m_row.itemsKey, m_itemIds, true);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::undo()
{
    edit(m_row.undo, m_row.redo);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::redo()
{
    edit(m_row.redo, m_row.undo);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::edit(Edit there, Edit back)
{
    const auto write = [this](Edit call) {
        moStep::writeThroughSibling([&] { call(findContainer<OwnerPtr>(m_ownerId), m_itemIds); });
    };
    moStep::run([&] { moStep::writeOrTakeBack([&] { write(there); }, [&] { write(back); }); });
}

template class moLensFlareListCommand<osg::NodePtr, osg::LensFlareElementPtr>;
template class moLensFlareListCommand<osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr>;

moAddLensFlareElementCommand::moAddLensFlareElementCommand(const osg::NodePtr& light,
                                                           const std::vector<osg::LensFlareElementPtr>& elements,
                                                           QUndoCommand* parent)
    : moLensFlareElementsCommand(s_row, light, elements, parent)
{
}

moRemoveLensFlareElementCommand::moRemoveLensFlareElementCommand(const osg::NodePtr& light,
                                                                 const std::vector<unsigned int>& elementIds,
                                                                 QUndoCommand* parent)
    : moLensFlareElementsCommand(s_row, light, elementIds, parent)
{
}

moAddGhostCommand::moAddGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine,
                                     const std::vector<osg::LensFlareGhostPtr>& ghosts, QUndoCommand* parent)
    : moGhostsCommand(s_row, ghostLine, ghosts, parent)
{
}

moRemoveGhostCommand::moRemoveGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine,
                                           const std::vector<unsigned int>& ghostIds, QUndoCommand* parent)
    : moGhostsCommand(s_row, ghostLine, ghostIds, parent)
{
}
