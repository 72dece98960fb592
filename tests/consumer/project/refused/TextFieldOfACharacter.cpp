// refused: moTextFieldUndoCommand is for the library's own commands
#include <moUndoStack/moUndoCommands.h>

class LetterCommand : public moTextFieldUndoCommand<osg::SFString, char>
{
};
