#pragma once

#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Sets the order in which a node's transform turns about its axes.
///
/// \param order     such as "XYZ"; handed on unchecked, see osg::Transform3D for texts that it does not know.
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
    using Callback = std::function<void(unsigned int nodeId, const std::string& order, int variantIndex)>;
    using SyncFunction = std::function<void(const osg::NodePtr& node, const std::string& order)>;

    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, QUndoCommand* parent, Callback callback,
                                    int variantIndex);
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, bool mergeEnabled, QUndoCommand* parent,
                                    Callback callback, int variantIndex);
    moEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, double mergeDelta, QUndoCommand* parent,
                                    Callback callback, int variantIndex);

    /// One function for the whole class and the rest of the process; an empty one switches mirroring off. The
    /// function may replace itself while it runs.
    static void setSyncFunction(const SyncFunction& function);

protected:
    std::string get(osg::NodePtr node) override;
    void set(osg::NodePtr node, std::string order) override;

private:
    Callback m_callback;

    static moUndoDetail::HeldFunction<void(const osg::NodePtr&, const std::string&)> s_sync;
};
