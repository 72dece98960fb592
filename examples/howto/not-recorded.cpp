#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    //! [ask]
    moUndoStack& stack = moUndoStack::get();
    const auto edit = [&](const char* when) {
        const int before = stack.size();
        stack.addOrExecute(new moShearUndoCommand(box, osg::Vec3f(1, 0, 0), nullptr));
        std::cout << when << ": " << stack.size() - before << " step(s), recording " << moUndoStack::undoEnabled()
                  << ", blocked " << moUndoStack::undoBlocked() << ", composing " << moUndoStack::isComposing() << '\n';
    };
    edit("never begun");
    moUndoStack::beginUndo();
    edit("begun");
    moUndoStack::beginBlockUndo();
    edit("blocked");
    moUndoStack::endBlockUndo();
    stack.beginMultiCommand("composite", "composite", true);
    edit("composing");
    //! [ask]
    return 0;
}
