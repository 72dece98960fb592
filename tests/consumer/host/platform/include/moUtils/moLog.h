#pragma once

/// The host's log: lines on standard error.
class moLog
{
public:
    static void error(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void errorNR(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void warningNR(const char* format, ...) __attribute__((format(printf, 1, 2)));
};
