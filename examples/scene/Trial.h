#pragma once

#include <functional>
#include <string>

/// How a trial of an action ended.
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

/// Runs the action in a child process, where it can do no harm: with damaged files, readers of model files have been
/// seen to abort, to crash, to ask for all memory and never to end. Only the first 4096 bytes of its complaint come
/// back; what it writes to stderr is discarded. It may take 4 GiB of memory.
///
/// \param cpuSeconds  processor time that the action may take, at least 1.
/// If no child process can be started, the result is Returned without a complaint. A SIGINT that is remembered
/// (Interrupt.h) ends the child process.
Trial tryOut(const std::function<std::string()>& action, unsigned int cpuSeconds);
