#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>
#include <scene/SceneDigest.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

// In seconds: longer than the user may rest in the middle of a drag.
constexpr double mergeInterval = 10.;
constexpr int dragMoves = 20;

osg::Vec3f at(const osg::Vec3f& start, const osg::Vec3f& step, int move)
{
    return start + step * static_cast<float>(move);
}

/// Rotates, scales and shears a node and moves its pivots. Each drag is one step. The last command places the pivot in
/// the world, independent of the parents.
void pose(Context& context, const osg::NodePtr& node)
{
    using namespace moNodeUtils;

    const int before = context.stack.size();
    const osg::Vec3f angles = getTransformNodeRotation(node, -1);
    const osg::Vec3f scale = getTransformNodeScale(node, -1);
    const osg::Vec3f pivot = getTransformNodeRotatePivot(node, false, -1);
    const osg::Vec3f scalePivot = getTransformNodeScalePivot(node, false, -1);
    for (int i = 1; i <= dragMoves; ++i)
        context.stack.addOrExecute(new moRotationUndoCommand(node, at(angles, osg::Vec3f(0.f, 1.5f, 0.5f), i),
                                                             mergeInterval, nullptr, {}, -1));
    for (int i = 1; i <= dragMoves; ++i)
        context.stack.addOrExecute(
            new moScaleUndoCommand(node, at(scale, osg::Vec3f(0.01f, 0.f, 0.02f), i), mergeInterval, nullptr, {}, -1));
    for (int i = 1; i <= dragMoves; ++i)
        context.stack.addOrExecute(new moRotationPivotUndoCommand(node, at(pivot, osg::Vec3f(0.f, 0.125f, 0.f), i),
                                                                  false, mergeInterval, nullptr, -1));
    for (int i = 1; i <= dragMoves; ++i)
        context.stack.addOrExecute(new moScalePivotUndoCommand(node, at(scalePivot, osg::Vec3f(0.25f, 0.f, 0.f), i),
                                                               false, mergeInterval, nullptr, -1));
    context.report.check("transform: each drag is one step", context.stack.size() == before + 4);

    context.stack.addOrExecute(new moShearUndoCommand(node, osg::Vec3f(0.1f, 0.f, 0.05f), nullptr));
    context.stack.addOrExecute(
        new moRotationPivotOrientationUndoCommand(node, osg::Vec3f(0.f, 0.f, 45.f), nullptr, -1));
    context.stack.addOrExecute(
        new moRotationPivotDirectionUndoCommand(node, osg::Vec3f(1.f, 1.f, 0.f), 1, true, nullptr, -1));
    context.stack.addOrExecute(new moEulerRotationOrderUndoCommand(node, "ZYX", nullptr, {}, -1));
    const osg::Vec3f place(1.f, 2.f, 3.f);
    context.stack.addOrExecute(new moRotationPivotUndoCommand(node, place, true, false, nullptr, -1));
    const osg::Vec3f reached = getTransformNodeRotatePivot(node, true, -1);
    // If the parents scale by almost 0 or by a huge factor, the place cannot be reached.
    const float volume = std::abs(node->getParent() ? node->getParent()->getToWorld().det3() : 1.f);
    context.report.check("transform: a pivot is placed in the world",
                         !(volume > 1e-6f && volume < 1e6f) || (reached - place).length() < 1e-2f);
}

/// Aligns the scene with the view: the caller gives a text and a quaternion.
void align(Context& context, const osg::NodePtr& node)
{
    osg::Quaternion rotation;
    rotation.setValueAsAxisDeg(osg::Vec3f(0.f, 1.f, 0.f), 30.f);
    context.stack.addOrExecute(new moRotationAsQuaternionUndoCommand(
        moUndoString("Align to View", "Turn the scene towards the viewer", "Transform Commands"), node, rotation,
        nullptr));
    context.report.check("transform: a quaternion turns the node",
                         moNodeUtils::getTransform3D(node, -1)->getRotation() == rotation);
}

/// A second view that follows the applied variants while it exists.
class Mirror
{
public:
    Mirror()
    {
        moApplyTransformationVariantUndoCommand::setSyncFunction([this](const osg::NodePtr&) { ++m_steps; });
    }
    ~Mirror() { moApplyTransformationVariantUndoCommand::setSyncFunction({}); }
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;

    int steps() const { return m_steps; }

private:
    int m_steps = 0;
};

std::string variantNames(const osg::NodePtr& node)
{
    std::string names;
    for (int i = 0; i < static_cast<int>(moNodeUtils::getTransformVariantCount(node)); ++i)
        names += (i > 0 ? ", " : "") + moNodeUtils::getTransformVariantName(node, i);
    return names;
}

