// refused: moFieldBaseUndoCommand<> is the only instantiation
#include <moUndoStack/moUndoCommands.h>

class ValueCommand : public moFieldBaseUndoCommand<int>
{
public:
    using moFieldBaseUndoCommand<int>::moFieldBaseUndoCommand;
};
