#include <moUtils/moLog.h>

#include <QtCore/QLoggingCategory>

#include <cstdarg>
#include <cstdio>
#include <unordered_set>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcUndo, "mo.undo")

moLog::Listener& listener()
{
    static moLog::Listener s_listener;
    return s_listener;
}

bool isFirstTime(const std::string& line)
{
    static std::unordered_set<std::string> s_written;
    return s_written.insert(line).second;
}

std::string formatted(const char* format, std::va_list arguments)
{
    std::va_list forLength;
    va_copy(forLength, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, forLength);
    va_end(forLength);
    if (length <= 0) return {};

    std::string line(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, arguments);
    return line;
}

void write(moLog::Kind kind, const std::string& line)
{
    // A copy: the listener may install another one while it runs.
    if (const moLog::Listener told = listener()) told(kind, line);

    if (kind != moLog::Kind::Error && !isFirstTime(line)) return;
    if (kind == moLog::Kind::WarningNR)
        qCWarning(lcUndo, "%s", line.c_str());
    else
        qCCritical(lcUndo, "%s", line.c_str());
}

} // namespace

void moLog::error(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string line = formatted(format, arguments);
    va_end(arguments);
    write(Kind::Error, line);
}

void moLog::errorNR(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string line = formatted(format, arguments);
    va_end(arguments);
    write(Kind::ErrorNR, line);
}

void moLog::warningNR(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string line = formatted(format, arguments);
    va_end(arguments);
    write(Kind::WarningNR, line);
}

moLog::Listener moLog::setListener(Listener replacement)
{
    return std::exchange(listener(), std::move(replacement));
}

const char* moLog::kindName(Kind kind)
{
    switch (kind) {
    case Kind::Error:
        return "error";
    case Kind::ErrorNR:
        return "errorNR";
    case Kind::WarningNR:
        return "warningNR";
    }
    return "";
}