/// Records poses of a node as variants, moves, renames and applies them. The editor's list follows by callbacks, a
/// second view by the synchronisation function.
void variants(Context& context, const osg::NodePtr& node)
{
    // Shared with the commands, which stay in the stack and call back at every later undo and redo.
    const auto notified = std::make_shared<int>(0);
    const auto listChanged = [notified](unsigned int, int, bool) { ++*notified; };
    const auto moved = [notified](unsigned int, const QList<int>&, const QList<int>&) { ++*notified; };

    // The poses: "Open" rotated by 90 degrees, "Half Open" by 45, "Closed" as the node was.
    const std::vector<std::pair<const char*, float>> poses{{"Open", 90.f}, {"Half Open", 45.f}, {"Closed", 0.f}};
    const osg::Vec3f start = moNodeUtils::getTransformNodeRotation(node, -1);
    for (std::size_t i = 0; i < poses.size(); ++i) {
        const osg::Vec3f angles = start + osg::Vec3f(0.f, poses[i].second, 0.f);
        context.stack.addOrExecute(new moRotationUndoCommand(node, angles, false, nullptr, {}, -1));
        const auto variant =
            moTransformVariantUtils::recordTransformVariant(moNodeUtils::getTransform3D(node, -1), poses[i].first);
        context.stack.addOrExecute(new moAddTransformVariantUndoCommand(node, variant, i, nullptr, listChanged));
    }
    context.report.check("transform: three variants are recorded", variantNames(node) == "Open, Half Open, Closed");

    context.stack.addOrExecute(new moTransformVariantMoveCommand(node, 2, 0, nullptr, moved));
    context.report.check("transform: a variant is moved", variantNames(node) == "Closed, Open, Half Open");
    context.stack.addOrExecute(new moTransformVariantMoveCommand(node, std::vector<int>{2, 1}, 1, nullptr, moved));
    context.report.check("transform: two variants are moved in the order of the selection",
                         variantNames(node) == "Closed, Half Open, Open");

    const osg::TransformVariantPtr open = moNodeUtils::getTransformVariant(node, 2);
    context.stack.addOrExecute(new moTransformVariantNameUndoCommand(
        open, "Wide Open", nullptr, [notified](const std::string&, const std::string&) { ++*notified; }));
    // Everything except the scale, because a pose has no size.
    context.stack.addOrExecute(new moTransformVariantOptionsUndoCommand(
        open, osg::TransformVariant::ApplyAll & ~osg::UInt64(osg::TransformVariant::ApplyScale), nullptr,
        [notified] { ++*notified; }));
    context.report.check("transform: the editor's list is told of every change", *notified == 7);

    const osg::Transform3DPtr live = moNodeUtils::getTransform3D(node, -1);
    const osg::Vec3f size = live->getScale();
    context.stack.addOrExecute(new moScaleUndoCommand(node, size * 2.f, false, nullptr, {}, 2));
    context.report.check("transform: a variant is edited without the node",
                         live->getScale() == size && moNodeUtils::getTransformNodeScale(node, 2) == size * 2.f);

    const Mirror mirror;
    const SceneState before = context.scene.state();
    context.stack.addOrExecute(new moApplyTransformationVariantUndoCommand(node, 2, true, nullptr, {}));
    context.report.check("transform: a variant is applied, without the scale that its options leave out",
                         live->getEulerRotation() == moNodeUtils::getTransformNodeRotation(node, 2) &&
                             live->getScale() == size && live->getSupposedState() == 2);
    context.stack.undo();
    context.checkScene("transform: undo of an applied variant gives the pose back", before);
    context.stack.redo();
    context.report.check("transform: the second view is told of each step", mirror.steps() == 3);

    context.stack.addOrExecute(new moRemoveTransformSwitchVariantUndoCommand(node, 1, nullptr, listChanged));
    context.report.check("transform: a variant is removed", variantNames(node) == "Closed, Wide Open");
}

} // namespace

void transformChapter(Context& context)
{
    const std::vector<osg::NodePtr>& nodes = context.model.nodes;
    const SceneState before = context.scene.state();
    const int steps = context.stack.size();

    pose(context, nodes[nodes.size() / 3]);
    align(context, nodes.front());
    variants(context, nodes.back());

    const SceneState after = context.scene.state();
    const int edits = context.stack.size() - steps;
    for (int i = 0; i < edits; ++i)
        context.stack.undo();
    context.checkScene("transform: undone, the scene is as it was before the chapter", before);
    for (int i = 0; i < edits; ++i)
        context.stack.redo();
    context.checkScene("transform: done again, it is as it was after the edits", after);
}
