// refused: deleted function
#include <moUndoStack/moUndoCommands.h>

void makeIt(const moUndoString& text, const osg::NodePtr& node, const bool* value)
{
    moUndoUtil::makeCommand(text, node, "active", value);
}
