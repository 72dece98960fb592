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

/// Adds items to a list of a lens flare, or removes them. Base of the four commands below, which are the only ones.
///
/// The command holds one reference on each item from construction to deletion, done or undone, so that a removed item
/// can be put back. The owner of the list is kept by id. If it was destroyed, the light library is called with null and
/// does nothing. The light library is also called with an empty list of items. Never merges.
/// Message: "id" (int), then the owner's id (unsigned int) and the items' ids (std::vector<unsigned int>) under
/// "lightId" and "elementIds", or "ghostLineId" and "ghostIds". Intended: no "lightCommand", this is part of the
/// interface. See docs/oddities.md#lists-of-lens-flares-without-lightcommand.
/// The constructors of the commands end with the parent; null means the composite being composed, if any.
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

    /// Calls the undo function of the row.
    void undo() override;
    /// Calls the redo function of the row.
    void redo() override;
    /// Sets "id", the owner's id and the items' ids; leaves out "lightCommand".
    void makeMessage(moMessage& message) const override;

protected:
    /// Text, message keys, redo and undo function of one command.
    struct Row;

    /// \param row    outlives the command.
    /// \param items  null ones are skipped.
    moLensFlareListCommand(const Row& row, const OwnerPtr& owner, const std::vector<ItemPtr>& items,
                           QUndoCommand* parent);
    /// \param row      outlives the command.
    /// \param itemIds  container ids; an id of anything but an item is skipped.
    moLensFlareListCommand(const Row& row, const OwnerPtr& owner, const std::vector<unsigned int>& itemIds,
                           QUndoCommand* parent);

private:
    using Edit = void (*)(const OwnerPtr& owner, const std::vector<unsigned int>& itemIds);

    void keep(const ItemPtr& item);
    void edit(Edit there, Edit back);

    const Row& m_row;
    unsigned int m_ownerId;
    std::vector<unsigned int> m_itemIds;
    std::vector<ContainerReference> m_items;
};

/// Edits the elements of the lens flare of a light.
using moLensFlareElementsCommand = moLensFlareListCommand<osg::NodePtr, osg::LensFlareElementPtr>;
/// Edits the ghosts of a ghost line.
using moGhostsCommand = moLensFlareListCommand<osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr>;

extern template class MO_UNDO_STACK_EXPORT moLensFlareListCommand<osg::NodePtr, osg::LensFlareElementPtr>;
extern template class MO_UNDO_STACK_EXPORT moLensFlareListCommand<osg::LensFlareGhostLinePtr, osg::LensFlareGhostPtr>;

/// Adds elements to the lens flare of a light.
class MO_UNDO_STACK_EXPORT moAddLensFlareElementCommand : public moLensFlareElementsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moAddLensFlareElementCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param elements  added in this order; null ones are skipped.
    moAddLensFlareElementCommand(const osg::NodePtr& light, const std::vector<osg::LensFlareElementPtr>& elements,
                                 QUndoCommand* parent);
};

/// Removes elements from the lens flare of a light.
class MO_UNDO_STACK_EXPORT moRemoveLensFlareElementCommand : public moLensFlareElementsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveLensFlareElementCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param elementIds  container ids; an id of anything but an element is skipped.
    moRemoveLensFlareElementCommand(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds,
                                    QUndoCommand* parent);
};

/// Adds ghosts to a ghost line.
class MO_UNDO_STACK_EXPORT moAddGhostCommand : public moGhostsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moAddGhostCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param ghosts  added in this order; null ones are skipped.
    moAddGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine, const std::vector<osg::LensFlareGhostPtr>& ghosts,
                      QUndoCommand* parent);
};

/// Removes ghosts from a ghost line.
class MO_UNDO_STACK_EXPORT moRemoveGhostCommand : public moGhostsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveGhostCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param ghostIds  container ids; an id of anything but a ghost is skipped.
    moRemoveGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine, const std::vector<unsigned int>& ghostIds,
                         QUndoCommand* parent);
};
