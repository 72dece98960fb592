#pragma once

#include "Operation.h"

#include <functional>
#include <map>
#include <string>

/// How often each kind of operation was played and each noteworthy thing happened.
using Counts = std::map<std::string, int>;

/// Plays a program with the library and with the shadow at once, compares all that can be asked for and all that was
/// told after each operation, and at the end walks both histories back and forth. Returns where the two differ, or
/// nothing. Adds to `counts`, if there are any.
std::string differenceOf(const Program& program, Counts* counts = nullptr);

/// The shortest program found that is still wrong, by leaving out parts that are not needed.
Program shrunk(Program program, const std::function<bool(const Program&)>& isWrong);

/// What it takes to see the difference again: what differs, and the shrunk program as code.
std::string reportOf(const Program& program, const std::string& name);
