#include <moUndoStack/transform/moApplyTransformationVariantUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moMirror_p.h>
#include <moUndoStack/transform/moTransformText_p.h>

#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moApplyTransformationVariantUndoCommand)

moUndoDetail::HeldFunction<void(const osg::NodePtr&)> moApplyTransformationVariantUndoCommand::s_sync;

moApplyTransformationVariantUndoCommand::moApplyTransformationVariantUndoCommand(osg::NodePtr node, int variantIndex,
                                                                                 bool sync, QUndoCommand* parent,
                                                                                 std::function<void()> callback)
    : moUndoCommand(transformText(sharedText(tr("Apply variant to %1"), node), tr("Apply variant")), parent),
      m_variantIndex(variantIndex),
      m_nodeId(containerId(node)),
      m_callback(std::move(callback)),
      m_sync(sync)
{
    namespace utils = moTransformVariantUtils;

    const osg::NodePtr transform = moNodeUtils::findTransform(node);
    const osg::Transform3DPtr live = moNodeUtils::getTransform3D(transform, -1);
    const osg::Transform3DPtr own = moNodeUtils::getTransform3D(transform, variantIndex);
    const osg::TransformVariantPtr variant = utils::getTransformVariant(live, variantIndex);
    if (variant == osg::NullFC || own == osg::NullFC || live == osg::NullFC) return;

    m_previous = valuesOf(live);
    m_previousSupposedState = utils::getSupposedState(live);

    m_applied.translation = utils::getTranslation(live, variantIndex, true);
    m_applied.rotationOrientation = utils::getRotationPivotOrientation(live, variantIndex, true);
    m_applied.rotation = utils::getRotation(live, variantIndex, true);
    m_applied.rotatePivot = utils::getRotationPivot(live, variantIndex, true);
    m_applied.rotatePivotTranslation = utils::getRotationPivotTranslation(live, variantIndex, true);
    m_applied.scale = utils::getScale(live, variantIndex, true);
    m_applied.scalePivot = utils::getScalePivot(live, variantIndex, true);
    m_applied.scalePivotTranslation = utils::getScalePivotTranslation(live, variantIndex, true);
    m_applied.rotationMode = utils::getRotationMode(live, variantIndex, true);
    m_applied.eulerRotationOrder = utils::getEulerRotationOrder(live, variantIndex, true);

    // Direction, axis and validity belong together, and no getter looks at the apply flag for them.
    const bool takesDirection = utils::getApplyFlags(variant) & osg::TransformVariant::ApplyRotationDirection;
    m_applied.rotationDirectionValid =
        (takesDirection ? own : live)
            ->getRotationDirectionValues(m_applied.rotationDirection, m_applied.rotationDirectionMode);
    m_captured = true;
}

void moApplyTransformationVariantUndoCommand::setSyncFunction(const SyncFunction& function)
{
    s_sync.set(function);
}

void moApplyTransformationVariantUndoCommand::redo()
{
    apply(m_applied, m_variantIndex);
}

void moApplyTransformationVariantUndoCommand::undo()
{
    apply(m_previous, m_previousSupposedState);
}

moApplyTransformationVariantUndoCommand::TransformValues
moApplyTransformationVariantUndoCommand::valuesOf(const osg::Transform3DPtr& live)
{
    TransformValues values;
    values.translation = live->getTranslation();
    values.rotationOrientation = live->getEulerRotationOrientation();
    values.rotation = live->getEulerRotation();
    values.rotatePivot = live->getRotatePivot();
    values.rotatePivotTranslation = live->getRotatePivotTranslation();
    values.scale = live->getScale();
    values.scalePivot = live->getScalePivot();
    values.scalePivotTranslation = live->getScalePivotTranslation();
    values.rotationMode = live->getRotationMode();
    values.eulerRotationOrder = live->getEulerRotationOrder();
    values.rotationDirectionValid =
        live->getRotationDirectionValues(values.rotationDirection, values.rotationDirectionMode);
    return values;
}

void moApplyTransformationVariantUndoCommand::apply(const TransformValues& values, int supposedState) const
{
    moStep::run([&] {
        if (!m_captured) return;
        const auto node = findContainer<osg::NodePtr>(m_nodeId);
        if (node == osg::NullFC) return;

        const osg::Transform3DPtr live = moNodeUtils::getTransform3D(node, -1);
        const TransformValues before = live == osg::NullFC ? TransformValues() : valuesOf(live);
        const int stateBefore = moTransformVariantUtils::getSupposedState(live);
        moStep::writeOrTakeBack([&] { write(values, supposedState); }, [&] { write(before, stateBefore); });
        if (m_callback) moStep::afterwards(m_callback);
        if (m_sync) mirror(s_sync, m_nodeId);
    });
}

/// Looks the node up for each of the two edits: a listener to the first one may destroy it.
void moApplyTransformationVariantUndoCommand::write(const TransformValues& values, int supposedState) const
{
    const auto node = [this] { return findContainer<osg::NodePtr>(m_nodeId); };
    moStep::writeThroughSibling(
        [&] { moTransformVariantUtils::setSupposedState(moNodeUtils::getTransform3D(node(), -1), supposedState); });
    moStep::writeThroughSibling([&] {
        moNodeUtils::setTransformNodeValues(node(), values.translation, values.rotationOrientation, values.rotation,
                                            values.rotatePivot, values.rotatePivotTranslation, values.scale,
                                            values.scalePivot, values.scalePivotTranslation, values.rotationMode,
                                            values.eulerRotationOrder, values.rotationDirectionValid,
                                            values.rotationDirection, values.rotationDirectionMode, -1);
    });
}
