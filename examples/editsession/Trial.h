#pragma once

#include <functional>
#include <string>

/// How an action ended that was tried out first.
struct Trial
{
    enum End
    {
        Returned,
        Crashed,
        DidNotEnd
    };
    End end = Returned;
    std::string complaint; ///< what the action returned: empty if it has nothing to complain about
};

/// Runs the action in a child process, where it can do no harm: readers of model files have been seen to abort, to
/// crash, to ask for all memory and never to end when the file is damaged. What the action writes to stderr is dropped,
/// and so is all else that it does, except for its complaint, of which the first 4096 bytes come back. It may take 4 GiB
/// of memory.
///
/// \param cpuSeconds  processor time that the action may take, at least 1.
/// Without a child process (none can be had any more) the answer is Returned without a complaint. A SIGINT that is
/// remembered (Interrupt.h) ends the child process.
Trial tryOut(const std::function<std::string()>& action, unsigned int cpuSeconds);
