#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    const osg::NodeRefPtr box(osg::makeNodeFor(transform));
    moUndoStack::beginUndo();
    //! [merge]
    moUndoStack& stack = moUndoStack::get();
    const auto move = [&](float height) {
        auto* const command = new moTranslationUndoCommand(box, osg::Vec3f(0, height, 0), false, nullptr, {}, -1);
        command->setMergeResponseDelta(-1); // however late, so that this program always prints the same
        return command;
    };
    stack.addOrExecute(move(1));
    stack.addOrExecute(move(2));
    std::cout << "merged: " << stack.size() << " step, undo gives ";
    stack.undo();
    std::cout << transform->getTranslation()[1] << '\n';
    stack.clear();

    stack.addOrExecute(move(1));
    auto* const apart = move(2);
    apart->setMergeEnabled(false); // on the newer one
    stack.addOrExecute(apart);
    std::cout << "apart: " << stack.size() << " steps, undo gives ";
    stack.undo();
    std::cout << transform->getTranslation()[1] << '\n';
    //! [merge]
    return 0;
}
