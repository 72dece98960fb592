#include <moUndoStack/core/moStep.h>

#include <moUtils/moLog.h>

moStep* moStep::s_current = nullptr;

void moStep::keepException(moStep* step) noexcept
{
    if (step && !step->m_first) {
        step->m_first = std::current_exception();
        return;
    }
    try {
        try {
            throw;
        } catch (const std::exception& later) {
            moLog::error("moUndoStack: another exception in the same operation: %s", later.what());
        } catch (...) {
            moLog::error("moUndoStack: another exception in the same operation");
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): the log itself fails, and the step must be done all the same
    }
}
