#pragma once

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QSharedData>

#include <functional>
#include <utility>

namespace moUndoDetail {

/// A callback, or none. It may be replaced while it runs, and its state (e.g. a counter in a mutable lambda) lasts from
/// one call to the next. As big as a pointer: many commands have one, and few are given a function.
template<class Signature>
class HeldFunction
{
public:
    explicit operator bool() const { return m_held; }

    /// An empty function means none.
    void set(std::function<Signature> function) { m_held = function ? new Held(std::move(function)) : nullptr; }

    /// Does nothing if there is none.
    template<class... Arguments>
    void operator()(Arguments&&... arguments) const
    {
        if (const auto running = m_held) running->function(std::forward<Arguments>(arguments)...);
    }

private:
    struct Held : QSharedData
    {
        explicit Held(std::function<Signature> given) : function(std::move(given)) {}
        std::function<Signature> function;
    };

    QExplicitlySharedDataPointer<Held> m_held;
};

} // namespace moUndoDetail
