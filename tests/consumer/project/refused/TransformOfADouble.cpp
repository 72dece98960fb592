// refused: moTransformUndoCommand is for osg::Vec3f and std::string
#include <moUndoStack/moUndoCommands.h>

class ScaleFactorCommand : public moTransformUndoCommand<double>
{
};
