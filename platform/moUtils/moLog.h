#pragma once

#include <functional>
#include <string>

/// Logging facade: one line per call, printf-style, written through Qt's logging category "mo.undo".
///
/// The ...NR calls (non-repeating) write a line only the first time that this very text comes up in the process;
/// error() writes every time. Main thread only.
class moLog
{
public:
    enum class Kind
    {
        Error,
        ErrorNR,
        WarningNR
    };

    /// Told of every call, also of those whose line is suppressed as a repetition.
    using Listener = std::function<void(Kind kind, const std::string& line)>;

    static void error(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void errorNR(const char* format, ...) __attribute__((format(printf, 1, 2)));
    static void warningNR(const char* format, ...) __attribute__((format(printf, 1, 2)));

    /// Installs the listener and returns the one before it; an empty function removes it.
    static Listener setListener(Listener listener);

    /// "error", "errorNR" or "warningNR": the name of the call.
    static const char* kindName(Kind kind);
};
