#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Sets the order in which a node's transform turns about its axes.
///
/// Merging, message and bad input as in moTransformUndoCommand. Mirrored for the node's own transform only.
/// Intended: the action word is "Translate", as that of moTranslationUndoCommand; it is part of the interface. See
/// docs/oddities.md#one-word-for-several-commands.
class MO_UNDO_STACK_EXPORT moEulerRotationOrderUndoCommand : public moTransformUndoCommand<std::string>
{
    Q_DECLARE_TR_FUNCTIONS(moEulerRotationOrderUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called with the node's id, the order that was written and the index of the variant, -1 for the node's own
    /// transform.
    using Callback = std::function<void(unsigned int nodeId, const std::string& order, int variantIndex)>;
    /// Called with the node and the order that was written.
    using SyncFunction = std::function<void(const osg::NodePtr& node, const std::string& order)>;

    /// \param order         such as "XYZ". It is not checked; osg::Transform3D says what an unknown one does.
    /// \param parent        owns the command; null means the composite being composed, if any.
    /// \param callback      called at every step, before the synchronisation function; may be empty.
    /// \param variantIndex  -1: the node's own transform; from 0 on: that variant of the node.
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, QUndoCommand* parent, Callback callback,
                                    int variantIndex);
    /// \param merge  true, false or seconds, see moMergeOption.
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, moMergeOption merge, QUndoCommand* parent,
                                    Callback callback, int variantIndex);

    /// Sets the one function of the class, until the process ends. An empty one switches mirroring off. The function
    /// may replace itself while it runs.
    static void setSyncFunction(const SyncFunction& function);

protected:
    /// Returns the order of the node's own transform, or of the variant.
    std::string get(osg::NodePtr node) override;
    /// Writes the order, then calls the callback and the synchronisation function.
    void set(osg::NodePtr node, std::string order) override;

private:
    Callback m_callback;

    Q_DECL_HIDDEN static moUndoDetail::HeldFunction<void(const osg::NodePtr&, const std::string&)> s_sync;
};
