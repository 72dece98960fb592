#pragma once

#include <moUndoStack/light/moLensFlareCommand.h>

#include <moOpenSGUberLight/OSGLensFlareElement.h>
#include <moOpenSGUberLight/OSGLensFlareGhost.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QCoreApplication>

#include <type_traits>
#include <vector>

class ContainerReference;

/// What adding and removing have in common: who owns the list, and which items go in or out.
///
/// The command holds one reference on each item from construction to destruction, done or undone, so that an item that
/// is taken out lives as long as the command can bring it back. The owner is kept by id; when it was destroyed, the light
/// library is called with null and does nothing. A command whose list of items is empty still calls the light library.
/// Message: "id" (int), then the owner's id (unsigned int) and the items' ids (std::vector<unsigned int>) under
/// "lightId" and "elementIds", or "ghostLineId" and "ghostIds". There is no "lightCommand"; this is intended.
/// For the two lists below: those are what the library exports.
template<class OwnerPtr, class ItemPtr>
class moLensFlareListCommand : public moLensFlareCommand
{
    static_assert(
        (std::is_same_v<OwnerPtr, osg::NodePtr> && std::is_same_v<ItemPtr, osg::LensFlareElementPtr>) ||
            (std::is_same_v<OwnerPtr, osg::LensFlareGhostLinePtr> && std::is_same_v<ItemPtr, osg::LensFlareGhostPtr>),
        "moLensFlareListCommand is for elements of a light and ghosts of a ghost line; for another list derive "
        "from moLensFlareCommand");

public:
    ~moLensFlareListCommand() override;

    void makeMessage(moMessage& message) const override;

protected:
    /// Null items are skipped.
    moLensFlareListCommand(const char* text, const OwnerPtr& owner, const std::vector<ItemPtr>& items,
                           QUndoCommand* parent);
    /// Ids that are no item's are dropped.
    moLensFlareListCommand(const char* text, const OwnerPtr& owner, const std::vector<unsigned int>& itemIds,
                           QUndoCommand* parent);

    void add();
    void remove();

private:
    using Edit = void (*)(const OwnerPtr& owner, const std::vector<unsigned int>& itemIds);

    void keep(const ItemPtr& item);
    void edit(Edit there, Edit back);

    unsigned int m_ownerId;
    std::vector<unsigned int> m_itemIds;
    std::vector<ContainerReference> m_items;
};

using moLensFlareElementsCommand = moLensFlareListCommand<osg::NodePtr, osg::LensFlareElementPtr>;
using moGhostsCommand = moLensFlareListCommand<osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr>;

extern template class MO_UNDO_STACK_EXPORT moLensFlareListCommand<osg::NodePtr, osg::LensFlareElementPtr>;
extern template class MO_UNDO_STACK_EXPORT moLensFlareListCommand<osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr>;

#define MO_LENS_FLARE_LIST(Command, Base, Owner, owner, Items, items)                                                  \
    class MO_UNDO_STACK_EXPORT Command : public Base                                                                   \
    {                                                                                                                  \
        Q_DECLARE_TR_FUNCTIONS(Command)                                                                                \
        MO_UNDO_COMMAND_ID                                                                                             \
                                                                                                                       \
    public:                                                                                                            \
        Command(const Owner& owner, const std::vector<Items>& items, QUndoCommand* parent);                            \
                                                                                                                       \
        void undo() override;                                                                                          \
        void redo() override;                                                                                          \
    };

// clang-format off
/// Adds elements to the lens flare of a light.
MO_LENS_FLARE_LIST(moAddLensFlareElementCommand,    moLensFlareElementsCommand, osg::NodePtr,               light,     osg::LensFlareElementPtr, elements)

/// Removes the elements with these container ids from the lens flare of a light.
MO_LENS_FLARE_LIST(moRemoveLensFlareElementCommand, moLensFlareElementsCommand, osg::NodePtr,               light,     unsigned int,             elementIds)

/// Adds ghosts to a ghost line.
MO_LENS_FLARE_LIST(moAddGhostCommand,               moGhostsCommand,            osg::LensFlareGhostLinePtr, ghostLine, osg::LensFlareGhostPtr,   ghosts)

/// Removes the ghosts with these container ids from a ghost line.
MO_LENS_FLARE_LIST(moRemoveGhostCommand,            moGhostsCommand,            osg::LensFlareGhostLinePtr, ghostLine, unsigned int,             ghostIds)
// clang-format on

#undef MO_LENS_FLARE_LIST
