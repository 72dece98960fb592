// refused: moConstraintSourcesUndoCommand is for the library's own commands
#include <moUndoStack/moUndoCommands.h>

class NodeSourcesCommand : public moConstraintSourcesUndoCommand<osg::NodePtr>
{
};
