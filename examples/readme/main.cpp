#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    const osg::NodeRefPtr box(osg::makeNodeFor(transform));
    osg::setName(box.get(), "Box");

    moUndoStack::beginUndo(); // record from now on
    moUndoStack& stack = moUndoStack::get();
    stack.addOrExecute(new moTranslationUndoCommand(box, osg::Vec3f(0, 2, 0), false, nullptr, {}, -1));
    std::cout << stack.currentCommand()->text().toStdString() << ": y is " << transform->getTranslation()[1] << '\n';

    stack.undo();
    std::cout << "undone: y is " << transform->getTranslation()[1] << '\n';
    return 0;
}
