#pragma once

#include <functional>

class QUndoStack;

/// The windows that show the histories, one for each of the two stacks, and when they are destroyed:
///
///  - The user closes one: it is hidden, and show() brings the same one back.
///  - The application object is destroyed, however that comes about: they are destroyed first, as no window can be
///    destroyed later.
///  - The process ends while there is an application object (std::exit(), a leaked or static object): they are left to
///    the process. Parts of Qt that the destructor of a window needs may be destroyed already.
namespace moHistoryWindow {

/// Shows the history of a stack, in a window made at the first call.
///
/// \param slot  0 or 1: which of the two windows.
/// \param jump  called with the index when the user chooses a row.
void show(unsigned int slot, QUndoStack& stack, const std::function<void(int)>& jump);

/// From now on the stack may be emptied and destroyed: a window that is still there does not hear of it.
void abandon(QUndoStack& stack);

} // namespace moHistoryWindow
