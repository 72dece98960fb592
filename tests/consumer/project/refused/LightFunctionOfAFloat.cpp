// refused: moLightsFunctionUndoCommand is for bool
#include <moUndoStack/moUndoCommands.h>

class BrightnessCommand : public moLightsFunctionUndoCommand<float>
{
};
