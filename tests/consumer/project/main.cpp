// A host that has only the installed package: one recorded edit, undone and redone.

#include <moUndoStack/moUndoCommands.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <string>

namespace {

class RenameCommand : public moFunctionUndoCommand<std::string>
{
public:
    RenameCommand(osg::NodePtr node, const std::string& name)
        : moFunctionUndoCommand(moUndoString("Rename", ""), node, name, nullptr)
    {
    }

protected:
    std::string get(osg::NodePtr node) override { return osg::getName(node) ? osg::getName(node) : ""; }
    void set(osg::NodePtr node, std::string name) override { osg::setName(node, name); }
};

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    osg::NodePtr node = osg::Node::create();
    osg::addRefCP(node);

    moUndoStack& stack = moUndoStack::get();
    moUndoStack::beginUndo();
    stack.addOrExecute(new RenameCommand(node, "Box"));
    const bool done = std::string(osg::getName(node)) == "Box";
    stack.undo();
    const bool undone = std::string(osg::getName(node)).empty();
    stack.clear();

    osg::subRefCP(node);
    return done && undone ? 0 : 1;
}
