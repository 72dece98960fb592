#pragma once

#include <set>
#include <string>

/// The names of the classes that the built library exports a commandId() of.
std::set<std::string> exportedCommandClasses();
