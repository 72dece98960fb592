#pragma once

#include "Operation.h"

#include <functional>
#include <map>
#include <string>

/// How often each kind of operation was played and each noteworthy event happened.
using Counts = std::map<std::string, int>;

/// Plays a program with the library and the shadow side by side and compares their state and what listeners got after
/// each operation. At the end undoes and redoes both histories. Returns the first difference; empty if there is none.
/// Adds to `counts` unless that is null.
std::string differenceOf(const Program& program, Counts* counts = nullptr);

/// Leaves out operations as long as there is still a difference. Returns the shortest program found.
Program shrunk(Program program, const std::function<bool(const Program&)>& isWrong);

/// All that is needed to see the difference again: what differs, and the shrunk program as code.
std::string reportOf(const Program& program, const std::string& name);
