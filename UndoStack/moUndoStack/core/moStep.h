#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QtGlobal>

#include <exception>
#include <new>
#include <utility>

/// Keeps a step whole when foreign code throws. The library's commands are written with it; yours can be, too.
///
/// A step writes first and calls foreign code afterwards: callbacks, slots, listeners to a change. An exception thrown
/// while the step writes means that the step did not happen: the command puts back what it has written and lets the
/// exception pass. An exception thrown afterwards cannot undo what happened: it is kept, the rest of the step is done,
/// and the caller of the outermost call gets it in the end. If several were kept, the first one is thrown and the
/// others are logged.
///
///     void redo() override
///     {
///         moStep::run([this] {
///             write();                                       // throws: the step did not happen
///             moStep::afterwards([this] { m_callback(); });  // throws: the step stands
///         });
///     }
///
/// The outermost call is the stack's operation that runs the command; for a command that is run by hand, it is the
/// command's own undo() or redo(). Foreign code that calls a stack, or runs a command by hand, makes an outermost call
/// of its own and gets the exceptions of that one.
class MO_UNDO_STACK_EXPORT moStep
{
public:
    /// Runs the body of a step. Inside another step, that step keeps the exceptions; else they are thrown at the end.
    template<class Body>
    static void run(const Body& body)
    {
        if (s_current)
            body();
        else
            runOutermost(body);
    }

    /// Runs the body as an outermost call, also inside another one.
    template<class Body>
    Q_ALWAYS_INLINE static void runOutermost(const Body& body)
    {
        moStep step;
        attempt(body);
        if (step.m_first) step.finish();
    }

    /// Runs foreign code after the write. Outside of a step its exceptions pass.
    template<class Call>
    static void afterwards(const Call& call)
    {
        if (!s_current && std::uncaught_exceptions() == 0) {
            call();
            return;
        }
        const Interlude outside;
        try {
            call();
        } catch (...) {
            keepException(outside.step);
        }
    }

    /// Runs a write that a sibling library makes. The sibling writes first and tells listeners afterwards, so when a
    /// listener throws, the step stands. Only std::bad_alloc passes, because the sibling may have failed before it
    /// wrote. Make one call of the sibling in each: the listeners run outside of the step.
    template<class Write>
    static void writeThroughSibling(const Write& write)
    {
        const Interlude outside;
        try {
            write();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (...) {
            if (!outside.step) throw;
            keepException(outside.step);
        }
    }

    /// Runs a write that has several parts: if one of them fails, `back` takes back what was written before. Runs
    /// `back` as takeBack() does; it must do no harm where nothing was written yet.
    template<class Write, class Back>
    static void writeOrTakeBack(const Write& write, const Back& back)
    {
        try {
            write();
        } catch (...) {
            takeBack(back);
            throw;
        }
    }

    /// Takes back, while the exception of a failed write is being handled, what was written before. That exception is
    /// the one to report: others are logged.
    template<class Call>
    static void takeBack(const Call& call)
    {
        moStep failed;
        failed.m_first = std::current_exception();
        attempt(call);
    }

    /// Runs a part of the step whose failure must not keep the rest from being done: its exceptions are kept, or logged
    /// outside of a step.
    template<class Part>
    Q_ALWAYS_INLINE static void attempt(const Part& part)
    {
        try {
            part();
        } catch (...) {
            keepException(s_current);
        }
    }

    moStep(const moStep&) = delete;
    moStep& operator=(const moStep&) = delete;

private:
    /// Foreign code runs outside of the step that calls it.
    struct Interlude
    {
        Interlude() : step(s_current) { s_current = nullptr; }
        ~Interlude() { s_current = step; }
        Interlude(const Interlude&) = delete;
        Interlude& operator=(const Interlude&) = delete;
        moStep* const step;
    };

    moStep() : m_outer(s_current) { s_current = this; }
    ~moStep() { s_current = m_outer; }

    /// Throws the exception that was kept, if any.
    void finish()
    {
        if (m_first) std::rethrow_exception(std::exchange(m_first, nullptr));
    }

    /// Keeps the exception being handled for the step, or logs it if there is no step or it has one already.
    static void keepException(moStep* step) noexcept;

    static moStep* s_current;

    moStep* m_outer;
    std::exception_ptr m_first;
};
