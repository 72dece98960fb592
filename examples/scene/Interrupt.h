#pragma once

#include <exception>

/// Makes Ctrl-C a question for wasInterrupted(). From now on the first SIGINT is only remembered, and the second one
/// ends the process as usual. A SIGINT that was blocked when the process started arrives now.
void rememberInterrupt();

/// Whether a SIGINT was remembered.
bool wasInterrupted();

/// Thrown where work is broken off because of a SIGINT.
class Interrupted : public std::exception
{
public:
    const char* what() const noexcept override { return "interrupted"; }
};
