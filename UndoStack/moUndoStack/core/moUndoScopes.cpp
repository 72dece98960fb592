#include <moUndoStack/core/moUndoScopes.h>

#include <moUndoStack/core/moStackCalls_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoStack.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace {

/// Calls from a destructor: if an exception is on its way already, another one is kept by the step, or logged.
template<class Call>
void callAtExit(int exceptionsBefore, const Call& call)
{
    if (std::uncaught_exceptions() > exceptionsBefore)
        moStep::attempt(call);
    else
        call();
}

} // namespace

// --- moCompositionScope ---------------------------------------------------------------------------------------------

moCompositionScope::moCompositionScope(moUndoStack& stack, const QString& text, const QString& description,
                                       bool mergeEnabled)
    : m_stack(stack), m_exceptions(std::uncaught_exceptions())
{
    stack.beginMultiCommand(text, description, mergeEnabled);
    m_number = moUndoStack::s_multiCommands.back().number;
}

moCompositionScope::~moCompositionScope() noexcept(false)
{
    const bool cancelled = std::uncaught_exceptions() > m_exceptions;
    callAtExit(m_exceptions, [this, cancelled] { cancelled ? cancel() : end(); });
}

/// Closes the compositions inside; false if the composition itself is over already.
bool moCompositionScope::close(bool cancelled)
{
    auto& open = moUndoStack::s_multiCommands;
    const auto own = [this](const moUndoStack::Composition& each) { return each.number == m_number; };
    if (std::none_of(open.begin(), open.end(), own)) return false;
    while (!own(open.back())) {
        moUndoStack& stack = moUndoStack::get(open.back().type);
        cancelled ? stack.cancelMultiCommand() : stack.endMultiCommand();
    }
    return true;
}

void moCompositionScope::end()
{
    if (close(false)) m_stack.endMultiCommand();
}

void moCompositionScope::cancel()
{
    if (close(true)) m_stack.cancelMultiCommand();
}

// --- moMacroScope ---------------------------------------------------------------------------------------------------

moMacroScope::moMacroScope(moUndoStack& stack, const QString& text)
    : m_stack(stack), m_exceptions(std::uncaught_exceptions())
{
    const moStackPlace place = stack.m_calls->place();
    m_depth = place.openMacros + 1;
    m_clears = place.clears;
    try {
        stack.beginMacro(text);
    } catch (...) { // thrown by a listener: the macro is open
        moStep::takeBack([this] { end(); });
        throw;
    }
}

moMacroScope::~moMacroScope() noexcept(false)
{
    callAtExit(m_exceptions, [this] { end(); });
}

void moMacroScope::end()
{
    const moStackPlace place = m_stack.m_calls->place();
    const int open = place.clears == m_clears ? place.openMacros - m_depth + 1 : 0;
    m_clears = -1; // ends once
    moStep::runOutermost([this, open] {
        for (int i = 0; i < open; ++i)
            moStep::attempt([this] { m_stack.endMacro(); });
    });
}

// --- recording ------------------------------------------------------------------------------------------------------

moRecordingScope::moRecordingScope()
{
    moUndoStack::beginUndo();
}

moRecordingScope::~moRecordingScope()
{
    moUndoStack::endUndo();
}

moBlockedRecordingScope::moBlockedRecordingScope()
{
    moUndoStack::beginBlockUndo();
}

moBlockedRecordingScope::~moBlockedRecordingScope()
{
    moUndoStack::endBlockUndo();
}
