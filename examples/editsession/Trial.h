#pragma once

#include <functional>

/// How an action ended that was tried out first.
enum class Trial
{
    Returned,
    Crashed,
    DidNotEnd
};

/// Runs the action in a child process, where it can do no harm: readers of model files have been seen to abort, to
/// crash and never to end when the file is damaged. What the action writes to stderr is dropped, and so is all else
/// that it does.
///
/// \param cpuSeconds  processor time that the action may take, at least 1.
/// Without a child process (none can be had any more) the answer is Returned. A SIGINT that is remembered (Interrupt.h)
/// ends the child process.
Trial tryOut(const std::function<void()>& action, unsigned int cpuSeconds);
