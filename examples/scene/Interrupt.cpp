#include <scene/Interrupt.h>

#include <csignal>

namespace {

volatile std::sig_atomic_t s_interrupted = 0;

void remember(int)
{
    s_interrupted = 1;
}

} // namespace

void rememberInterrupt()
{
    struct sigaction action = {};
    action.sa_handler = remember;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);

    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

bool wasInterrupted()
{
    return s_interrupted != 0;
}
