#include <scene/Trial.h>

#include <scene/Interrupt.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr rlim_t maximalMemory = rlim_t(4) << 30; // bytes; a scene of a million nodes takes less

[[noreturn]] void runAsChild(const std::function<std::string()>& action, unsigned int cpuSeconds, int pipe)
{
    std::signal(SIGINT, SIG_DFL);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const rlimit cpu{cpuSeconds, cpuSeconds + 1};
    setrlimit(RLIMIT_CPU, &cpu);
#ifndef __SANITIZE_ADDRESS__ // it reserves more address space than any limit
    const rlimit memory{maximalMemory, maximalMemory};
    setrlimit(RLIMIT_DATA, &memory);
#endif
    const bool quiet = std::freopen("/dev/null", "w", stderr) != nullptr;
    const std::string complaint = action().substr(0, PIPE_BUF);
    const bool told = write(pipe, complaint.data(), complaint.size()) == static_cast<ssize_t>(complaint.size());
    _exit(quiet && told ? 0 : 1);
}

} // namespace

Trial tryOut(const std::function<std::string()>& action, unsigned int cpuSeconds)
{
    int ends[2];
    if (pipe(ends) != 0) return {};
    const pid_t child = fork();
    if (child == 0) runAsChild(action, cpuSeconds, ends[1]);
    close(ends[1]);

    Trial trial;
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
        if (wasInterrupted()) kill(child, SIGKILL);
    }
    if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL))
        trial.end = Trial::DidNotEnd;
    else if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        trial.end = Trial::Crashed;
    // A pipe buffers this much, so the child process never waited for a reader.
    char complaint[PIPE_BUF];
    const ssize_t size = child > 0 ? read(ends[0], complaint, sizeof(complaint)) : 0;
    if (size > 0) trial.complaint.assign(complaint, static_cast<std::size_t>(size));
    close(ends[0]);
    return trial;
}
