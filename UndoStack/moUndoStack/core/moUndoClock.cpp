#include <moUndoStack/core/moUndoClock_p.h>

#include <chrono>
#include <utility>

namespace {

using Counter = std::chrono::steady_clock;

std::int64_t steadyCounter()
{
    return Counter::now().time_since_epoch().count();
}

std::int64_t steadyFrequency()
{
    return Counter::period::den / Counter::period::num;
}

struct Clock
{
    explicit Clock(const moUndoClock::Source& from)
        : source(from), origin(from.counter()), secondsPerTick(1.0 / static_cast<double>(from.frequency()))
    {
    }

    moUndoClock::Source source;
    std::int64_t origin;
    double secondsPerTick;
};

Clock& theClock()
{
    static Clock s_clock({steadyCounter, steadyFrequency});
    return s_clock;
}

} // namespace

double moUndoClock::seconds()
{
    const Clock& used = theClock();
    return static_cast<double>(used.source.counter() - used.origin) * used.secondsPerTick;
}

moUndoClock::Source moUndoClock::setSource(const Source& source)
{
    return std::exchange(theClock(), Clock(source)).source;
}
