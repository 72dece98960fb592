#include <support/FakeClock.h>

#include <cmath>

namespace {

constexpr std::int64_t ticksPerSecond = 1 << 20;

std::int64_t& ticks()
{
    static std::int64_t s_ticks = 0;
    return s_ticks;
}

} // namespace

FakeClock::FakeClock() : m_real(moUndoClock::setSource({[] { return ticks(); }, [] { return ticksPerSecond; }})) {}

FakeClock::~FakeClock()
{
    moUndoClock::setSource(m_real);
}

void FakeClock::advance(double seconds)
{
    ticks() += static_cast<std::int64_t>(std::llround(seconds * static_cast<double>(ticksPerSecond)));
}
