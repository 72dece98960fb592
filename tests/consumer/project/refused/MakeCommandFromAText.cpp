// refused: deleted function
#include <moUndoStack/moUndoCommands.h>

void makeIt(const moUndoString& text, const osg::NodePtr& node)
{
    moUndoUtil::makeCommand(text, node, "active", "true");
}
