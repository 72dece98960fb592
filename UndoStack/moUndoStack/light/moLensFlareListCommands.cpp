#include <moUndoStack/light/moLensFlareListCommands.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moLights.h>
#include <moUtils/moMessage.h>

namespace {

/// What the light library calls the two kinds of list.
template<class OwnerPtr>
struct ListOf;

template<>
struct ListOf<osg::NodePtr>
{
    static constexpr const char* ownerKey = "lightId";
    static constexpr const char* itemsKey = "elementIds";
    static constexpr auto add = &moLights::addLensFlareElements;
    static constexpr auto remove = &moLights::removeLensFlareElements;
};

template<>
struct ListOf<osg::LensFlareGhostLinePtr>
{
    static constexpr const char* ownerKey = "ghostLineId";
    static constexpr const char* itemsKey = "ghostIds";
    static constexpr auto add = &moLights::addLensFlareGhosts;
    static constexpr auto remove = &moLights::removeLensFlareGhosts;
};

} // namespace

template<class OwnerPtr, class ItemPtr>
moLensFlareListCommand<OwnerPtr, ItemPtr>::moLensFlareListCommand(const char* text, const OwnerPtr& owner,
                                                                  const std::vector<ItemPtr>& items,
                                                                  QUndoCommand* parent)
    : moLensFlareCommand(text, parent), m_ownerId(containerId(owner))
{
    for (const ItemPtr& item : items)
        keep(item);
}

template<class OwnerPtr, class ItemPtr>
moLensFlareListCommand<OwnerPtr, ItemPtr>::moLensFlareListCommand(const char* text, const OwnerPtr& owner,
                                                                  const std::vector<unsigned int>& itemIds,
                                                                  QUndoCommand* parent)
    : moLensFlareCommand(text, parent), m_ownerId(containerId(owner))
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
    // Past the lens flare command and its "lightCommand", as intended. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    moUndoCommand::makeMessage(message);
    message.set(ListOf<OwnerPtr>::ownerKey, m_ownerId, true);
    message.set(ListOf<OwnerPtr>::itemsKey, m_itemIds, true);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::add()
{
    edit(ListOf<OwnerPtr>::add, ListOf<OwnerPtr>::remove);
}

template<class OwnerPtr, class ItemPtr>
void moLensFlareListCommand<OwnerPtr, ItemPtr>::remove()
{
    edit(ListOf<OwnerPtr>::remove, ListOf<OwnerPtr>::add);
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

#define MO_LENS_FLARE_LIST(Command, Base, Owner, Item, text, redoStep, undoStep)                                       \
    MO_UNDO_COMMAND_ID_IMPL(Command)                                                                                   \
    Command::Command(const Owner& owner, const std::vector<Item>& items, QUndoCommand* parent)                         \
        : Base(text, owner, items, parent)                                                                             \
    {                                                                                                                  \
    }                                                                                                                  \
    void Command::undo()                                                                                               \
    {                                                                                                                  \
        undoStep();                                                                                                    \
    }                                                                                                                  \
    void Command::redo()                                                                                               \
    {                                                                                                                  \
        redoStep();                                                                                                    \
    }

// clang-format off
//                 command                          base                        owner                       items                     text                         redo    undo
MO_LENS_FLARE_LIST(moAddLensFlareElementCommand,    moLensFlareElementsCommand, osg::NodePtr,               osg::LensFlareElementPtr, "Add Lens Flare Elements",    add,    remove)
MO_LENS_FLARE_LIST(moRemoveLensFlareElementCommand, moLensFlareElementsCommand, osg::NodePtr,               unsigned int,             "Remove Lens Flare Elements", remove, add)
MO_LENS_FLARE_LIST(moAddGhostCommand,               moGhostsCommand,            osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr,   "Add Ghost",                  add,    remove)
MO_LENS_FLARE_LIST(moRemoveGhostCommand,            moGhostsCommand,            osg::LensFlareGhostLinePtr, unsigned int,             "Remove Ghost",               remove, add)
// clang-format on

#undef MO_LENS_FLARE_LIST
