#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QMap>

#include <functional>
#include <map>
#include <vector>

/// Moves transform variants within the list of a node.
///
/// \param callback  called after every step with the positions before it and those after it, both in ascending order of
///                  the positions before the move. Required: an empty one throws std::bad_function_call after the edit
///                  was made.
///
/// Which variant goes where is recorded at construction, by ids; the command holds no reference, only for the duration
/// of a step. Never merges. Message: "id" (int). Positions out of range record nothing: the steps then leave the list
/// as it is. A variant that has gone is skipped; a node that has gone makes a step do and tell nothing.
class MO_UNDO_STACK_EXPORT moTransformVariantMoveCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantMoveCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback =
        std::function<void(unsigned int nodeId, const QList<int>& positionsBefore, const QList<int>& positionsAfter)>;

    /// The variant at `from` ends up at `to`.
    moTransformVariantMoveCommand(osg::NodePtr node, int from, int to, QUndoCommand* parent, Callback callback);

    /// The variants end up side by side from `to` on, in the order in which they are listed. All of them must find room
    /// there. A position without a variant is skipped, and so is one that was listed before.
    moTransformVariantMoveCommand(osg::NodePtr node, const std::vector<int>& from, int to, QUndoCommand* parent,
                                  Callback callback);

    void undo() override;
    void redo() override;

private:
    /// Container ids by list position.
    using Variants = std::map<int, unsigned int>;

    bool record(const osg::NodePtr& node, int from, int to);
    bool move(const Variants& source, const Variants& target) const;

    QMap<int, int> m_positions;
    unsigned int m_nodeId;
    Variants m_sourceVariants;
    Variants m_targetVariants;
    Callback m_callback;
};
