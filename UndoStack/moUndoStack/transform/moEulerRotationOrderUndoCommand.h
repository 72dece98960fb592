#pragma once

#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Sets the order in which a node's transform turns about its axes.
///
/// \param order     such as "XYZ"; handed on unchecked, see osg::Transform3D for texts that it does not know.
/// \param parent    before the callback here; null means the composite being composed, if any.
/// \param callback  of the command's own, called at every step, before the mirror; may be empty.
///
/// Merges, message and bad input as in moTransformUndoCommand. The action word is "Translate", that of
/// moTranslationUndoCommand; the ids differ. Intended.
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moEulerRotationOrderUndoCommand : public moTransformUndoCommand<std::string>
{
    Q_DECLARE_TR_FUNCTIONS(moEulerRotationOrderUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Told the node's id, the order that was written and the index of the variant, -1 for the node's own transform.
    using Callback = std::function<void(unsigned int nodeId, const std::string& order, int variantIndex)>;
    /// Told the node and the order that was written.
    using SyncFunction = std::function<void(const osg::NodePtr& node, const std::string& order)>;

    /// See the class for the arguments.
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, QUndoCommand* parent, Callback callback,
                                    int variantIndex);
    /// The same with the merging chosen, see moMergeOption: true or false, or seconds.
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, moMergeOption merge, QUndoCommand* parent,
                                    Callback callback, int variantIndex);

    /// One function for the whole class and the rest of the process; an empty one switches mirroring off. The
    /// function may replace itself while it runs.
    static void setSyncFunction(const SyncFunction& function);

protected:
    /// The order of the node's own transform, or of the variant.
    std::string get(osg::NodePtr node) override;
    /// Writes the order, then tells the callback and the mirror.
    void set(osg::NodePtr node, std::string order) override;

private:
    Callback m_callback;

    static moUndoDetail::HeldFunction<void(const osg::NodePtr&, const std::string&)> s_sync;
};
