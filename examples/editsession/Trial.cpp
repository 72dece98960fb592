#include <editsession/Trial.h>

#include <editsession/Interrupt.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void runAsChild(const std::function<void()>& action, unsigned int cpuSeconds)
{
    std::signal(SIGINT, SIG_DFL);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const rlimit cpu{cpuSeconds, cpuSeconds + 1};
    setrlimit(RLIMIT_CPU, &cpu);
    const bool quiet = std::freopen("/dev/null", "w", stderr) != nullptr;
    action();
    _exit(quiet ? 0 : 1);
}

} // namespace

Trial tryOut(const std::function<void()>& action, unsigned int cpuSeconds)
{
    const pid_t child = fork();
    if (child < 0) return Trial::Returned;
    if (child == 0) runAsChild(action, cpuSeconds);

    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        if (wasInterrupted()) kill(child, SIGKILL);
    }
    if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL)) return Trial::DidNotEnd;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Trial::Returned : Trial::Crashed;
}
