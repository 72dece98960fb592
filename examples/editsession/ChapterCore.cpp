#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>
#include <scene/RenameCommand.h>
#include <scene/SceneDigest.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodePtr.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <memory>

namespace {

osg::Vec3f translation(const osg::NodePtr& node)
{
    return moNodeUtils::getTransformNodeTranslation(node, false, -1);
}

bool sameBits(const osg::Vec3f& a, const osg::Vec3f& b)
{
    return std::equal(a.getValues(), a.getValues() + 3, b.getValues());
}

/// Drags a node: the mouse is pressed, moved thirty times and released. The editor adds a command for each move.
void drag(Context& context, const osg::NodePtr& node)
{
    constexpr int moves = 30;
    // In seconds: longer than the user may rest in the middle of a drag.
    constexpr double mergeInterval = 10.;

    const osg::Vec3f start = translation(node);
    const auto moved = [&start](int move) { return start + osg::Vec3f(0.05f, 0.f, -0.02f) * static_cast<float>(move); };
    const int before = context.stack.size();
    for (int move = 1; move <= moves; ++move)
        context.stack.addOrExecute(
            new moTranslationUndoCommand(node, moved(move), false, mergeInterval, nullptr, {}, -1));
    context.report.check("core: the moves of a drag are one step", context.stack.size() == before + 1);

    context.stack.undo();
    context.report.check("core: one undo takes the whole drag back", sameBits(translation(node), start));
    context.stack.redo();
    context.report.check("core: one redo makes the whole drag again", sameBits(translation(node), moved(moves)));
}

/// Moves a selection: one step, with a command for each node.
void moveSelection(Context& context, const std::vector<osg::NodePtr>& selection)
{
    const int before = context.stack.size();
    context.stack.beginMultiCommand("Move Selection", "Move Nodes", false);
    for (const osg::NodePtr& node : selection) {
        const osg::Vec3f raised = translation(node) + osg::Vec3f(0.f, 0.25f, 0.f);
        context.stack.addOrExecute(new moTranslationUndoCommand(node, raised, false, nullptr, {}, -1));
    }
    context.stack.endMultiCommand();

    const QUndoCommand* composite = context.stack.currentCommand();
    context.report.check("core: a moved selection is one step with a command for each node",
                         context.stack.size() == before + 1 && composite &&
                             composite->childCount() == static_cast<int>(selection.size()));
}

/// Blocks recording while it exists.
class Unrecorded
{
public:
    Unrecorded() { moUndoStack::beginBlockUndo(); }
    ~Unrecorded() { moUndoStack::endBlockUndo(); }
    Unrecorded(const Unrecorded&) = delete;
    Unrecorded& operator=(const Unrecorded&) = delete;
};

/// A tool tries an edit out with recording blocked. The edit is no step, and undo-all cannot take it back, so the tool
/// does.
void tryOut(Context& context, const osg::NodePtr& node)
{
    const SceneState before = context.scene.state();
    const int steps = context.stack.size();
    const osg::Vec3f start = translation(node);
    const auto move = [&](const osg::Vec3f& value) {
        context.stack.addOrExecute(new moTranslationUndoCommand(node, value, false, nullptr, {}, -1));
    };

    bool executed = false;
    {
        const Unrecorded unrecorded;
        move(start + osg::Vec3f(100.f, 0.f, 0.f));
        executed = context.scene.state().digest != before.digest;
        move(start);
    }

    context.report.check("core: an edit is executed while recording is blocked", executed);
    context.report.check("core: it is not recorded", context.stack.size() == steps);
    context.checkScene("core: it was put back by hand", before);
}

void setTravMask(const osg::NodePtr& node, osg::UInt32 mask)
{
    const osg::CPEditor edit(node, osg::Node::TravMaskFieldMask);
    node->setTravMask(mask);
}

/// Makes a command from two functions. They look the node up by its id, as it may be destroyed before they run.
void hide(Context& context, const osg::NodePtr& node)
{
    const osg::UInt32 shown = node->getTravMask();
    const auto apply = [handle = moNodePtr(node)](osg::UInt32 mask) {
        if (const osg::NodePtr found = handle.getPtr()) setTravMask(found, mask);
    };
    context.stack.addOrExecute(new moGenericFunctionUndoCommand(
        moUndoString("Hide", "Node Commands"), [=] { apply(shown); }, [=] { apply(0); }, nullptr));
    context.report.check("core: a generic function command hides a node", !node->getActive());
}

/// A command that adds a node holds a reference on it, because undo removes it from the scene.
void addMarker(Context& context, const osg::NodePtr& parent)
{
    const osg::NodeRefPtr marker(osg::makeNodeFor(osg::Transform3D::create()));
    osg::setName(marker.get(), "Marker");
    const auto edit = [handle = moNodePtr(parent), marker](void (osg::Node::*change)(const osg::NodePtr&)) {
        const osg::NodePtr found = handle.getPtr();
        if (!found) return;
        const osg::CPEditor bracket(found, osg::Node::ChildrenFieldMask);
        ((*found).*change)(marker.get());
    };
    const osg::UInt32 children = parent->getNChildren();
    context.stack.addOrExecute(new moGenericFunctionUndoCommand(
        moUndoString("Add Marker", "Node Commands"), [=] { edit(&osg::Node::subChild); },
        [=] { edit(&osg::Node::addChild); }, nullptr));
    context.report.check("core: a generic function command adds a node", parent->getNChildren() == children + 1);
}

/// A dialog remembers the index at which it was opened. When it is cancelled, it jumps back over all of its steps; then
/// the user redoes them.
void cancelDialog(Context& context, const osg::NodePtr& node)
{
    const SceneState before = context.scene.state();
    context.stack.mark();
    const int steps = context.stack.size();
    context.stack.addOrExecute(new RenameCommand(node, "Renamed in a Dialog"));
    const osg::Vec3f turned = moNodeUtils::getTransformNodeRotation(node, -1) + osg::Vec3f(0.f, 30.f, 0.f);
    context.stack.addOrExecute(new moRotationUndoCommand(node, turned, nullptr, {}, -1));
    const SceneState after = context.scene.state();

    context.stack.reset();
    context.checkScene("core: reset goes back to the mark", before);
    for (int step = steps; step < context.stack.size(); ++step)
        context.stack.redo();
    context.checkScene("core: what was reset can be done again", after);
}

} // namespace

void coreChapter(Context& context)
{
    const std::vector<osg::NodePtr>& nodes = context.model.nodes;
    const osg::NodePtr node = nodes[nodes.size() / 2];

    drag(context, node);
    moveSelection(
        context, {nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(10, nodes.size()))});
    tryOut(context, node);
    hide(context, nodes.back());
    addMarker(context, nodes.front());
    cancelDialog(context, node);
}
