#pragma once

#include <string>

class moMessage;
class moUndoStack;

/// A message in one line, with the types of its values: `index=int:0 added=bool:true text=string:"Move" ...`.
std::string describe(const moMessage& message);

/// What can be seen of a stack, in one line: `2 steps, at "Move", undo, no redo`.
std::string describe(const moUndoStack& stack);
