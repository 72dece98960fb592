#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform3D.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <string>

/// Gives a node's own transform the values of one of its transform variants, and marks it as supposed to show that
/// variant.
///
/// \param sync      whether the synchronisation function is called.
/// \param parent    before the callback here; null means the composite being composed, if any.
/// \param callback  called after every step, before the synchronisation function; may be empty.
///
/// Both states are read at construction and written whole: undo brings back exactly what was there when the command was
/// made, even if other edits happened in between. Of the variant those components are taken that its apply flags name;
/// the rest stays as the node's own transform has it. On the stack it never merges. Message: "id" (int). A node without
/// a transform, an index that names no variant, and a variant without a core of its own make a command that does and
/// tells nothing; so does a destroyed node.
/// Inside a composite that merges it must not stand beside a newer one made within its merge interval: the composite
/// asks canMergeWith() only, which says yes, and the newer edit is lost on redo or survives undo. Compose it with
/// merging disabled (beginMultiCommand(text, description, false)) or call setMergeEnabled(false).
class MO_UNDO_STACK_EXPORT moApplyTransformationVariantUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moApplyTransformationVariantUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using SyncFunction = std::function<void(const osg::NodePtr& node)>;

    moApplyTransformationVariantUndoCommand(osg::NodePtr node, int variantIndex, bool sync, QUndoCommand* parent,
                                            std::function<void()> callback);

    /// One function for the whole class and the rest of the process; an empty one switches mirroring off. The
    /// function may replace itself while it runs.
    static void setSyncFunction(const SyncFunction& function);

protected:
    void undo() override;
    void redo() override;

private:
    /// A whole transform, except shear, which variants do not have.
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

    static moUndoDetail::HeldFunction<void(const osg::NodePtr&)> s_sync;
};
