// An editor on its own platform: one edit, undone; its messages and its log are the host's.

#include <moUndoStack/moUndoCommands.h>

#include <moUtils/moMessage.h>

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

    moUndoStack::beginUndo();
    moUndoStack& stack = moUndoStack::get();
    stack.setMessageCallback([](const char* name, moMessage& message, int) {
        std::cout << name << ':';
        for (const auto& entry : message.sorted())
            std::cout << ' ' << entry.first;
        std::cout << '\n';
        return true;
    });
    stack.addOrExecute(new moTranslationUndoCommand(box, osg::Vec3f(0, 2, 0), false, nullptr, {}, -1));
    const bool done = transform->getTranslation()[1] == 2;
    stack.undo();
    const bool undone = transform->getTranslation()[1] == 0;
    stack.clear();
    stack.endMultiCommand(); // there is nothing to end, which the log says
    return done && undone ? 0 : 1;
}
