#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform3D.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Gives a node's own transform the values of one of its transform variants, and sets its supposed state to that
/// variant.
///
/// The apply flags of the variant say which components are applied; the others keep the values of the node's own
/// transform. Shear stays. Both states are read at construction, and each step writes one of them whole. Intended: undo
/// also overwrites edits made between construction and redo, see docs/oddities.md#a-whole-transform-comes-back.
/// On the stack it never merges. Message: "id" (int).
/// A node without a transform, an index that names no variant and a variant without a core make the command inert. If
/// the node was destroyed, a step is a no-op and calls no function.
/// Inside a composite that merges, switch merging off: moUndoStack::beginMultiCommand(text, description, false) or
/// setMergeEnabled(false). Otherwise an edit may be lost.
/// See docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moApplyTransformationVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moApplyTransformationVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// Called with the node that was written.
    using SyncFunction = std::function<void(const osg::NodePtr& node)>;

    /// \param variantIndex  from 0 on.
    /// \param sync          whether steps call the synchronisation function.
    /// \param parent        owns the command; null means the composite being composed, if any.
    /// \param callback      called after every step, before the synchronisation function; may be empty.
    moApplyTransformationVariantUndoCommand(osg::NodePtr node, int variantIndex, bool sync, QUndoCommand* parent,
                                            std::function<void()> callback);

    /// Sets the one function of the class, until the process ends. An empty one switches mirroring off. The function
    /// may replace itself while it runs. If it records commands, a redo cuts off what could be redone after it, see
    /// docs/oddities.md#a-mirror-that-records-cuts-off-redo.
    static void setSyncFunction(const SyncFunction& function);

protected:
    /// Writes the values and the supposed state that were read at construction.
    void undo() override;
    /// Writes the values of the variant.
    void redo() override;

private:
    /// A whole transform except shear, which variants do not have.
    struct TransformValues
    {
        osg::Vec3f translation;
        osg::Vec3f rotationOrientation;
        osg::Vec3f rotation;
        osg::Vec3f rotatePivot;
        osg::Vec3f rotatePivotTranslation;
        osg::Vec3f scale;
        osg::Vec3f scalePivot;
        osg::Vec3f scalePivotTranslation;
        int rotationMode = 0;
        std::string eulerRotationOrder;
        osg::Vec3f rotationDirection;
        int rotationDirectionMode = 0;
        bool rotationDirectionValid = false;
    };

    static TransformValues valuesOf(const osg::Transform3DPtr& live);
    void apply(const TransformValues& values, int supposedState) const;
    void write(const TransformValues& values, int supposedState) const;

    TransformValues m_applied;
    int m_variantIndex;
    TransformValues m_previous;
    int m_previousSupposedState = -1;
    unsigned int m_nodeId;
    std::function<void()> m_callback;
    bool m_captured = false;
    bool m_sync;

    Q_DECL_HIDDEN static moUndoDetail::HeldFunction<void(const osg::NodePtr&)> s_sync;
};
