#pragma once

#include <moUndoStack/core/moUndoStack.h>

#include <QtCore/QObject>

#include <functional>
#include <string>
#include <utility>
#include <vector>

class moUndoCommandBase;

/// Records all that one stack reports to its listeners, in order, one line each:
///
///     signal redo "Move" added          signal undo "Move"        signal cleared
///     message moURManager::redo index=int:0 added=bool:true ...
///     changed "Move" true               (for commands given to watch())
///
/// One trace per stack at a time.
class Trace
{
public:
    explicit Trace(moUndoStack& stack);
    ~Trace();
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /// Sets the command's changed callback to one that adds a line.
    template<class Command>
    Command* watch(Command* command, const std::string& name)
    {
        setChanged(*command, name);
        return command;
    }

    void add(const std::string& line) { m_lines.push_back(line); }

    const std::vector<std::string>& lines() const { return m_lines; }

    /// Returns the lines and forgets them.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

    /// Only the messages, without the word "message".
    std::vector<std::string> takeMessages();

private:
    void setChanged(moUndoCommandBase& command, const std::string& name);

    moUndoStack& m_stack;
    QObject m_context;
    std::vector<std::string> m_lines;
};
