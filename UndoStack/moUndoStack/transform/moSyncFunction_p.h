#pragma once

#include <functional>

/// Calls a class-wide synchronisation function if there is one. A copy of it: the function may replace itself.
template<class... Parameters, class... Arguments>
void callSyncFunction(const std::function<void(Parameters...)>& function, const Arguments&... arguments)
{
    if (const auto running = function) running(arguments...);
}
