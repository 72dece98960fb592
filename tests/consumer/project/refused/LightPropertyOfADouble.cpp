// refused: moLightPropertyUndoCommand is for the library's own commands
#include <moUndoStack/moUndoCommands.h>

class BrightnessCommand : public moLightPropertyUndoCommand<double>
{
};
