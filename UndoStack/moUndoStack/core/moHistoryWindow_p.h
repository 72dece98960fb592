#pragma once

class QUndoStack;
class moUndoStack;

/// The windows that show the histories, one for each of the two stacks, and how long they exist:
///
///  - The user closes one: it is hidden, and show() shows the same one again.
///  - The application object is destroyed: they are destroyed first, because no window can be destroyed later.
///  - The process ends while there is an application object (std::exit(), a leaked or static object): they are not
///    destroyed, because parts of Qt that their destructors need may be destroyed already.
namespace moHistoryWindow {

/// Shows the history of a stack, in a window made at the first call.
///
/// \param slot     0 or 1: which of the two windows.
/// \param stack    whose history is shown.
/// \param qtStack  that which the stack stands on.
void show(unsigned int slot, moUndoStack& stack, QUndoStack& qtStack);

/// Disconnects the window from the stack, so that the stack can be emptied and destroyed while the window exists.
void abandon(QUndoStack& stack);

} // namespace moHistoryWindow
