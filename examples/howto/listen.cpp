#include <moUndoStack/moUndoCommands.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>

namespace {

//! [listen]
bool listen(const char* name, moMessage& message, int)
{
    const boost::any* const node = message.find("node");
    if (message.find("transformCommand") && node)
        std::cout << name << " of node " << (boost::any_cast<unsigned int>(*node) != 0 ? "known" : "null") << '\n';
    return true; // not looked at
}
//! [listen]

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    moUndoStack::beginUndo();
    moUndoStack& stack = moUndoStack::get();
    //! [use]
    stack.setMessageCallback(listen);
    stack.addOrExecute(new moShearUndoCommand(box, osg::Vec3f(1, 0, 0), nullptr));
    stack.undo();
    //! [use]
    return 0;
}
