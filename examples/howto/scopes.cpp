#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>
#include <stdexcept>
#include <vector>

namespace {

//! [composition]
/// Moves nodes in one step: all of them, or none if one is null.
void moveAll(const std::vector<osg::NodePtr>& nodes, const osg::Vec3f& place)
{
    moCompositionScope composition(moUndoStack::get(), "Move all", "All nodes to one place");
    for (const osg::NodePtr& node : nodes) {
        if (node == osg::NullFC) throw std::invalid_argument("a node is null"); // cancels: no edit is made
        new moTranslationUndoCommand(node, place, false, nullptr, {}, -1);
    }
} // ends: one step
//! [composition]

//! [recording]
/// Edits that the user cannot undo, e.g. while a file is loaded.
void load(const osg::NodePtr& node)
{
    const moBlockedRecordingScope blocked;
    moUndoStack::get().addOrExecute(new moTranslationUndoCommand(node, osg::Vec3f(7, 0, 0), false, nullptr, {}, -1));
}
//! [recording]

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    const osg::NodeRefPtr ball(osg::makeNodeFor(osg::Transform3D::create()));
    moUndoStack& stack = moUndoStack::get();
    const auto report = [&](const char* what) {
        std::cout << what << ": box at " << osg::Transform3DPtr::dcast(box->getCore())->getTranslation()[0] << ", "
                  << stack.size() << " steps\n";
    };
    //! [use]
    const moRecordingScope recording; // until the end of main()
    load(box);
    report("loaded");
    moveAll({box, ball}, osg::Vec3f(1, 0, 0));
    report("moved");
    try {
        moveAll({box, osg::NullFC}, osg::Vec3f(9, 9, 9));
    } catch (const std::invalid_argument&) {
        report("failed");
    }
    {
        const moMacroScope macro(stack, "Script"); // each command runs as it is added
        stack.addOrExecute(new moTranslationUndoCommand(box, osg::Vec3f(2, 0, 0), false, nullptr, {}, -1));
        stack.addOrExecute(new moScaleUndoCommand(ball, osg::Vec3f(2, 2, 2), nullptr, {}, -1));
    }
    report("script");
    stack.undo();
    report("undone");
    //! [use]
    moUndoStack::clearAll();
    return 0;
}
