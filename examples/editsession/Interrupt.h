#pragma once

#include <exception>

/// Ctrl-C as a question that can be asked. From here on the first SIGINT is only remembered; the second one ends the
/// process as it would without this. A SIGINT that was blocked when the process started arrives now.
void rememberInterrupt();

/// Whether a SIGINT was remembered.
bool wasInterrupted();

/// Thrown where work breaks off because of one.
class Interrupted : public std::exception
{
public:
    const char* what() const noexcept override { return "interrupted"; }
};
