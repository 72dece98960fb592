#pragma once

#include <moUtils/moLog.h>

#include <string>
#include <utility>
#include <vector>

/// Records every call of the log while it exists, each as `kind: line`, repeated ones included.
class LogCapture
{
public:
    LogCapture()
        : m_before(moLog::setListener([this](moLog::Kind kind, const std::string& line) {
              m_lines.push_back(std::string(moLog::kindName(kind)) + ": " + line);
          }))
    {
    }
    ~LogCapture() { moLog::setListener(std::move(m_before)); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<std::string>& lines() const { return m_lines; }

    /// Returns the lines and forgets them.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    std::vector<std::string> m_lines;
    moLog::Listener m_before;
};
