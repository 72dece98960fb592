#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QList>

#include <functional>
#include <vector>

/// Moves transform variants within the list of a node.
///
/// The constructor records by id which variant moves where. The command holds references only during a step. On the
/// stack it never merges. Message: "id" (int).
/// If the positions are out of range, nothing is recorded and the steps leave the list as it is. A destroyed variant is
/// skipped. If the node was destroyed, a step is a no-op and calls no callback.
///
/// If the list was changed meanwhile, a step still removes only its own variants, wherever they are. It inserts each at
/// its position, or at the end if the list is too short, unless the list has it already. The callback gets the recorded
/// positions all the same.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moTransformVariantMoveCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTransformVariantMoveCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called after every step with the positions before it and after it; both lists are in ascending order of the
    /// positions before the move.
    using Callback =
        std::function<void(unsigned int nodeId, const QList<int>& positionsBefore, const QList<int>& positionsAfter)>;

    /// Moves the variant at `from` to `to`.
    /// \param parent    owns the command; null means the composite being composed, if any.
    /// \param callback  required: with an empty one the step stands and its caller gets std::bad_function_call. See
    ///                  docs/oddities.md#callbacks-that-must-not-be-empty.
    moTransformVariantMoveCommand(osg::NodePtr node, int from, int to, QUndoCommand* parent, Callback callback);

    /// Moves the variants at `from` to `to` and the positions after it, in the order in which they are listed. All of
    /// them must find room there. A position is skipped if it has no variant, or was listed before.
    moTransformVariantMoveCommand(osg::NodePtr node, const std::vector<int>& from, int to, QUndoCommand* parent,
                                  Callback callback);

    /// Moves the variants back to where they were at construction.
    void undo() override;
    /// Moves the variants.
    void redo() override;

private:
    struct Move
    {
        int from;
        int to;
        unsigned int variantId;
    };
    using Moves = std::vector<Move>;
    using Position = int Move::*;

    bool record(const osg::NodePtr& node, int from, int to);
    bool move(const Moves& source, Position from, const Moves& target, Position to) const;
    QList<int> positions(Position which) const;
    void step(Position from, Position to) const;

    Moves m_moves; ///< in the order of the positions before the move
    unsigned int m_nodeId;
    Callback m_callback;
};
