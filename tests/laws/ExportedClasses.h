#pragma once

#include <set>
#include <string>

/// The names of the classes whose commandId() the built library exports.
std::set<std::string> exportedCommandClasses();
