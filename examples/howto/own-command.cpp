#include <moUndoStack/moUndoCommands.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>

//! [command]
class ShowCommand : public moFunctionUndoCommand<bool>
{
    MO_UNDO_COMMAND_ID

public:
    ShowCommand(osg::NodePtr node, bool show)
        : moFunctionUndoCommand(moUndoString("Show", "Editor"), node, show, nullptr)
    {
    }

protected:
    bool get(osg::NodePtr node) override { return node->getActive(); }
    void set(osg::NodePtr node, bool show) override
    {
        CPEdit(node, osg::Node::TravMaskFieldMask);
        node->setActive(show);
    }
};
MO_UNDO_COMMAND_ID_IMPL(ShowCommand)
//! [command]

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    moUndoStack::beginUndo();
    //! [use]
    moUndoStack& stack = moUndoStack::get();
    stack.addOrExecute(new ShowCommand(box, false));
    std::cout << "shown: " << box->getActive() << '\n';
    stack.undo();
    std::cout << "shown: " << box->getActive() << '\n';
    //! [use]
    return 0;
}
