// refused: is ambiguous
#include <moUndoStack/moUndoCommands.h>

moMergeOption chooseOne()
{
    return 1;
}
