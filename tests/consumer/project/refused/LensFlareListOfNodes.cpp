// refused: moLensFlareListCommand is for elements of a light and ghosts of a ghost line
#include <moUndoStack/moUndoCommands.h>

class NodeListCommand : public moLensFlareListCommand<osg::NodePtr, osg::NodePtr>
{
};
