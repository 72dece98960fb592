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
///                  the positions before the move. Required: with an empty one the step stands and its caller gets
///                  std::bad_function_call.
///
/// Which variant goes where is recorded at construction, by ids; the command holds no reference, only for the duration
/// of a step. On the stack it never merges. Message: "id" (int). Positions out of range record nothing: the steps then
/// leave the list as it is. A destroyed variant is skipped; a destroyed node makes a step do and tell nothing.
///
/// If the list is another one by then, a step takes its own variants out wherever they stand, and no other. It puts
/// each in at its position, or at the end where the list is too short, unless it is in the list. The callback is told
/// the recorded positions all the same.
/// Inside a composite that merges it must not stand beside a newer one made within its merge interval: the composite
/// asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it with
/// merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
class MO_UNDO_STACK_EXPORT moTransformVariantMoveCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantMoveCommand)
    MO_UNDO_COMMAND_ID

public:
    using Callback =
        std::function<void(unsigned int nodeId, const QList<int>& positionsBefore, const QList<int>& positionsAfter)>;

    /// The variant at `from` ends up at `to`. The parent comes before the callback; null means the composite being
    /// composed, if any.
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
    void step(const Variants& source, const Variants& target, const QList<int>& before, const QList<int>& after) const;

    QMap<int, int> m_positions;
    unsigned int m_nodeId;
    Variants m_sourceVariants;
    Variants m_targetVariants;
    Callback m_callback;
};
