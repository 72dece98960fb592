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
/// "lightId" and "elementIds", or "ghostLineId" and "ghostIds". There is no "lightCommand"; this is intended. Never
/// merges.
/// The constructors of the commands end with the parent: null means the composite being composed, if any.
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

    /// Calls what the row has for undo.
    void undo() override;
    /// Calls what the row has for redo.
    void redo() override;
    /// Sets "id", the owner's id and the items' ids; leaves out "lightCommand".
    void makeMessage(moMessage& message) const override;

protected:
    /// Text, message keys, and what redo and undo call, of one command.
    struct Row;

    /// \param row    outlives the command.
    /// \param items  null ones are skipped.
    moLensFlareListCommand(const Row& row, const OwnerPtr& owner, const std::vector<ItemPtr>& items,
                           QUndoCommand* parent);
    /// \param row      outlives the command.
    /// \param itemIds  those that are no item's are dropped.
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
    static const Row s_row;

public:
    /// \param elements  added in this order; null ones are skipped.
    moAddLensFlareElementCommand(const osg::NodePtr& light, const std::vector<osg::LensFlareElementPtr>& elements,
                                 QUndoCommand* parent)
        : moLensFlareElementsCommand(s_row, light, elements, parent)
    {
    }
};

/// Removes elements from the lens flare of a light.
class MO_UNDO_STACK_EXPORT moRemoveLensFlareElementCommand : public moLensFlareElementsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveLensFlareElementCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param elementIds  container ids; those that are no element's are dropped.
    moRemoveLensFlareElementCommand(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds,
                                    QUndoCommand* parent)
        : moLensFlareElementsCommand(s_row, light, elementIds, parent)
    {
    }
};

/// Adds ghosts to a ghost line.
class MO_UNDO_STACK_EXPORT moAddGhostCommand : public moGhostsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moAddGhostCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param ghosts  added in this order; null ones are skipped.
    moAddGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine, const std::vector<osg::LensFlareGhostPtr>& ghosts,
                      QUndoCommand* parent)
        : moGhostsCommand(s_row, ghostLine, ghosts, parent)
    {
    }
};

/// Removes ghosts from a ghost line.
class MO_UNDO_STACK_EXPORT moRemoveGhostCommand : public moGhostsCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRemoveGhostCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param ghostIds  container ids; those that are no ghost's are dropped.
    moRemoveGhostCommand(const osg::LensFlareGhostLinePtr& ghostLine, const std::vector<unsigned int>& ghostIds,
                         QUndoCommand* parent)
        : moGhostsCommand(s_row, ghostLine, ghostIds, parent)
    {
    }
};
